#ifndef TSLM5_HOST_COMMANDS_ORIGINAL_COMMAND_H_
#define TSLM5_HOST_COMMANDS_ORIGINAL_COMMAND_H_

#include <cstdint>
#include <string>

#include "host/answers/record_options.h"
#include "host/program/invocation.h"
#include "tslm5/contracts/codes.h"

namespace tslm5::host {

struct OriginalOptions {
  std::string run;
  std::string set_name = "training";
  std::int32_t set_type = data_set_type::kTraining;  ///< 1, 2, 100 or 1000
  bool binarise = false;
  RecordOptions records;
};

/// `tslm5 original`.
void AddOriginalCommand(CommandSpec& app, Invocation& invocation);

void RunOriginal(const OriginalOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_ORIGINAL_COMMAND_H_
