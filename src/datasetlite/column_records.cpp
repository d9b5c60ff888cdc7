#include "datasetlite/column_records.h"

#include "storage/run_statements.h"
#include "storage/sqlite_helpers.h"
#include "storage/table_names.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/engine/data_reader.h"

namespace tslm5::ColumnRecords {
namespace {

std::size_t TrainingColumns(IConnection& connection) {
  const std::string_view table = TableName(data_set_type::kTraining);
  if (!connection.TableExists(table)) return 0;
  const Ref<IDataReader> reader =
      connection.ExecuteReader(FillStatement(run_statement::kProbeTable, {{"<TABLE>", table}}));
  return static_cast<std::size_t>(reader->FieldCount()) - 1;  // less the key
}

}  // namespace

bool AreOfLabels(IConnection& connection) {
  return connection.TableExists("DataSetColumn") && connection.TableExists("DataSetLabels") &&
         SqliteHelpers::QueryInteger(connection, run_statement::kCountTellingColumns) == 0;
}

bool Renew(IConnection& connection, std::size_t labels) {
  connection.Execute(run_statement::kDeleteColumns);
  if (labels == 0 || labels != TrainingColumns(connection)) return false;
  connection.Execute(run_statement::kFillColumnsFromLabels);
  connection.Execute(run_statement::kMarkLastColumnAsResponse);
  return true;
}

}  // namespace tslm5::ColumnRecords
