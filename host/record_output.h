#ifndef TSLM5_HOST_RECORD_OUTPUT_H_
#define TSLM5_HOST_RECORD_OUTPUT_H_

#include <cstdint>
#include <string>
#include <vector>

#include "host/output.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/engine/connection.h"
#include "tslm5/platform/ref.h"

namespace tslm5::host {

/// The cells of a dataset that are to be shown.
struct Selection {
  IDataSet& data_set;
  std::string set_name;
  std::vector<std::string> labels;    ///< of the columns below
  std::vector<std::int32_t> columns;  ///< 0-based
  std::int32_t first_row;             ///< 0-based
  std::int32_t end_row;               ///< past the last
  /// The run and the table to join the untransformed texts to; empty: the numbers alone.
  Ref<IConnection> originals_of;
  std::string table;
};

// With originals, each column is followed by one called "LABEL (original)" that holds its texts.
// Each writes the selection row by row; a selection of millions takes no memory.
// Raises `Failure` "cancelled" on Ctrl-C.

/// An aligned table with the row numbers before it; a missing value is "NA".
void WriteTable(const Selection& selection, Output& output);

/// By RFC 4180, with a line of labels; a missing value is empty. Lines end with "\n".
void WriteCsv(const Selection& selection, Output& output);

/// One object: `set`, `labels`, `firstRow` (1-based), `rows`, an array of arrays of numbers; a
/// missing value is null. Originals are texts.
void WriteJson(const Selection& selection, Output& output);

/// A text as a CSV field: between quotes when it holds a comma, a quote or a line end.
std::string CsvField(const std::string& text);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_RECORD_OUTPUT_H_
