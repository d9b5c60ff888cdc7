#ifndef TSLM5_HOST_ANSWERS_COLUMN_FIGURES_H_
#define TSLM5_HOST_ANSWERS_COLUMN_FIGURES_H_

#include <cstdint>
#include <string>
#include <vector>

#include "host/preparation/run_session.h"
#include "tslm5/run/run_records.h"

namespace tslm5::host {

/// The figures stored in the run for set `type`, by column; none when they were not computed.
std::vector<RunFigures> ReadColumnFigures(const RunSession& session, std::int32_t type);

/// The same, class by class; none for a response of more than two values.
std::vector<RunClassFigures> ReadClassFigures(const RunSession& session, std::int32_t type);

/// How the values of a column are spread: eight heights of a block character over `bins` equal
/// parts of [minimum, maximum]. A part with any value is never empty. "" for a column without
/// numbers.
std::string Histogram(IDataSet& data_set, std::int32_t column, int bins);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_COLUMN_FIGURES_H_
