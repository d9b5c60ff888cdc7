#ifndef TSLM5_HOST_COMMAND_LINE_H_
#define TSLM5_HOST_COMMAND_LINE_H_

#include "host/invocation.h"

namespace tslm5::host {

/// Gives `program` its name, its help and all of its commands: the one table that the command line,
/// the manual page and the completions are made from.
void DescribeProgram(CLI::App& program, Invocation& invocation);

/// What the command line asks for: a command, or the text of the help or the version (whose options
/// are that text, a `std::string`). Raises `Failure`, wrong usage.
Invocation ParseCommandLine(int argc, const char* const* argv);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMAND_LINE_H_
