#ifndef TSLM5_STORAGE_ROW_INSERT_TEXT_H_
#define TSLM5_STORAGE_ROW_INSERT_TEXT_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tslm5 {

/// Builds the INSERT statements of one table in one buffer, which is used again for every row.
/// A returned view lives until the next call.
class RowInsertText {
 public:
  /// `decimal_is_comma`: a "," in a line of text is a decimal separator, and becomes ".".
  RowInsertText(std::string_view table_name, bool decimal_is_comma);

  /// The statement of a line of blank-separated values. The line is trimmed; every single blank
  /// separates; a field that is empty or a missing-value token becomes NULL, every other one a
  /// quoted text. A field with an apostrophe or a NUL character, and a number that is no finite
  /// double, raise 41011, source "ParseArray".
  std::string_view FromLine(std::string_view line, std::int32_t row);

  // The statement of a row of numbers: NaN becomes NULL, an infinity raises 6.
  void BeginNumbers() { buffer_size_ = head_size_; }
  void AddNumber(double value);
  std::string_view EndNumbers(std::int32_t row);
  /// The same without the row number: it is among the numbers.
  std::string_view EndNumbers();

  /// The number of fields of the line last taken.
  std::int32_t Fields() const { return fields_; }

 private:
  char* Reserve(std::size_t size);
  std::string_view End(char* out);

  std::size_t head_size_;
  std::vector<char> buffer_;
  std::size_t buffer_size_ = 0;
  bool decimal_is_comma_;
  std::int32_t fields_ = 0;
};

}  // namespace tslm5

#endif  // TSLM5_STORAGE_ROW_INSERT_TEXT_H_
