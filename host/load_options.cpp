#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "host/common_options.h"
#include "host/load_command.h"
#include "host/run_history.h"

namespace tslm5::host {
namespace {

constexpr const char* kLoadExamples =
    "Examples:\n"
    "  tslm5 load measurements.csv --run flowers.db\n"
    "  tslm5 load later.csv --run flowers.db --set testing\n"
    "  tslm5 load plain.txt --run plain.db --separator space --no-labels --json\n"
    "\n"
    "One record a line; the last column is the response. A file that cannot be loaded leaves the\n"
    "run as it was.\n";

struct Words {
  std::string file;
  std::string run;
  std::string set = "training";
  std::string separator = "auto";
  std::string layout = "rows";
  bool no_labels = false;
  bool no_check = false;
  bool no_statistics = false;
  bool json = false;
};

LoadOptions MakeOptions(const Words& words) {
  LoadOptions options;
  options.file = words.file;
  options.run = RunName(words.run);
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

std::string AbsolutePath(const std::string& path) {
  return std::filesystem::absolute(path).lexically_normal().string();
}

}  // namespace

std::vector<std::string> LoadWords(const LoadOptions& options, const Separator& separator) {
  std::vector<std::string> words = {"load", AbsolutePath(options.file), "--run",
                                    std::string(kRunWord)};
  words.insert(words.end(), {"--set", options.set->name});
  words.insert(words.end(), {"--separator", separator.name});
  if (!options.has_labels) words.emplace_back("--no-labels");
  if (options.layout == layout_code::kRecordsInColumns) {
    words.insert(words.end(), {"--layout", "columns"});
  }
  if (!options.checks) words.emplace_back("--no-check");
  if (!options.statistics) words.emplace_back("--no-stats");
  return words;
}

void AddLoadCommand(CLI::App& app, Invocation& invocation) {
  CLI::App& load = *app.add_subcommand("load", "Load a delimited text file into a run");
  const auto words = std::make_shared<Words>();
  load.add_option("FILE", words->file, "the text file")->required();
  load.add_option("--run", words->run, "the run database; made when it is missing")
      ->required()
      ->type_name("RUN.db");
  AddDataSet(load, words->set, "the set to fill");
  AddSeparator(load, words->separator);
  load.add_flag("--no-labels", words->no_labels, "the first line is a record, not the labels");
  load.add_option("--layout", words->layout, "what a line holds (default rows: a record)")
      ->check(CLI::IsMember({"rows", "columns"}))
      ->type_name("NAME");
  load.add_flag("--no-check", words->no_check, "load without the data check");
  load.add_flag("--no-stats", words->no_statistics, "do not compute the statistics of the columns");
  AddJson(load, words->json);
  load.footer(kLoadExamples);
  WhenChosen(
      load, invocation, [words] { return MakeOptions(*words); }, RunLoad);
}

}  // namespace tslm5::host
