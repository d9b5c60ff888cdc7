#ifndef TSLM5_ENGINE_COLUMN_AGGREGATES_H_
#define TSLM5_ENGINE_COLUMN_AGGREGATES_H_

#include <sqlite3.h>

#include <optional>
#include <vector>

namespace tslm5 {

/// The median of `values`, which are reordered: the middle value, or the mean of the middle two.
/// No value for no values. Linear time.
std::optional<double> Median(std::vector<double>& values);

/// The sample standard deviation of `values` (divisor n - 1), by the corrected two-pass algorithm
/// (Chan, Golub, LeVeque 1983), stable for values far from zero. No value below two values.
std::optional<double> SampleDeviation(const std::vector<double>& values);

/// Makes the aggregates known to `database`; both ignore NULL and text:
///   SELECT median(d0), stdev(d0) FROM TrainingSet;
void RegisterColumnAggregates(sqlite3* database);

}  // namespace tslm5

#endif  // TSLM5_ENGINE_COLUMN_AGGREGATES_H_
