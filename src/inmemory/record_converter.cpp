#include "inmemory/record_converter.h"

#include <string>

#include "inmemory/parse_errors.h"
#include "support/numeric_test.h"
#include "support/text_cleanup.h"
#include "support/text_split.h"
#include "support/utf8.h"

namespace tslm5 {

RecordConverter::RecordConverter(std::string_view text, std::string_view separator,
                                 std::int32_t columns, char decimal)
    : separator_(separator),
      columns_(columns),
      decimal_(decimal),
      walker_(text, separator, columns) {}

std::string_view RecordConverter::Next(double* cells) {
  std::string_view last_field;
  const auto take = [this, cells](std::int32_t column, const char* first, const char* last) {
    return ReadNumber(first, last, walker_.TextEnd(), decimal_, cells[column]);
  };
  if (!walker_.Next(last_field, take)) RefuseLine();
  return last_field;
}

/// Looks at the line again and says what is wrong with it: its width comes before its fields.
void RecordConverter::RefuseLine() const {
  std::string line(walker_.Line());
  TextCleanup::ReplaceSeparator(line, separator_);
  const std::string_view trimmed = Utf8::TrimBlanks(line);
  std::string_view field;
  std::int64_t count = 0;
  for (FieldCursor fields(trimmed, " "); fields.Next(field);) ++count;
  if (count != columns_) ParseErrors::RaiseColumnCount(walker_.LineNumber());
  std::int64_t column = 1;
  FieldCursor fields(trimmed, " ");
  while (fields.Next(field) && IsNumeric(field, decimal_)) ++column;
  ParseErrors::RaiseInvalidField(field, walker_.LineNumber(), column);
}

}  // namespace tslm5
