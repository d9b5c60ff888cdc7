#ifndef TSLM5_HOST_COMMANDS_EMBED_COMMAND_H_
#define TSLM5_HOST_COMMANDS_EMBED_COMMAND_H_

#include "host/preparation/embed_run.h"
#include "host/program/invocation.h"

namespace tslm5::host {

/// `tslm5 embed`.
void AddEmbedCommand(CommandSpec& app, Invocation& invocation);

void RunEmbed(const EmbedOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_EMBED_COMMAND_H_
