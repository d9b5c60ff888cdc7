#ifndef TSLM5_HOST_COMMANDS_CHECK_COMMAND_H_
#define TSLM5_HOST_COMMANDS_CHECK_COMMAND_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "host/preparation/separators.h"
#include "host/program/invocation.h"
#include "tslm5/contracts/delimited_reader.h"

namespace tslm5::host {

struct CheckOptions {
  std::string file;
  const Separator* separator = nullptr;  ///< nullptr: to be found out
  bool has_labels = true;
  DelimitedOptions dialect;
  bool is_fixed = false;                         ///< by the contract's check, as it stands
  std::optional<std::int32_t> problem_category;  ///< none: by the response
  bool all = false;
  std::size_t most_problems = 20;  ///< of `all`, to be shown
  bool json = false;
};

/// `tslm5 check`.
void AddCheckCommand(CommandSpec& app, Invocation& invocation);

/// `kDone` for a file that is valid, else `kRefused`: that is the command's result, not a failure.
ExitCode RunCheck(const CheckOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_CHECK_COMMAND_H_
