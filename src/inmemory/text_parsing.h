#ifndef TSLM5_INMEMORY_TEXT_PARSING_H_
#define TSLM5_INMEMORY_TEXT_PARSING_H_

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "inmemory/class_tracker.h"
#include "inmemory/in_memory_state.h"
#include "inmemory/text_survey.h"
#include "tslm5/contracts/event_args.h"

namespace tslm5 {

/// Fills an `InMemorySet` from delimited text: `IDataSet::Parse` and `IDataSet::ParseString`, and
/// the frame of the other kind of parse, which overrides the steps that it does its own way.
/// The numbers go from the text straight into a new array. While handlers run, the set has none but
/// the new data. After an error it holds what it held before, and all that goes with it; after a
/// cancel, or an error that a handler set in its argument, it is empty and not ready. Peak memory
/// is the text, the array, and the array of before.
class TextParsing {
 public:
  explicit TextParsing(InMemoryState& state) : state_(state) {}
  TextParsing(const TextParsing&) = delete;
  TextParsing& operator=(const TextParsing&) = delete;
  virtual ~TextParsing() = default;

  /// Raises 41001 for an empty path and 41007 when there is no such file; the set is untouched
  /// then. `arguments` may be null: the events then carry the path.
  void Parse(std::string_view path, std::int32_t separator, bool has_labels,
             std::int32_t data_set_type, std::int32_t layout, IParseEventArgs* arguments);

  /// Leaves `text` cleaned, without its label line. `arguments` may be null. Raises 41023 when
  /// nothing is left to parse, 41012 for a text without the separator, 41024 for one with
  /// another, 41013 when labels and fields differ in number, 41001 for a text of one column that
  /// is to be transposed, and the errors of `ParseErrors`.
  void ParseString(std::string& text, std::int32_t separator, bool has_labels,
                   std::int32_t data_set_type, std::int32_t layout, IParseEventArgs* arguments);

 protected:
  /// The cleaned lines of a text, none of them empty.
  struct Lines {
    std::string_view text;
    std::int32_t rows;
    std::int32_t columns;
  };

  /// Takes the text and the type as the caller gave them, before anything else is done.
  virtual void Begin(std::string& text, std::int32_t data_set_type);
  [[noreturn]] virtual void RefuseMixedSeparators() const;
  virtual bool Rearranges(std::int32_t layout) const;
  /// Fills the set's array. False when a handler stopped the parse.
  virtual bool FillCells(const Lines& lines, IParseEventArgs& arguments);

  /// Has every line converted by `converter.Next(cells)`, which returns the response, and tells of
  /// it. False when a handler stopped the parse.
  template <class Converter>
  bool ConvertRecords(Converter& converter, ClassTracker classes, std::int32_t rows,
                      IParseEventArgs& arguments);

  InMemoryState& State() const { return state_; }
  std::string_view Separator() const { return separator_; }
  double* Row(std::int32_t row) const { return cells_->Row(row); }
  void PutTexts(std::shared_ptr<const RawCells> texts) { cells_->PutTexts(std::move(texts)); }

 private:
  std::int32_t Run(std::string& text, bool has_labels, std::int32_t layout,
                   IParseEventArgs& arguments);
  void TakeText(std::string& text, std::int32_t separator);
  TextSurvey SurveyOf(std::string_view text) const;
  void TakeLabels(const std::string& text);
  std::int32_t CountFirstFields(std::string_view text) const;
  bool TakeRecords(std::string_view text, std::int32_t rows, IParseEventArgs& arguments);
  bool TellOfRecord(IRecordParsedEventArgs& record, std::int32_t row, IParseEventArgs& arguments);

  InMemoryState& state_;
  std::string_view separator_;
  TextSurvey survey_;  // of the text before repeats are merged
  Ref<IRecordParsedEventArgs> record_;
  std::int32_t handlers_error_ = 0;   // the number by which a handler stopped the parse
  std::shared_ptr<CellArray> cells_;  // being filled; held, as a handler may clear the set
};

template <class Converter>
bool TextParsing::ConvertRecords(Converter& converter, ClassTracker classes, std::int32_t rows,
                                 IParseEventArgs& arguments) {
  for (std::int32_t row = 0; row < rows; ++row) {
    classes.Note(converter.Next(cells_->Row(row)));
    if (state_.sinks.HasSinks() && !TellOfRecord(*record_, row, arguments)) return false;
  }
  classes.RequireSeveral();
  return true;
}

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_TEXT_PARSING_H_
