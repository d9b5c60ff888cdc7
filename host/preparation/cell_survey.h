#ifndef TSLM5_HOST_PREPARATION_CELL_SURVEY_H_
#define TSLM5_HOST_PREPARATION_CELL_SURVEY_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/preparation/delimited_text.h"
#include "host/preparation/record_reader.h"

namespace tslm5::host {

/// The most columns that a table of a run can hold beside its row key.
inline constexpr std::size_t kMostColumns = 1999;

struct CellPlace {
  std::int64_t line;   ///< 1-based
  std::size_t column;  ///< 0-based
  std::string value;
};

/// Cells of one kind: how many, and the first.
struct CellKind {
  std::int64_t count = 0;
  std::optional<CellPlace> first;

  void Note(std::int64_t line, std::size_t column, std::string_view value) {
    if (count++ == 0) first = CellPlace{line, column, std::string(value)};
  }
};

/// What a delimited text holds.
struct CellSurvey {
  std::int64_t lines = 0;  ///< always records + label lines + empty lines
  std::int64_t records = 0;
  std::int64_t label_lines = 0;
  std::int64_t empty_lines = 0;
  std::size_t columns = 0;
  CellKind missing;  ///< empty, or a token that stands for a missing value
  CellKind text;     ///< any other cell that holds no number
  CellKind changed;  ///< cells that lose a tab or a semicolon when they are loaded
  CellKind blanks;   ///< one a line whose blanks make more columns than its separators
  CellKind quoted;   ///< cells in double quotes, which are kept as part of the text
  std::optional<CellPlace> first_apostrophe;
  std::vector<std::int64_t> missing_by_column;
};

/// Whether a cell stands for a missing value: empty, or one of the loader's tokens.
bool IsMissing(std::string_view cell);

/// What to tell of a text in which the reader has found no record.
std::string NoRecords(const RecordReader& reader, const DelimitedText& text);

/// Goes through the whole text. Raises `Failure`, refused, for a text without records, for more
/// than `kMostColumns` columns, for records of different lengths and for a label line that does not
/// fit them, each with the line in question.
/// With `comma_is_decimal`, a cell may have a decimal comma.
CellSurvey SurveyCells(const DelimitedText& text, bool comma_is_decimal);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_CELL_SURVEY_H_
