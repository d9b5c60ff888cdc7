#include "host/options.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>

#include "host/failure.h"
#include "host/shown_text.h"

namespace tslm5::host {
namespace {

constexpr const char* kExamples =
    "Examples:\n"
    "  tslm5 check prices.csv\n"
    "  tslm5 load prices.csv --run prices.db\n"
    "  tslm5 info prices.db\n"
    "  tslm5 show prices.db --rows 1:5\n"
    "  tslm5 stats prices.db\n"
    "\n"
    "Exit codes: 0 done, 1 the data were refused, 2 wrong usage, 3 file or database trouble,\n"
    "130 interrupted. `tslm5 COMMAND --help` tells the options of a command.\n";

constexpr const char* kLoadExamples =
    "Examples:\n"
    "  tslm5 load measurements.csv --run flowers.db\n"
    "  tslm5 load later.csv --run flowers.db --set testing\n"
    "  tslm5 load plain.txt --run plain.db --separator space --no-labels --json\n"
    "\n"
    "One record a line; the last column is the response. A file that cannot be loaded leaves the\n"
    "run as it was.\n";

constexpr const char* kCheckExamples =
    "Examples:\n"
    "  tslm5 check measurements.csv\n"
    "  tslm5 check measurements.csv --all --max 100\n"
    "  tslm5 check answers.csv --separator semicolon --problem classification --json\n"
    "\n"
    "Exit codes: 0 the file is valid, 1 it has problems, 2 wrong usage, 3 file trouble.\n";

constexpr const char* kInfoExamples =
    "Examples:\n"
    "  tslm5 info flowers.db\n"
    "  tslm5 info flowers.db --json\n";

constexpr const char* kShowExamples =
    "Examples:\n"
    "  tslm5 show flowers.db --rows 1:10\n"
    "  tslm5 show flowers.db --columns petal_length,species --format csv\n"
    "  tslm5 show flowers.db --set testing --rows 101: --json\n"
    "\n"
    "A table shows the first 20 rows unless --rows asks for others; csv and json show all.\n";

constexpr const char* kStatsExamples =
    "Examples:\n"
    "  tslm5 stats flowers.db\n"
    "  tslm5 stats flowers.db --set testing --by-class --json\n"
    "\n"
    "Figures by class are kept for a response of at most two values.\n";

/// What CLI11 fills before it is turned into the options of a command.
struct Words {
  std::string file;
  std::string run;
  std::string set = "training";
  std::string separator = "auto";
  std::string layout = "rows";
  std::string rows;
  std::vector<std::string> columns;
  std::string format;
  std::string problem = "regression";
  std::size_t most_problems = 20;
  bool no_labels = false;
  bool no_check = false;
  bool no_statistics = false;
  bool by_class = false;
  bool all = false;
  bool json = false;
};

constexpr const char* kProblems[] = {"regression", "classification", "timeseries", "binary"};

std::int32_t ProblemCategory(const std::string& name) {
  if (name == "classification") return problem_category::kClassification;
  if (name == "timeseries") return problem_category::kTimeSeries;
  if (name == "binary") return problem_category::kBinary;
  return problem_category::kRegression;
}

void AddSeparator(CLI::App& command, Words& words) {
  command
      .add_option("--separator", words.separator,
                  "what stands between fields (default auto: found out)")
      ->check(CLI::IsMember({"auto", "none", "space", "tab", "comma", "semicolon", "bar"}))
      ->type_name("NAME");
}

void AddCheck(CLI::App& app, Words& words) {
  CLI::App* check = app.add_subcommand("check", "Check a delimited text file before it is loaded");
  check->add_option("FILE", words.file, "the text file")->required();
  AddSeparator(*check, words);
  check->add_flag("--no-labels", words.no_labels, "the first line is a record, not the labels");
  check
      ->add_option(
          "--problem", words.problem,
          "what the data are for (default regression); a classified response must be there "
          "in every record")
      ->check(CLI::IsMember(std::vector<std::string>(std::begin(kProblems), std::end(kProblems))))
      ->type_name("NAME");
  CLI::Option* all = check->add_flag("--all", words.all, "every problem, not the first alone");
  check->add_option("--max", words.most_problems, "how many problems to show (default 20)")
      ->check(CLI::NonNegativeNumber)
      ->needs(all)
      ->type_name("N");
  check->add_flag("--json", words.json, "print one JSON object");
  check->footer(kCheckExamples);
}

void AddLoad(CLI::App& app, Words& words) {
  CLI::App* load = app.add_subcommand("load", "Load a delimited text file into a run");
  load->add_option("FILE", words.file, "the text file")->required();
  load->add_option("--run", words.run, "the run database; made when it is missing")
      ->required()
      ->type_name("RUN.db");
  load->add_option("--set", words.set, "the set to fill (default training)")
      ->check(CLI::IsMember({"training", "testing"}))
      ->type_name("SET");
  AddSeparator(*load, words);
  load->add_flag("--no-labels", words.no_labels, "the first line is a record, not the labels");
  load->add_option("--layout", words.layout, "what a line holds (default rows: a record)")
      ->check(CLI::IsMember({"rows", "columns"}))
      ->type_name("NAME");
  load->add_flag("--no-check", words.no_check, "load without the data check");
  load->add_flag("--no-stats", words.no_statistics, "do not compute the statistics of the columns");
  load->add_flag("--json", words.json, "print one JSON object");
  load->footer(kLoadExamples);
}

void AddInfo(CLI::App& app, Words& words) {
  CLI::App* info = app.add_subcommand("info", "Tell what a run holds");
  info->add_option("RUN", words.run, "the run database")->required();
  info->add_flag("--json", words.json, "print one JSON object");
  info->footer(kInfoExamples);
}

void AddShow(CLI::App& app, Words& words) {
  CLI::App* show = app.add_subcommand("show", "Print the records of a set");
  show->add_option("RUN", words.run, "the run database")->required();
  std::vector<std::string> names;
  for (const SetName& set : kSets) names.emplace_back(set.name);
  show->add_option("--set", words.set, "the set to print (default training)")
      ->check(CLI::IsMember(names))
      ->type_name("SET");
  show->add_option("--rows", words.rows, "A:B, A:, :B or A; counted from 1, both ends included")
      ->type_name("RANGE");
  show->add_option("--columns", words.columns, "labels, or d0, d1, ...; separated by commas")
      ->type_name("LABEL,...")
      ->allow_extra_args(false);
  CLI::Option* format = show->add_option("--format", words.format, "how to print (default table)")
                            ->check(CLI::IsMember({"table", "csv", "json"}))
                            ->type_name("NAME");
  show->add_flag("--json", words.json, "the same as --format json")->excludes(format);
  show->footer(kShowExamples);
}

void AddStats(CLI::App& app, Words& words) {
  CLI::App* stats = app.add_subcommand("stats", "Print the statistics of a set's columns");
  stats->add_option("RUN", words.run, "the run database")->required();
  stats->add_option("--set", words.set, "the set to describe (default training)")
      ->check(CLI::IsMember({"training", "testing"}))
      ->type_name("SET");
  stats->add_flag("--by-class", words.by_class, "the same for each class of the response");
  stats->add_flag("--json", words.json, "print one JSON object");
  stats->footer(kStatsExamples);
}

void RequireRunName(const std::string& run) {
  if (!run.empty() && !run.starts_with(':') && !run.starts_with("file:")) return;
  throw Failure(
      ExitCode::kUsage,
      fmt::format("{} names no file; the path of a run database was expected", Quoted(run)));
}

LoadOptions MakeLoad(const Words& words) {
  LoadOptions options;
  options.file = words.file;
  options.run = words.run;
  options.set = FindSet(words.set);
  options.separator = FindSeparator(words.separator);
  options.has_labels = !words.no_labels;
  options.json = words.json;
  options.checks = !words.no_check;
  options.statistics = !words.no_statistics;
  if (words.layout == "columns") options.layout = layout_code::kRecordsInColumns;
  if (options.layout == layout_code::kRecordsInColumns && options.separator != nullptr &&
      options.separator->code == separator_code::kNone) {
    throw Failure(ExitCode::kUsage, "--layout columns needs a separator between the records");
  }
  return options;
}

CheckOptions MakeCheck(const Words& words) {
  CheckOptions options;
  options.file = words.file;
  options.separator = FindSeparator(words.separator);
  options.has_labels = !words.no_labels;
  options.problem_category = ProblemCategory(words.problem);
  options.all = words.all;
  options.most_problems = words.most_problems;
  options.json = words.json;
  return options;
}

ShowOptions MakeShow(const CLI::App& show, const Words& words) {
  ShowOptions options;
  options.run = words.run;
  options.set = FindSet(words.set);
  if (show.count("--rows") > 0) options.rows = ParseRowRange(words.rows);
  options.columns = words.columns;
  if (words.format == "csv") options.format = ShowOptions::Format::kCsv;
  if (words.format == "json" || words.json) options.format = ShowOptions::Format::kJson;
  return options;
}

/// A first word that is no command would only be called an excess one.
void RequireKnownCommand(CLI::App& app, int argc, const char* const* argv) {
  if (argc < 2 || *argv[1] == '-') return;
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands({})) names.push_back(command->get_name());
  if (std::find(names.begin(), names.end(), argv[1]) != names.end()) return;
  throw Failure(ExitCode::kUsage,
                fmt::format("there is no command {}; the commands are {} (see tslm5 --help)",
                            Quoted(argv[1]), fmt::join(names, ", ")));
}

}  // namespace

Invocation ParseCommandLine(int argc, const char* const* argv) {
  CLI::App app("Checks delimited data, loads it into a run database and shows what it holds.",
               "tslm5");
  Words words;
  app.set_version_flag("--version", "tslm5 " TSLM5_VERSION);
  app.require_subcommand(1);
  app.footer(kExamples);
  AddCheck(app, words);
  AddLoad(app, words);
  AddInfo(app, words);
  AddShow(app, words);
  AddStats(app, words);
  RequireKnownCommand(app, argc, argv);
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    return HelpText{app.help()};
  } catch (const CLI::CallForVersion& version) {
    return HelpText{fmt::format("{}\n", version.what())};
  } catch (const CLI::ParseError& error) {
    const auto chosen = app.get_subcommands();
    const std::string command = chosen.empty() ? "" : chosen.front()->get_name() + " ";
    throw Failure(ExitCode::kUsage,
                  fmt::format("{} (see tslm5 {}--help)", Escaped(error.what()), command));
  }
  const CLI::App* command = app.get_subcommands().front();
  if (command->get_name() == "check") return MakeCheck(words);
  RequireRunName(words.run);
  if (command->get_name() == "load") return MakeLoad(words);
  if (command->get_name() == "info") return InfoOptions{words.run, words.json};
  if (command->get_name() == "stats") {
    return StatsOptions{words.run, FindSet(words.set), words.by_class, words.json};
  }
  return MakeShow(*command, words);
}

}  // namespace tslm5::host
