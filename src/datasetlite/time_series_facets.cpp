#include "datasetlite/time_series_facets.h"

#include "datasetlite/missing_figures.h"
#include "platform/only_errors.h"

namespace tslm5 {

double DataSetLiteFacet::GetMissingStatisticsValue(std::int32_t pColumnIndex,
                                                   std::string_view pType) {
  return OnlyErrors([&] { return MissingStatisticsValue(state_, pColumnIndex, pType); });
}

}  // namespace tslm5
