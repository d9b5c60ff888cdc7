#ifndef TSLM5_HOST_PREPARATION_RUN_HISTORY_H_
#define TSLM5_HOST_PREPARATION_RUN_HISTORY_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/preparation/run_session.h"

namespace tslm5::host {

/// Stands for the run itself among the words of a command line that repeats a step.
inline constexpr std::string_view kRunWord = "<run>";

/// One thing done to a run.
struct HistoryEntry {
  std::string time;  ///< UTC, as in 2026-01-31T12:00:00Z; filled in by `WriteHistory`
  std::string command;
  std::int32_t set = 0;    ///< `data_set_type`; 0 for none, 100 for training and testing set
  std::string file;        ///< absolute path
  std::string parameters;  ///< a JSON object
  /// The command line that does it again: its words behind the program's name, paths absolute,
  /// `kRunWord` in the place of the run.
  std::vector<std::string> words;
};

/// Appends `entry` to the run's history. Every command that changes a run calls it inside its
/// transaction.
void WriteHistory(const RunSession& session, const HistoryEntry& entry);

/// All that was done to the run, the first thing first. `words` is empty where none were noted.
std::vector<HistoryEntry> ReadHistory(const RunSession& session);

/// The last load of set `type`, its file the one that set came from; nothing when the run does not
/// tell.
std::optional<HistoryEntry> LastLoad(const RunSession& session, std::int32_t type);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_RUN_HISTORY_H_
