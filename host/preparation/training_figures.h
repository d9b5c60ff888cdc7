#ifndef TSLM5_HOST_PREPARATION_TRAINING_FIGURES_H_
#define TSLM5_HOST_PREPARATION_TRAINING_FIGURES_H_

#include <cstdint>
#include <vector>

#include "host/preparation/run_session.h"

namespace tslm5::host {

/// The numbers of a column's training records as they stood in the file, neither normalised nor
/// replaced, in ascending order. Cells with a missing-value token are left out.
std::vector<double> TrainingNumbers(const RunSession& session, std::int32_t column);

/// A figure of a column's training numbers, in the unit of the file: for `replacement_type` mean,
/// minimum or maximum the one that the run keeps for missing values; the median is that of the
/// numbers. Raises `Failure` where the column has no number.
double TrainingFigure(const RunSession& session, const Ref<IDataSet>& data_set, std::int32_t column,
                      std::int32_t type);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_TRAINING_FIGURES_H_
