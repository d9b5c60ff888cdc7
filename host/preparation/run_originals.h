#ifndef TSLM5_HOST_PREPARATION_RUN_ORIGINALS_H_
#define TSLM5_HOST_PREPARATION_RUN_ORIGINALS_H_

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "host/preparation/cell_survey.h"
#include "host/preparation/delimited_text.h"
#include "host/preparation/field_table.h"
#include "host/preparation/run_session.h"
#include "host/program/progress.h"

namespace tslm5::host {

/// The keys that join the records of a run's sets to `OriginalData`: the training records are
/// 1 to n, the testing records n + 1 to n + m.
///
/// To be called after the set's table was filled with keys 1, 2, ... Moves the testing records
/// (their table and their original texts) behind the training ones, makes `OriginalData` when it is
/// missing or of another width, and takes the former originals of the set away.
/// Returns the key of the set's first record.
std::int32_t ArrangeRowKeys(const RunSession& session, std::int32_t type, std::int32_t records,
                            std::int32_t columns);

/// Makes `OriginalData` anew, empty.
void CreateOriginals(IConnection& connection, std::int32_t columns);

/// Gives `OriginalData`, which must be there, so many columns. Texts in a column of before and of
/// after stay.
void FitOriginals(const RunSession& session, std::int32_t columns);

/// Adds `distance` to the keys of a table's records.
void MoveKeys(IConnection& connection, std::string_view table, std::int32_t distance);

/// Gives the records of a data table, whose keys are 1, 2, ..., these keys. REQUIRES: ascending.
void SetRowKeys(IConnection& connection, std::string_view table,
                const std::vector<std::int32_t>& keys);

/// The keys of a data table's records, in order.
std::vector<std::int32_t> ReadRowKeys(IConnection& connection, std::string_view table);

/// Writes the texts of these records of a table of fields, each under its key. Raises `Failure`
/// "cancelled" on Ctrl-C.
void WriteOriginals(IConnection& connection, const FieldTable& table,
                    const std::vector<std::size_t>& records, const std::vector<std::int32_t>& keys,
                    Progress& progress);

/// Writes the records' texts as they stand in the file, without the blanks around a field, under
/// keys counted up from `first_key`. Raises `Failure` "cancelled" on Ctrl-C.
void WriteOriginals(IConnection& connection, const DelimitedText& text, const CellSurvey& survey,
                    std::int32_t first_key, Progress& progress);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_RUN_ORIGINALS_H_
