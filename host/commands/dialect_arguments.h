#ifndef TSLM5_HOST_COMMANDS_DIALECT_ARGUMENTS_H_
#define TSLM5_HOST_COMMANDS_DIALECT_ARGUMENTS_H_

#include <string>

#include "host/preparation/separators.h"
#include "host/program/command_spec.h"
#include "tslm5/contracts/delimited_reader.h"

namespace tslm5::host {

/// What a user says of the way in which a file is written, in the words of the command line.
struct DialectArguments {
  std::string separator = "auto";
  std::string decimal = "auto";
  std::string skip_lines;
  std::string encoding;
  bool labels = false;
  bool no_labels = false;
  bool no_quotes = false;
  bool fixed = false;
};

/// The options of `arguments`, which must live as long as the command.
void AddDialect(CommandSpec& command, DialectArguments& arguments);

/// What they mean to a reader. Raises `Failure`, wrong usage, for values that mean nothing and for
/// options that exclude each other.
DelimitedOptions DialectOf(const DialectArguments& arguments);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_DIALECT_ARGUMENTS_H_
