#ifndef TSLM5_HOST_COMMANDS_PROGRAM_H_
#define TSLM5_HOST_COMMANDS_PROGRAM_H_

#include "host/program/failure.h"

namespace tslm5::host {

/// The whole program: reads the command line, runs the command, tells what went wrong.
ExitCode RunProgram(int argc, const char* const* argv);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_PROGRAM_H_
