#include "datasetlite/data_set_lite_state.h"

#include "storage/run_statements.h"
#include "storage/run_tables.h"

namespace tslm5 {
namespace {

std::map<std::int32_t, bool> ReadFlags(IConnection& connection, std::string_view statement) {
  std::map<std::int32_t, bool> flags;
  const Ref<IDataReader> reader = connection.ExecuteReader(statement);
  while (reader->Read()) flags[reader->GetInteger(0)] = reader->GetInteger(1) > 0;
  return flags;
}

}  // namespace

Ref<IConnection> ConnectionOf(const DataSetLiteState& state) {
  return ConnectionOf(state.run.get());
}

void LoadColumnFlags(DataSetLiteState& state) {
  const Ref<IConnection> connection = ConnectionOf(state);
  std::map<std::int32_t, bool> categorical;
  std::map<std::int32_t, bool> missing;
  if (connection->TableExists("DataSetColumn")) {
    categorical = ReadFlags(*connection, run_statement::kSelectNominalFlags);
    missing = ReadFlags(*connection, run_statement::kSelectMissingCounts);
  }
  state.is_categorical = std::move(categorical);
  state.has_missing = std::move(missing);
}

}  // namespace tslm5
