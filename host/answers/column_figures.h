#ifndef TSLM5_HOST_ANSWERS_COLUMN_FIGURES_H_
#define TSLM5_HOST_ANSWERS_COLUMN_FIGURES_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/preparation/run_session.h"

namespace tslm5::host {

/// The figures of one column; empty where the column does not have one.
struct ColumnFigures {
  std::int32_t index = 0;
  std::optional<double> centroid;
  std::optional<double> medoid;
  std::optional<double> minimum;
  std::optional<double> maximum;
  std::optional<double> deviation;  ///< not within a class
};

/// The records that share one response value.
struct ClassFigures {
  double value = 0.0;
  std::int32_t records = 0;
  std::vector<ColumnFigures> columns;
};

/// The figures stored in the run for set `type`, by column; none when they were not computed.
std::vector<ColumnFigures> ReadColumnFigures(const RunSession& session, std::int32_t type);

/// The same, class by class; none for a response of more than two values.
std::vector<ClassFigures> ReadClassFigures(const RunSession& session, std::int32_t type);

/// How the values of a column are spread: eight heights of a block character over `bins` equal
/// parts of [minimum, maximum]. A part with any value is never empty. "" for a column without
/// numbers.
std::string Histogram(IDataSet& data_set, std::int32_t column, int bins);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_COLUMN_FIGURES_H_
