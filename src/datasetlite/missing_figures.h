#ifndef TSLM5_DATASETLITE_MISSING_FIGURES_H_
#define TSLM5_DATASETLITE_MISSING_FIGURES_H_

#include <cstdint>
#include <string_view>

#include "datasetlite/data_set_lite_state.h"

namespace tslm5 {

/// A figure of a column that replacements and normalisation go by, read afresh. `type` is
/// "Average", "StandardDeviation", "Minimum" or "Maximum".
/// The exact text "StandardDeviation" reads the deviation of the data as generated code knows it;
/// every other text, "standarddeviation" too, is a field of the figures kept for missing values
/// (meant: two tables). NULL reads as 0. Raises 100 for a column without figures, 41001 without a
/// run, and what the engine raises.
double MissingStatisticsValue(const DataSetLiteState& state, std::int32_t column,
                              std::string_view type);

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_MISSING_FIGURES_H_
