#include "datasetlite/time_series.h"

#include <exception>
#include <limits>
#include <string>
#include <utility>

#include "datasetlite/column_records.h"
#include "datasetlite/run_labels.h"
#include "storage/run_statements.h"
#include "support/embedding.h"
#include "support/label_test.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/platform/error.h"

namespace tslm5::TimeSeries {
namespace {

constexpr std::string_view kBackupTable = "TrainingSetBackup";

bool IsTraining(const DataSetLiteState& state) {
  return state.table && state.table->TypeCode() == data_set_type::kTraining;
}

/// A handle of its own on a table of the run, opened if the table is there. The set's own handle
/// serves the set until the transaction is kept.
Ref<TableLite> OpenTable(const DataSetLiteState& state, std::int32_t type) {
  Ref<TableLite> table = MakeObject<TableLite>();
  table->Load(Variant(state.run), type);
  return table;
}

Ref<IRecordSet> OpenBackup(IConnection& connection) {
  return connection.OpenRecordSet(
      FillStatement(run_statement::kSelectTable, {{"<TABLE>", kBackupTable}}));
}

void TakeTable(DataSetLiteState& state, const Ref<TableLite>& table, std::int32_t columns) {
  state.cached_columns = columns;
  state.table = table;
  state.statistics.Empty();
  state.is_dirty = true;
}

bool HasTestingTable(IConnection& connection) {
  try {
    connection.Execute(run_statement::kProbeTesting);
    return true;
  } catch (const Error&) {
    return false;
  }
}

void FoldTestingIn(DataSetLiteState& state, IConnection& connection) {
  Transaction transaction(connection);
  const std::int32_t columns = OpenTable(state, data_set_type::kTesting)->Columns();
  const Ref<TableLite> table = OpenTable(state, data_set_type::kTraining);
  table->ClearCopy();
  // A reset to records of another width left a backup that does not fit.
  if (OpenBackup(connection)->FieldCount() - 1 != table->Columns()) table->RemakeBackup();
  table->CreateCopy();
  table->Drop(false);
  table->Create(columns, data_set_type::kTraining, false);
  connection.Execute(run_statement::kCopyTestingToTraining);
  table->LoadRecordSet();
  transaction.Commit([&] { TakeTable(state, table, columns); });
}

}  // namespace

void LoadLabel(DataSetLiteState& state) {
  const Ref<IConnection> connection = ConnectionOf(state);
  const Ref<IDataReader> reader = connection->ExecuteReader(run_statement::kSelectSeriesLabel);
  if (!reader->Read()) return;
  state.labels = {PlainLabel(reader->GetString(0))};
}

void RenameTrainingLabels(DataSetLiteState& state) {
  const EmbeddingStep step = EmbeddingStep::Of(state.properties);
  if (step.dimension < 0 || step.delay_time < 0) {
    throw Error(error_number::kInvalidArgument, "RenameTrainingLabels",
                "The dimension and the delay of an embedding cannot be negative.");
  }
  if (step.Lag(0) > std::numeric_limits<std::int32_t>::max()) RaiseOverflow();
  const Ref<IConnection> connection = ConnectionOf(state);
  // No transaction: a caller who needs one puts it around this call.
  connection->Execute(run_statement::kDeleteColumns);
  connection->Execute(run_statement::kDeleteTrainingLabels);
  for (std::int32_t input = 0; input < step.dimension; ++input) {
    const std::string column = std::to_string(input);
    const std::string lag = std::to_string(step.Lag(input));
    for (const std::string_view statement :
         {run_statement::kInsertLagColumn, run_statement::kInsertLagLabel}) {
      connection->Execute(FillStatement(statement, {{"<COLUMN>", column}, {"<LAG>", lag}}));
    }
  }
  const std::string response = std::to_string(step.dimension);
  for (const std::string_view statement :
       {run_statement::kInsertResponseColumn, run_statement::kInsertResponseLabel}) {
    connection->Execute(FillStatement(statement, {{"<COLUMN>", response}}));
  }
  RunLabels::Load(state);
  LoadColumnFlags(state);
}

void SaveColumnData(DataSetLiteState& state) {
  const Ref<IConnection> connection = ConnectionOf(state);
  Transaction transaction(*connection);
  // Those that `Save` made of the same labels are no other columns.
  if (state.wrote_column_records && ColumnRecords::AreOfLabels(*connection)) {
    connection->Execute(run_statement::kDeleteColumns);
  }
  connection->Execute(run_statement::kFillColumnsFromLabels);
  connection->Execute(run_statement::kMarkLastColumnAsResponse);
  ColumnFlags flags = ReadColumnFlags(*connection);
  transaction.Commit([&] {
    state.Take(std::move(flags));
    state.wrote_column_records = false;
  });
}

bool Reset(DataSetLiteState& state) {
  if (!IsTraining(state)) return false;
  try {
    const Ref<IConnection> connection = ConnectionOf(state);
    if (!HasTestingTable(*connection)) return false;
    FoldTestingIn(state, *connection);
    return true;
  } catch (const std::exception& failure) {
    return IsStored(failure);
  }
}

void UndoReset(DataSetLiteState& state) {
  if (!IsTraining(state)) return;
  const Ref<IConnection> connection = ConnectionOf(state);
  if (!connection->TableExists(kBackupTable)) return;
  Transaction transaction(*connection);
  std::int32_t columns = 0;
  {
    const Ref<IRecordSet> backup = OpenBackup(*connection);
    if (backup->RecordCount() == 0) return;
    columns = backup->FieldCount() - 1;
  }
  const Ref<TableLite> table = OpenTable(state, data_set_type::kTraining);
  table->Create(columns, data_set_type::kTraining, false);  // drops the table, if it is there
  table->UndoCopy();
  table->LoadRecordSet();
  transaction.Commit([&] { TakeTable(state, table, columns); });
}

void ClearReset(DataSetLiteState& state) {
  if (IsTraining(state)) state.table->ClearCopy();
}

}  // namespace tslm5::TimeSeries
