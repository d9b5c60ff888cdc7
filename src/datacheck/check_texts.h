#ifndef TSLM5_DATACHECK_CHECK_TEXTS_H_
#define TSLM5_DATACHECK_CHECK_TEXTS_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace tslm5 {

struct DataCheckRules;
struct TextFinding;

/// The data check's words for the user. "<DATASET>" stands for the set's name, which the
/// application puts in; the check never does. Rows and columns in them are 1-based.
namespace check_text {

// Results.
inline constexpr std::string_view kCancelled = "Data check cancelled.";
inline constexpr std::string_view kCompleted = "Data check completed.";

// Progress.
inline constexpr std::string_view kCheckingSeparator = "Checking the separator...";
inline constexpr std::string_view kCheckingLabels = "Checking the labels...";
inline constexpr std::string_view kCheckingData = "Checking data...";
inline constexpr std::string_view kRemovingSeparators =
    "Checking data: Removing duplicate separators...";
inline constexpr std::string_view kClearingRows = "Checking data: Clearing empty rows...";
inline constexpr std::string_view kRemovingCharacters =
    "Checking data: Removing invalid characters...";

// Refusals of the file, its separator or its labels.
inline constexpr std::string_view kFileNotFound = "File not found.";
inline constexpr std::string_view kFirstLinesEmpty =
    "File is empty (the initial 100 lines are empty).";
inline constexpr std::string_view kInvalidFile = "Invalid file.";
inline constexpr std::string_view kLoneReturns =
    "Invalid file. Its lines end at carriage returns alone.\r\n\r\nPlease save it with line feeds.";
inline constexpr std::string_view kNulInLabels =
    "Unable to proceed: The labels row holds a NUL character.\r\n\r\nPlease make sure that the "
    "file "
    "is plain text.";
inline constexpr std::string_view kInvalidSeparator = "Invalid separator.";
inline constexpr std::string_view kTooManyColumns = "Invalid dataset. Too many columns.";
inline constexpr std::string_view kLabelCount =
    "The number of labels is different from the number of data columns.";
inline constexpr std::string_view kLabelSeparator = "Invalid separator in the labels row.";
inline constexpr std::string_view kFirstFieldNotNumeric =
    "Either the separator is invalid or there are non-numeric values in the first data row.";

// Refusals of the data.
inline constexpr std::string_view kPrefix = "Invalid <DATASET>. ";
inline constexpr std::string_view kFileIsEmpty = "The file is empty.";
inline constexpr std::string_view kEmptyRows = "Invalid <DATASET>. The data contains empty rows.";

/// "1,234,567": always with commas, whatever the user's locale.
std::string Grouped(std::int64_t number);

std::string CheckingRow(std::int64_t row);
std::string TooManyRows(std::int64_t most_rows);
std::string MissingInRow(std::int64_t row);
std::string ColumnCount(std::int64_t row);
std::string MissingResponse(std::int64_t row, std::int64_t column);
/// Shows the first 15 characters of `value`.
std::string InvalidValue(std::int64_t row, std::int64_t column, std::string_view value);

/// The words of `IsValidDataSet` for a finding.
std::string TextOf(const TextFinding& finding, const DataCheckRules& rules);

/// `text` with the name of a set in its beginning, where that has the place for one.
std::string WithSetName(std::string text, std::string_view name);

/// `text` without every occurrence of `kPrefix`.
std::string WithoutPrefix(std::string_view text);

}  // namespace check_text

}  // namespace tslm5

#endif  // TSLM5_DATACHECK_CHECK_TEXTS_H_
