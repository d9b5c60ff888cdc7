#ifndef TSLM5_INMEMORY_NOMINAL_PARSING_H_
#define TSLM5_INMEMORY_NOMINAL_PARSING_H_

#include <cstdint>
#include <string>
#include <vector>

#include "inmemory/text_parsing.h"

namespace tslm5 {

/// Fills an `InMemorySet` from delimited text whose columns may hold words:
/// `INominalDataSet::Parse` and `ParseString`. What differs from the plain parse: layout 3 is
/// applied; a cell that is no number is no error, but makes its column categorical or is missing;
/// the columns of words are coded in a second pass over the text, which knows them. A missing input
/// cell is not a number.
class NominalParsing final : public TextParsing {
 public:
  /// `problem_category` becomes that of the set, once a text is parsed.
  NominalParsing(InMemoryState& state, std::int32_t problem_category)
      : TextParsing(state), problem_category_(problem_category) {}

 private:
  void Begin(std::string& text, std::int32_t data_set_type) override;
  [[noreturn]] void RefuseMixedSeparators() const override;
  bool Rearranges(std::int32_t layout) const override;
  bool FillCells(const Lines& lines, IParseEventArgs& arguments) override;

  std::int64_t CodeColumns(const Lines& lines, const std::vector<std::int32_t>& columns,
                           char decimal);

  std::int32_t problem_category_;
  bool is_training_ = false;
};

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_NOMINAL_PARSING_H_
