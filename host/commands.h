#ifndef TSLM5_HOST_COMMANDS_H_
#define TSLM5_HOST_COMMANDS_H_

#include "host/options.h"
#include "host/output.h"

namespace tslm5::host {

// The commands. Each writes its result to `output` and raises `Failure`, or the component's
// `Error`, when it cannot do what was asked.

void RunLoad(const LoadOptions& options, Output& output);
void RunInfo(const InfoOptions& options, Output& output);
void RunShow(const ShowOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_H_
