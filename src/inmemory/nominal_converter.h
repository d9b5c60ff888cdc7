#ifndef TSLM5_INMEMORY_NOMINAL_CONVERTER_H_
#define TSLM5_INMEMORY_NOMINAL_CONVERTER_H_

#include <cstdint>
#include <string_view>
#include <vector>

#include "inmemory/record_walker.h"

namespace tslm5 {

/// Converts the lines of a text that may hold words, one after the other, where they stand; and
/// finds out which columns are categorical: those with a cell that is neither a number nor missing.
class NominalConverter {
 public:
  /// The text, its separator and its width as `RecordWalker` takes them.
  NominalConverter(std::string_view text, std::string_view separator, std::int32_t columns,
                   char decimal);

  /// Converts the next line, which must be there, into `cells` (`columns` of them) and returns its
  /// last field, a view into the text. A cell that is no number becomes not a number, as does every
  /// later one of its column once that is categorical. Raises 41020 for a line of another width and
  /// 41025 for a line whose last field is missing.
  std::string_view Next(double* cells);

  /// The indexes of the categorical columns, as far as the lines have shown.
  std::vector<std::int32_t> CategoricalColumns() const;

  /// The number of missing cells in the columns that are not categorical.
  std::int64_t CountMissing() const;

 private:
  struct Column {
    bool is_categorical = false;
    std::int64_t missing = 0;  // before it was found to be categorical
  };

  void TakeText(Column& column, std::string_view text) const;

  bool is_blank_separated_;
  char decimal_;
  RecordWalker walker_;
  std::vector<Column> columns_;
};

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_NOMINAL_CONVERTER_H_
