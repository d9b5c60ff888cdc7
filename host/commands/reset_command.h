#ifndef TSLM5_HOST_COMMANDS_RESET_COMMAND_H_
#define TSLM5_HOST_COMMANDS_RESET_COMMAND_H_

#include <string>

#include "host/program/invocation.h"

namespace tslm5::host {

struct ResetOptions {
  enum class Step { kReset, kUndo, kKeep };

  Step step = Step::kReset;
  std::string run;
  bool json = false;
};

/// `tslm5 reset`, `tslm5 undo` and `tslm5 keep`: the testing records become the training set, the
/// former one comes back, or it is let go.
void AddResetCommand(CommandSpec& app, Invocation& invocation);
void AddUndoCommand(CommandSpec& app, Invocation& invocation);
void AddKeepCommand(CommandSpec& app, Invocation& invocation);

/// Does the step in one transaction: records, labels, statistics, history. Raises `Failure`,
/// refused, when there is nothing to do.
void RunReset(const ResetOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_RESET_COMMAND_H_
