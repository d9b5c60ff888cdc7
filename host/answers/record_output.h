#ifndef TSLM5_HOST_ANSWERS_RECORD_OUTPUT_H_
#define TSLM5_HOST_ANSWERS_RECORD_OUTPUT_H_

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/answers/record_cells.h"
#include "host/program/output.h"

namespace tslm5::host {

/// The records that are to be written.
struct Selection {
  std::string set_name;
  std::vector<std::string> titles;  ///< one a cell
  std::int32_t first_row = 0;       ///< 0-based
  std::int32_t end_row = 0;         ///< past the last
  /// A new walk through the rows [first_row, end_row). A table is walked twice.
  std::function<std::unique_ptr<RecordCells>(std::int32_t first_row, std::int32_t end_row)> walk;
};

// Each writes the selection row by row; a selection of millions takes no memory.
// Raises `Failure` "cancelled" on Ctrl-C.

/// An aligned table with the row numbers before it; a missing value is "NA".
void WriteTable(const Selection& selection, Output& output);

/// By RFC 4180, with a line of titles; a missing value is empty. Lines end with "\n".
void WriteCsv(const Selection& selection, Output& output);

/// One object: `set`, `labels`, `firstRow` (1-based), `rows`, an array of arrays of numbers and
/// texts; a missing value is null.
void WriteJson(const Selection& selection, Output& output);

/// A text as a CSV field: between quotes when it holds a comma, a quote or a line end.
std::string CsvField(const std::string& text);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_RECORD_OUTPUT_H_
