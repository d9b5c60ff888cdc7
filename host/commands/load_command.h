#ifndef TSLM5_HOST_COMMANDS_LOAD_COMMAND_H_
#define TSLM5_HOST_COMMANDS_LOAD_COMMAND_H_

#include "host/preparation/load_options.h"
#include "host/program/invocation.h"

namespace tslm5::host {

/// `tslm5 load`.
void AddLoadCommand(CommandSpec& app, Invocation& invocation);

void RunLoad(const LoadOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_LOAD_COMMAND_H_
