#ifndef TSLM5_HOST_COMMANDS_COMMAND_LINE_H_
#define TSLM5_HOST_COMMANDS_COMMAND_LINE_H_

#include <memory>

#include "host/program/invocation.h"

namespace tslm5::host {

/// The program with its name, its help and all of its commands, as the command line reads them:
/// what the manual page and the completions are made from.
std::shared_ptr<const CLI::App> DescribeProgram();

/// What the command line asks for: a command, or the text of the help or the version (whose options
/// are that text, a `std::string`). Raises `Failure`, wrong usage.
Invocation ParseCommandLine(int argc, const char* const* argv);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_COMMAND_LINE_H_
