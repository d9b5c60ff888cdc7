#include "datasetlite/missing_figures.h"

#include <string>

#include "storage/run_statements.h"
#include "storage/sqlite_helpers.h"

namespace tslm5 {

double MissingStatisticsValue(const DataSetLiteState& state, std::int32_t column,
                              std::string_view type) {
  const std::string_view statement = type == "StandardDeviation"
                                         ? run_statement::kSelectDeviationForCode
                                         : run_statement::kSelectFigureForMissing;
  return SqliteHelpers::QueryDouble(
      *ConnectionOf(state),
      FillStatement(statement, {{"<FIGURE>", type}, {"<COLUMN>", std::to_string(column)}}));
}

}  // namespace tslm5
