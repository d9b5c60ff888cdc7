#ifndef TSLM5_DATASETLITE_RECORD_WIDTHS_H_
#define TSLM5_DATASETLITE_RECORD_WIDTHS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tslm5 {

/// A record that has another number of fields than the first one. Lines are numbered from 1.
struct UnevenRecord {
  std::int64_t line = 0;
  std::int64_t fields = 0;
  std::int64_t first_line = 0;
  std::int64_t first_fields = 0;
};

/// The first such record of a text of blank-separated values: two blanks in a row stand around an
/// empty field. Blanks at the ends of a line, and tabs and ";" anywhere, count for nothing; a line
/// of them alone is no record. `first_line` is the number of the text's first line.
std::optional<UnevenRecord> FindUnevenRecord(std::string_view text, std::int64_t first_line);

/// Whether a first record that is separated by something else than blanks means two things: by its
/// separators it has as many fields as there are values in it, but an empty field stands among them
/// and a blank inside another makes up for it. `line` is as it stands in the file; `blanked` is the
/// same with a blank for each separator, and without those beside one.
bool IsAmbiguous(std::string_view line, std::string_view separator, std::string_view blanked);

/// What the words for the user number: the lines of the file, or its records where those stand in
/// columns.
inline constexpr std::string_view kLineUnit = "line";
inline constexpr std::string_view kRecordUnit = "record";

std::string UnevenRecordText(const UnevenRecord& record, std::string_view unit);
std::string AmbiguousRecordText(std::int64_t line, std::string_view unit);
/// Of a text that holds a NUL character.
std::string NulText(std::string_view text, std::int64_t first_line, std::string_view unit);

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_RECORD_WIDTHS_H_
