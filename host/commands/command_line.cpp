#include "host/commands/command_line.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string>
#include <vector>

#include "host/commands/categories_command.h"
#include "host/commands/check_command.h"
#include "host/commands/components_command.h"
#include "host/commands/embed_command.h"
#include "host/commands/history_command.h"
#include "host/commands/info_command.h"
#include "host/commands/load_command.h"
#include "host/commands/missing_command.h"
#include "host/commands/original_command.h"
#include "host/commands/plot_command.h"
#include "host/commands/report_command.h"
#include "host/commands/reset_command.h"
#include "host/commands/show_command.h"
#include "host/commands/stats_command.h"
#include "host/program/failure.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

// One line a command, in the order in which the help tells them.
constexpr AddCommand kCommands[] = {
    // clang-format off
    AddCheckCommand,
    AddLoadCommand,
    AddInfoCommand,
    AddShowCommand,
    AddOriginalCommand,
    AddStatsCommand,
    AddPlotCommand,
    AddCategoriesCommand,
    AddMissingCommand,
    AddEmbedCommand,
    AddResetCommand,
    AddUndoCommand,
    AddKeepCommand,
    AddHistoryCommand,
    AddReportCommand,
    AddRegisterCommand,
    AddUnregisterCommand,
    AddComponentsCommand,
    // clang-format on
};

constexpr const char* kExamples =
    "Examples:\n"
    "  tslm5 check prices.csv\n"
    "  tslm5 load prices.csv --run prices.db\n"
    "  tslm5 info prices.db\n"
    "  tslm5 show prices.db --rows 1:5\n"
    "  tslm5 stats prices.db\n"
    "  tslm5 report prices.db -o prices.html\n"
    "\n"
    "Exit codes: 0 done, 1 the data were refused, 2 wrong usage, 3 file or database trouble,\n"
    "130 interrupted. `tslm5 COMMAND --help` tells the options of a command.\n";

/// A first word that is no command would only be called an excess one.
void RequireKnownCommand(CLI::App& app, int argc, const char* const* argv) {
  if (argc < 2 || *argv[1] == '-') return;
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands({})) names.push_back(command->get_name());
  if (std::find(names.begin(), names.end(), argv[1]) != names.end()) return;
  Misuse(fmt::format("there is no command {}; the commands are {} (see tslm5 --help)",
                     Quoted(argv[1]), fmt::join(names, ", ")));
}

Invocation Telling(const std::string& text) {
  Invocation invocation;
  invocation.options = text;
  invocation.run = [text](Output& output) {
    output.Write(text);
    return ExitCode::kDone;
  };
  return invocation;
}

/// Gives `program` its name, its help and all of its commands.
void BuildProgram(CLI::App& program, Invocation& invocation) {
  program.name("tslm5");
  program.description(
      "Checks delimited data, loads it into a run database and shows what it holds.");
  program.set_version_flag("--version", "tslm5 " TSLM5_VERSION);
  program.require_subcommand(1);
  program.footer(kExamples);
  CommandSpec spec(program);
  for (const AddCommand add : kCommands) add(spec, invocation);
}

}  // namespace

std::shared_ptr<const CLI::App> DescribeProgram() {
  const auto program = std::make_shared<CLI::App>();
  Invocation invocation;  // filled only where a command line is parsed
  BuildProgram(*program, invocation);
  return program;
}

Invocation ParseCommandLine(int argc, const char* const* argv) {
  CLI::App app;
  Invocation invocation;
  BuildProgram(app, invocation);
  RequireKnownCommand(app, argc, argv);
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    return Telling(app.help());
  } catch (const CLI::CallForVersion& version) {
    return Telling(fmt::format("{}\n", version.what()));
  } catch (const CLI::ParseError& error) {
    const auto chosen = app.get_subcommands();
    const std::string command = chosen.empty() ? "" : chosen.front()->get_name() + " ";
    Misuse(fmt::format("{} (see tslm5 {}--help)", Escaped(error.what()), command));
  }
  return invocation;
}

}  // namespace tslm5::host
