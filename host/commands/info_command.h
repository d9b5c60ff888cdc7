#ifndef TSLM5_HOST_COMMANDS_INFO_COMMAND_H_
#define TSLM5_HOST_COMMANDS_INFO_COMMAND_H_

#include <string>

#include "host/program/invocation.h"

namespace tslm5::host {

struct InfoOptions {
  std::string run;
  bool json = false;
};

/// `tslm5 info`.
void AddInfoCommand(CommandSpec& app, Invocation& invocation);

void RunInfo(const InfoOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_INFO_COMMAND_H_
