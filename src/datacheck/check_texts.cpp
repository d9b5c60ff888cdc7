#include "datacheck/check_texts.h"

#include "datacheck/text_check.h"
#include "support/text_cleanup.h"
#include "support/utf8.h"

namespace tslm5::check_text {
namespace {

constexpr std::size_t kShownCharacters = 15;
constexpr std::string_view kColumnCountText =
    "Unable to proceed: Row number {x} has an invalid number of columns.\r\n\r\nPlease make sure "
    "this is a valid record or remove it from the dataset.";
constexpr std::string_view kMissingResponseText =
    "Unable to proceed: Invalid input in row {x}, column {y}.\r\n\r\nThe response variable has "
    "missing values, which is not supported.\r\nPlease make sure you remove all missing values "
    "from the response.";

std::string Filled(std::string_view text, std::string_view mark, std::int64_t number) {
  std::string filled(text);
  filled.replace(filled.find(mark), mark.size(), std::to_string(number));
  return filled;
}

}  // namespace

std::string Grouped(std::int64_t number) {
  std::string text = std::to_string(number);
  const std::ptrdiff_t first_digit = number < 0 ? 1 : 0;
  for (auto place = static_cast<std::ptrdiff_t>(text.size()) - 3; place > first_digit; place -= 3) {
    text.insert(static_cast<std::size_t>(place), 1, ',');
  }
  return text;
}

std::string CheckingRow(std::int64_t row) {
  std::string text = "Checking row ";
  return text += Grouped(row);
}

std::string TooManyRows(std::int64_t most_rows) {
  std::string text = "The number of rows must be less than or equal to ";
  return text += std::to_string(most_rows) + ".";
}

std::string MissingInRow(std::int64_t row) {
  std::string text = "Invalid <DATASET>. Missing value(s) in row ";
  return text += Grouped(row) + ".";
}

std::string ColumnCount(std::int64_t row) {
  return Filled(kColumnCountText, "{x}", row);
}

std::string MissingResponse(std::int64_t row, std::int64_t column) {
  return Filled(Filled(kMissingResponseText, "{x}", row), "{y}", column);
}

std::string InvalidValue(std::int64_t row, std::int64_t column, std::string_view value) {
  std::string text = "Invalid <DATASET>. Value in row ";
  text += Grouped(row) + ", column " + std::to_string(column) + "." + " is invalid: ";
  return text += Utf8::FirstCharacters(value, kShownCharacters);
}

std::string TextOf(const TextFinding& finding, const DataCheckRules& rules) {
  switch (finding.code) {
    case CheckCode::kNoFirstLine:
      return std::string(kInvalidFile);
    case CheckCode::kFirstLinesEmpty:
      return std::string(kFirstLinesEmpty);
    case CheckCode::kLoneReturns:
      return std::string(kLoneReturns);
    case CheckCode::kUnknownSeparator:
      return std::string(kInvalidSeparator);
    case CheckCode::kTooManyColumns:
      return std::string(kTooManyColumns);
    case CheckCode::kLabelCount:
      return std::string(kLabelCount);
    case CheckCode::kLabelSeparator:
      return std::string(kLabelSeparator);
    case CheckCode::kNulInLabels:
      return std::string(kNulInLabels);
    case CheckCode::kFirstFieldNoNumber:
      return std::string(kFirstFieldNotNumeric);
    case CheckCode::kNoRecords:
    case CheckCode::kEmptyLine:
      return std::string(kEmptyRows);
    case CheckCode::kTooManyRecords:
      return TooManyRows(rules.most_row_index);
    case CheckCode::kFieldCount:
      return ColumnCount(finding.record);
    case CheckCode::kMissingResponse:
      return MissingResponse(finding.record, finding.column);
    case CheckCode::kMissingValue:
    case CheckCode::kText:
      return InvalidValue(finding.record, finding.column, finding.value);
  }
  return {};
}

std::string WithSetName(std::string text, std::string_view name) {
  constexpr std::string_view kMark = "<DATASET>";
  if (text.starts_with(kPrefix)) text.replace(kPrefix.find(kMark), kMark.size(), name);
  return text;
}

std::string WithoutPrefix(std::string_view text) {
  std::string shorter(text);
  TextCleanup::ReplaceToken(shorter, kPrefix, "");
  return shorter;
}

}  // namespace tslm5::check_text
