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
      walker_(text, separator, columns),
      parts_(static_cast<std::size_t>(columns)) {}

std::string_view RecordConverter::Next(double* cells) {
  constexpr std::int32_t kFewColumns = 5;  // with fewer, the second pass costs more than it saves
  return columns_ < kFewColumns ? NextInOnePass(cells) : NextInTwoPasses(cells);
}

std::string_view RecordConverter::NextInOnePass(double* cells) {
  std::string_view last_field;
  const auto take = [this, cells](std::int32_t column, const char* first, const char* last) {
    return ReadNumber(first, last, walker_.TextEnd(), decimal_, cells[column]);
  };
  if (!walker_.Next(last_field, take)) RefuseLine();
  return last_field;
}

/// First the fields are read, then all of them made doubles: the divisions of a record, which take
/// their time, wait neither for each other nor for the reading.
std::string_view RecordConverter::NextInTwoPasses(double* cells) {
  std::string_view last_field;
  others_.clear();
  delimited::ExactParts* const parts = parts_.data();
  const char* const text_end = walker_.TextEnd();
  const char decimal = decimal_;
  const auto take = [this, parts, text_end, decimal](std::int32_t column, const char* first,
                                                     const char* last) {
    if (static_cast<std::size_t>(text_end - first) >= delimited::kExactNumberReads &&
        delimited::ParseExactParts(first, static_cast<std::size_t>(last - first), decimal,
                                   parts[column])) {
      return true;
    }
    return TakeOther(column, first, last);
  };
  if (!walker_.Next(last_field, take)) RefuseLine();
  for (std::int32_t column = 0; column < columns_; ++column) {
    cells[column] = delimited::Compose(parts[column]);
  }
  for (const Other& other : others_) cells[other.column] = other.value;
  return last_field;
}

/// Takes a field that has no exact parts; false for one that is no number.
bool RecordConverter::TakeOther(std::int32_t column, const char* first, const char* last) {
  double value = 0.0;
  if (!ParseNumber({first, static_cast<std::size_t>(last - first)}, decimal_, value)) return false;
  others_.push_back({column, value});
  return true;
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
