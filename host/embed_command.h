#ifndef TSLM5_HOST_EMBED_COMMAND_H_
#define TSLM5_HOST_EMBED_COMMAND_H_

#include <cstdint>
#include <string>

#include "host/invocation.h"

namespace tslm5::host {

struct EmbedOptions {
  std::string run;
  std::int32_t dimension = 1;        ///< the inputs of a record
  std::int32_t delay = 1;            ///< values from one input to the next
  std::int32_t testing_samples = 0;  ///< values at the end, `delay` apart
  bool json = false;
};

/// `tslm5 embed`.
void AddEmbedCommand(CommandSpec& app, Invocation& invocation);

void RunEmbed(const EmbedOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_EMBED_COMMAND_H_
