#include "host/commands/dialect_arguments.h"

#include <limits>

#include "host/program/common_options.h"
#include "host/program/failure.h"

namespace tslm5::host {
namespace {

/// What the contract's rules leave no choice of.
void RequireNothingElse(const DialectArguments& arguments) {
  if (arguments.labels || arguments.no_quotes || arguments.decimal != "auto" ||
      !arguments.skip_lines.empty() || !arguments.encoding.empty()) {
    Misuse(
        "--fixed reads by the contract's rules: --labels, --no-quotes, --decimal, --skip-lines and "
        "--encoding do not go with it");
  }
}

}  // namespace

void AddDialect(CommandSpec& command, DialectArguments& arguments) {
  AddSeparator(command, arguments.separator);
  command.AddFlag("--labels", arguments.labels, "the first line holds the labels, whatever it is");
  command.AddFlag("--no-labels", arguments.no_labels, "the first line is a record, not the labels");
  command
      .AddOption("--decimal", arguments.decimal,
                 "the decimal sign of the numbers (default auto: found out)")
      .OneOf({"auto", "point", "comma"})
      .ValueName("NAME");
  command.AddFlag("--no-quotes", arguments.no_quotes, "quotes are part of the text");
  command
      .AddOption("--skip-lines", arguments.skip_lines,
                 "lines to pass over before the table: a number, or auto")
      .ValueName("N");
  command
      .AddOption("--encoding", arguments.encoding,
                 "the encoding, windows-1250 say (default: found out)")
      .ValueName("NAME");
  command.AddFlag("--fixed", arguments.fixed,
                  "by the rules of the data check and its loader, to the letter: numbers alone");
}

DelimitedOptions DialectOf(const DialectArguments& arguments) {
  if (arguments.fixed) RequireNothingElse(arguments);
  if (arguments.labels && arguments.no_labels) {
    Misuse("--labels and --no-labels exclude each other");
  }
  DelimitedOptions options;
  if (const Separator* separator = FindSeparator(arguments.separator)) {
    options.separator = separator->character;
  }
  if (arguments.labels || arguments.no_labels) options.has_header = arguments.labels;
  if (arguments.decimal != "auto") options.decimal = arguments.decimal == "comma" ? ',' : '.';
  if (arguments.no_quotes) options.has_quotes = false;
  if (arguments.skip_lines == "auto") {
    options.skips_preamble = true;
  } else if (!arguments.skip_lines.empty()) {
    options.preamble_lines = ParseWhole("--skip-lines", arguments.skip_lines, 0,
                                        std::numeric_limits<std::int32_t>::max());
  }
  options.encoding = arguments.encoding;
  return options;
}

}  // namespace tslm5::host
