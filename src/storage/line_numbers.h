#ifndef TSLM5_STORAGE_LINE_NUMBERS_H_
#define TSLM5_STORAGE_LINE_NUMBERS_H_

#include <span>
#include <string_view>
#include <vector>

namespace tslm5 {

/// Whether a field of a line stands for a missing value: it is empty or a missing-value token.
bool IsMissingField(std::string_view field);

/// Reads lines of blank-separated numbers by the rules of `RowInsertText::FromLine`, as far as they
/// are numbers that a double holds; one buffer for all lines.
class LineNumbers {
 public:
  /// `decimal_is_comma`: a "," is a decimal separator, beside the ".".
  explicit LineNumbers(bool decimal_is_comma) : decimal_is_comma_(decimal_is_comma) {}

  /// False when a field is neither a number nor missing.
  bool Read(std::string_view line);
  /// The numbers of the line last read, NaN for a missing one.
  std::span<const double> Numbers() const { return numbers_; }

 private:
  bool ReadField(std::string_view field, const char* line_end);

  bool decimal_is_comma_;
  std::vector<double> numbers_;
};

}  // namespace tslm5

#endif  // TSLM5_STORAGE_LINE_NUMBERS_H_
