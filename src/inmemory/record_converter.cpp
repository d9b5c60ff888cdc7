#include "inmemory/record_converter.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "inmemory/parse_errors.h"
#include "inmemory/wide_number.h"
#include "support/numeric_test.h"
#include "support/text_cleanup.h"
#include "support/text_split.h"
#include "support/utf8.h"
#include "tslm5/platform/number_text.h"

namespace tslm5 {
namespace {

std::string_view Between(const char* first, const char* last) {
  return {first, static_cast<std::size_t>(last - first)};
}

/// The number between `first` and `last`, in a text that ends at `text_end`.
inline bool ReadNumber(const char* first, const char* last, const char* text_end, char decimal,
                       double& value) {
  const auto readable = static_cast<std::size_t>(text_end - first);
  return (readable >= kWideNumberReads &&
          ParseWideNumber(first, static_cast<std::size_t>(last - first), decimal, value)) ||
         ParseNumber(Between(first, last), decimal, value);
}

}  // namespace

RecordConverter::RecordConverter(std::string_view text, std::string_view separator,
                                 std::int32_t columns, char decimal)
    : separator_(separator),
      separator_character_(separator.empty() ? '\n' : separator[0]),
      columns_(columns),
      decimal_(decimal),
      delimiters_(text, separator_character_),
      at_(text.data()),
      last_(text.data() + text.size()) {}

std::string_view RecordConverter::Next(double* cells) {
  ++line_number_;
  std::string_view last_field;
  if (!Convert(cells, last_field)) RefuseLine();
  return last_field;
}

bool RecordConverter::Convert(double* cells, std::string_view& last_field) {
  const char* field = at_;
  if (*field == separator_character_) field = delimiters_.Next() + 1;
  for (std::int32_t column = 0;; ++column) {
    const char* end = delimiters_.Next();
    if (!ReadNumber(field, end, last_, decimal_, cells[column])) return false;
    const bool ends_line = end == last_ || *end == '\n';
    if (column == columns_ - 1) {
      last_field = Between(field, end);
      if (!ends_line) {  // a separator, which must be the last of the line
        const char* const behind = end + 1;
        end = delimiters_.Next();
        if (end != behind || (end != last_ && *end != '\n')) return false;
      }
      at_ = end == last_ ? last_ : end + 1;
      return true;
    }
    if (ends_line) return false;
    field = end + 1;
  }
}

/// Looks at the line again and says what is wrong with it: its width comes before its fields.
void RecordConverter::RefuseLine() const {
  std::string line(at_, std::find(at_, last_, '\n'));
  TextCleanup::ReplaceSeparator(line, separator_);
  const std::string_view trimmed = Utf8::TrimBlanks(line);
  std::string_view field;
  std::int64_t count = 0;
  for (FieldCursor fields(trimmed, " "); fields.Next(field);) ++count;
  if (count != columns_) ParseErrors::RaiseColumnCount(line_number_);
  std::int64_t column = 1;
  FieldCursor fields(trimmed, " ");
  while (fields.Next(field) && IsNumeric(field, decimal_)) ++column;
  ParseErrors::RaiseInvalidField(field, line_number_, column);
}

}  // namespace tslm5
