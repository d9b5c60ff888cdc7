#include "host/preparation/run_status.h"

#include <unistd.h>

#include <cerrno>

#include "host/preparation/run_preparation.h"

namespace tslm5::host {
namespace {

RunStatus StatusOf(const RunSession& session) {
  RunStatus status;
  status.is_prepared = IsPrepared(session);
  status.has_training = session.Sets().HasSet(data_set_type::kTraining);
  status.has_testing = session.Sets().HasSet(data_set_type::kTesting);
  for (const RunColumn& column : ColumnsOf(session)) {
    if (column.is_response) status.response = column.label;
  }
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
