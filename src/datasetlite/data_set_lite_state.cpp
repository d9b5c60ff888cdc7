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

ColumnFlags ReadColumnFlags(IConnection& connection) {
  if (!connection.TableExists("DataSetColumn")) return {};
  ColumnFlags flags;
  flags.is_categorical = ReadFlags(connection, run_statement::kSelectNominalFlags);
  flags.has_missing = ReadFlags(connection, run_statement::kSelectMissingCounts);
  return flags;
}

void LoadColumnFlags(DataSetLiteState& state) {
  state.Take(ReadColumnFlags(*ConnectionOf(state)));
}

}  // namespace tslm5
