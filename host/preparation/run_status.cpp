#include "host/preparation/run_status.h"

#include <unistd.h>

#include <cerrno>

#include "host/preparation/run_preparation.h"

namespace tslm5::host {
namespace {

RunStatus StatusOf(const RunSession& session) {
  RunStatus status;
  IConnection& connection = session.Connection();
  status.is_prepared = IsPrepared(session);
  status.has_training = connection.TableExists("TrainingSet");
  status.has_testing = connection.TableExists("TestingSet");
  if (!connection.TableExists("DataSetColumn")) return status;
  const Ref<IDataReader> reader =
      connection.ExecuteReader("SELECT OriginalLabel FROM DataSetColumn WHERE IsResponse = 1");
  if (reader->Read()) status.response = reader->GetString(0);
  reader->Close();
  return status;
}

}  // namespace

RunStatus ReadRunStatus(const std::string& path) {
  if (::access(path.c_str(), F_OK) != 0 && errno == ENOENT) return {};
  const RunSession session(path, RunOptions::Mode::kReadOnly);
  // One transaction of reading would hold the run's lock; the load looks again before it writes.
  return StatusOf(session);
}

void RequireStatus(const RunSession& session, const RunStatus& status) {
  if (!(StatusOf(session) == status)) throw OutdatedStatus{};
}

}  // namespace tslm5::host
