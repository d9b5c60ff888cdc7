#ifndef TSLM5_HOST_PREPARATION_RUN_ORIGINALS_H_
#define TSLM5_HOST_PREPARATION_RUN_ORIGINALS_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "host/preparation/cell_survey.h"
#include "host/preparation/delimited_text.h"
#include "host/preparation/field_table.h"
#include "host/program/progress.h"
#include "tslm5/run/run_originals.h"

namespace tslm5::host {

/// Writes the texts of these records of a table of fields, each under its key. Raises `Failure`
/// "cancelled" on Ctrl-C.
void WriteOriginals(IRunOriginals& originals, const FieldTable& table,
                    const std::vector<std::size_t>& records, const std::vector<std::int32_t>& keys,
                    Progress& progress);

/// Writes the records' texts as they stand in the file, without the blanks around a field, under
/// keys counted up from `first_key`. Raises `Failure` "cancelled" on Ctrl-C.
void WriteOriginals(IRunOriginals& originals, const DelimitedText& text, const CellSurvey& survey,
                    std::int32_t first_key, Progress& progress);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_RUN_ORIGINALS_H_
