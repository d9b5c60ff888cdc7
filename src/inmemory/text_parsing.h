#ifndef TSLM5_INMEMORY_TEXT_PARSING_H_
#define TSLM5_INMEMORY_TEXT_PARSING_H_

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "inmemory/in_memory_state.h"
#include "tslm5/contracts/event_args.h"

namespace tslm5 {

/// Fills an `InMemorySet` from delimited text: `IDataSet::Parse` and `IDataSet::ParseString`.
/// The numbers go from the text straight into the set's array. Neither keeps the data that the set
/// had: after an error, or a cancel, it holds none and is not ready. Peak memory is the text and
/// the array.
class TextParsing {
 public:
  explicit TextParsing(InMemoryState& state) : state_(state) {}

  /// Raises 41001 for an empty path and 41007 when there is no such file; the set is untouched
  /// then. `arguments` may be null: the events then carry the path.
  void Parse(std::string_view path, std::int32_t separator, bool has_labels,
             std::int32_t data_set_type, std::int32_t layout, IParseEventArgs* arguments);

  /// Leaves `text` cleaned, without its label line. `arguments` may be null. Raises 41023 when
  /// nothing is left to parse, 41012 for a text without the separator, 41024 for one with
  /// another, 41013 when labels and fields differ in number, and the errors of `ParseErrors`.
  void ParseString(std::string& text, std::int32_t separator, bool has_labels,
                   std::int32_t data_set_type, std::int32_t layout, IParseEventArgs* arguments);

 private:
  void Run(std::string& text, bool has_labels, std::int32_t layout, IParseEventArgs& arguments);
  void TakeText(std::string& text, std::int32_t separator);
  void TakeLabels(const std::string& text);
  std::int32_t CountFirstFields(std::string_view text) const;
  bool FillCells(std::string_view text, std::int32_t rows, IParseEventArgs& arguments);
  bool TellOfRecord(IRecordParsedEventArgs& record, std::int32_t row, IParseEventArgs& arguments);

  InMemoryState& state_;
  std::string_view separator_;
  std::shared_ptr<CellArray> cells_;  // being filled; held, as a handler may clear the set
};

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_TEXT_PARSING_H_
