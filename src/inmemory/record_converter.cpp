#include "inmemory/record_converter.h"

#include <algorithm>
#include <cstddef>

#include "inmemory/parse_errors.h"
#include "inmemory/wide_number.h"
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
  return ReadPlainLine(cells, last_field) ? last_field : ReadAnyLine(cells);
}

/// One separator may stand at the start and one at the end: they would be trimmed away.
bool RecordConverter::ReadPlainLine(double* cells, std::string_view& last_field) {
  const char* field = at_;
  if (*field == separator_character_) field = delimiters_.Next() + 1;
  for (std::int32_t column = 0;; ++column) {
    const char* end = delimiters_.Next();
    if (!ReadNumber(field, end, last_, decimal_, cells[column])) return false;
    if (column == columns_ - 1) {
      last_field = Between(field, end);
      if (end != last_ && *end != '\n') {
        end = delimiters_.Next();
        if (end != last_field.data() + last_field.size() + 1) return false;
        if (end != last_ && *end != '\n') return false;
      }
      at_ = end == last_ ? last_ : end + 1;
      return true;
    }
    if (end == last_ || *end != separator_character_) return false;
    field = end + 1;
  }
}

std::string_view RecordConverter::ReadAnyLine(double* cells) {
  line_.assign(at_, std::find(at_, last_, '\n'));
  at_ += std::min(line_.size() + 1, static_cast<std::size_t>(last_ - at_));
  delimiters_.MoveTo(at_);

  TextCleanup::ReplaceSeparator(line_, separator_);
  const std::string_view line = Utf8::TrimBlanks(line_);
  std::string_view field;
  std::int64_t count = 0;
  for (FieldCursor fields(line, " "); fields.Next(field);) ++count;
  if (count != columns_) ParseErrors::RaiseColumnCount(line_number_);
  std::int64_t column = 0;
  for (FieldCursor fields(line, " "); fields.Next(field); ++column) {
    if (!ParseNumber(field, decimal_, cells[column])) {
      ParseErrors::RaiseInvalidField(field, line_number_, column + 1);
    }
  }
  return field;
}

}  // namespace tslm5
