#ifndef TSLM5_HOST_COMMANDS_MISSING_COMMAND_H_
#define TSLM5_HOST_COMMANDS_MISSING_COMMAND_H_

#include <optional>
#include <string>
#include <vector>

#include "host/program/invocation.h"

namespace tslm5::host {

struct MissingOptions {
  std::string run;
  std::optional<std::string> column;
  std::vector<std::string> replacements;  ///< as given
  bool applies = false;
  bool statistics = true;
  bool json = false;
};

/// `tslm5 missing`.
void AddMissingCommand(CommandSpec& app, Invocation& invocation);

void RunMissing(const MissingOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_MISSING_COMMAND_H_
