#include "datasetlite/query_dictionary.h"

#include "tslm5/engine/connection_service.h"

namespace tslm5 {
namespace {

/// The connection that the set's run lends; empty when there is no run or it lends none.
Ref<IConnection> OpenConnection(const DataSetLiteState& state) {
  const Ref<IConnectionService> service = Query<IConnectionService>(state.run.get());
  if (!service) return nullptr;
  const Variant connection = service->GetConnection();
  if (connection.GetKind() != Variant::Kind::kObject) return nullptr;
  return Query<IConnection>(connection.ToObject());
}

}  // namespace

std::shared_ptr<Dictionary> QueryToDictionary(const DataSetLiteState& state, std::string_view sql) {
  auto map = std::make_shared<Dictionary>();
  const Ref<IConnection> connection = OpenConnection(state);
  if (!connection) return map;
  const Ref<IDataReader> reader = connection->ExecuteReader(sql);
  while (reader->Read()) map->Add(reader->GetValue(0), reader->GetValue(1));
  reader->Close();
  return map;
}

}  // namespace tslm5
