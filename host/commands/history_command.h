#ifndef TSLM5_HOST_COMMANDS_HISTORY_COMMAND_H_
#define TSLM5_HOST_COMMANDS_HISTORY_COMMAND_H_

#include <string>

#include "host/program/invocation.h"

namespace tslm5::host {

struct HistoryOptions {
  std::string run;
  bool json = false;
};

/// `tslm5 history`.
void AddHistoryCommand(CommandSpec& app, Invocation& invocation);

void RunHistory(const HistoryOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_HISTORY_COMMAND_H_
