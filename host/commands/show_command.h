#ifndef TSLM5_HOST_COMMANDS_SHOW_COMMAND_H_
#define TSLM5_HOST_COMMANDS_SHOW_COMMAND_H_

#include <string>

#include "host/answers/record_options.h"
#include "host/program/invocation.h"
#include "host/program/set_names.h"

namespace tslm5::host {

struct ShowOptions {
  std::string run;
  const SetName* set = nullptr;
  RecordOptions records;
  bool originals = false;  ///< the untransformed texts too
};

/// `tslm5 show`.
void AddShowCommand(CommandSpec& app, Invocation& invocation);

void RunShow(const ShowOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_SHOW_COMMAND_H_
