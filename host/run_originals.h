#ifndef TSLM5_HOST_RUN_ORIGINALS_H_
#define TSLM5_HOST_RUN_ORIGINALS_H_

#include <cstdint>

#include "host/cell_survey.h"
#include "host/delimited_text.h"
#include "host/progress.h"
#include "host/run_session.h"

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

/// Writes the records' texts as they stand in the file, without the blanks around a field, under
/// keys counted up from `first_key`. Raises `Failure` "cancelled" on Ctrl-C.
void WriteOriginals(IConnection& connection, const DelimitedText& text, const CellSurvey& survey,
                    std::int32_t first_key, Progress& progress);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_RUN_ORIGINALS_H_
