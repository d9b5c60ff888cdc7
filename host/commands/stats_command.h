#ifndef TSLM5_HOST_COMMANDS_STATS_COMMAND_H_
#define TSLM5_HOST_COMMANDS_STATS_COMMAND_H_

#include <string>

#include "host/program/invocation.h"
#include "host/program/set_names.h"

namespace tslm5::host {

struct StatsOptions {
  std::string run;
  const SetName* set = nullptr;
  bool by_class = false;
  bool json = false;
};

/// `tslm5 stats`.
void AddStatsCommand(CommandSpec& app, Invocation& invocation);

void RunStats(const StatsOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_STATS_COMMAND_H_
