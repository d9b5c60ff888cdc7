#ifndef TSLM5_HOST_COMMANDS_EMBED_COMMAND_H_
#define TSLM5_HOST_COMMANDS_EMBED_COMMAND_H_

#include <string>

#include "host/program/invocation.h"
#include "tslm5/preparation/run_embedding.h"

namespace tslm5::host {

struct EmbedOptions {
  std::string run;
  EmbeddingOptions embedding;
  bool json = false;
};

/// `tslm5 embed`.
void AddEmbedCommand(CommandSpec& app, Invocation& invocation);

void RunEmbed(const EmbedOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_EMBED_COMMAND_H_
