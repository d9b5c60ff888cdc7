#ifndef TSLM5_HOST_RUN_HISTORY_H_
#define TSLM5_HOST_RUN_HISTORY_H_

#include <cstdint>
#include <optional>
#include <string>

#include "host/run_session.h"

namespace tslm5::host {

/// One thing done to a run.
struct HistoryEntry {
  std::string time;  ///< UTC, as in 2026-01-31T12:00:00Z; filled in by `WriteHistory`
  std::string command;
  std::int32_t set = 0;    ///< `data_set_type`
  std::string file;        ///< absolute path
  std::string parameters;  ///< JSON
};

/// Notes `entry` in the run's table `RunHistory`, which is made when it is missing.
void WriteHistory(const RunSession& session, const HistoryEntry& entry);

/// The last load of set `type`; nothing when the run does not tell.
std::optional<HistoryEntry> LastLoad(const RunSession& session, std::int32_t type);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_RUN_HISTORY_H_
