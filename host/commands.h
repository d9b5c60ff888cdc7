#ifndef TSLM5_HOST_COMMANDS_H_
#define TSLM5_HOST_COMMANDS_H_

#include "host/failure.h"
#include "host/options.h"
#include "host/output.h"

namespace tslm5::host {

// The commands. Each writes its result to `output` and raises `Failure`, or the component's
// `Error`, when it cannot do what was asked.

/// `kDone` for a file that is valid, else `kRefused`: that is the command's result, not a failure.
ExitCode RunCheck(const CheckOptions& options, Output& output);
void RunLoad(const LoadOptions& options, Output& output);
void RunInfo(const InfoOptions& options, Output& output);
void RunShow(const ShowOptions& options, Output& output);
void RunStats(const StatsOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_H_
