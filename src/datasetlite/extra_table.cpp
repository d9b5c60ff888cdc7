#include "datasetlite/extra_table.h"

#include "storage/run_statements.h"
#include "tslm5/contracts/codes.h"

namespace tslm5::ExtraTable {

void DropWithData(const DataSetLiteState& state, IConnection& connection) {
  const bool is_training = state.data_set_type == data_set_type::kTraining ||
                           state.data_set_type == data_set_type::kTimeSeriesTraining;
  if (!is_training || !state.extra_table) return;
  const std::string_view name = state.extra_table->Name();
  if (!connection.TableExists(name)) return;
  connection.Execute(FillStatement(run_statement::kDropTable, {{"<TABLE>", name}}));
}

}  // namespace tslm5::ExtraTable
