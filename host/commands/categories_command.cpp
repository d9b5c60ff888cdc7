#include "host/commands/categories_command.h"

#include <fmt/format.h>

#include <memory>

#include "host/answers/category_report.h"
#include "host/preparation/label_list.h"
#include "host/preparation/recoding.h"
#include "host/preparation/run_change.h"
#include "host/preparation/run_history.h"
#include "host/preparation/run_metadata.h"
#include "host/program/common_options.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/json_text.h"
#include "host/program/shown_text.h"
#include "host/program/terminal.h"
#include "tslm5/contracts/nominal_metadata.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

constexpr const char* kCategoriesExamples =
    "Examples:\n"
    "  tslm5 categories flowers.db\n"
    "  tslm5 categories flowers.db color --assign red=5 --assign 'dark blue=7'\n"
    "  tslm5 categories flowers.db species --merge versicolor,virginica=0 --encode\n"
    "\n"
    "VALUE ends at the last =. --merge splits at every comma; a value that holds one is given by\n"
    "--assign, and equal numbers merge. Numbers have a point. --check and --encode ask whether "
    "the\n"
    "response, after the changes, can be a binary one; a refusal leaves the run as it was. The\n"
    "whole command is done or, on a failure, nothing of it.\n";

/// What stands at the beginning of a command and is needed throughout.
struct Scene {
  const RunSession& session;
  Ref<IDataSet> data_set;
  std::vector<std::string> labels;
  std::optional<std::int32_t> column;
};

Scene SetScene(const RunSession& session, const CategoriesOptions& options) {
  Scene scene{session, RequireTrainingSet(session, options.run), {}, {}};
  scene.labels = LabelsOf(*scene.data_set);
  if (options.column) scene.column = RequireColumn("COLUMN", *options.column, scene.labels);
  return scene;
}

CodedColumn RequireCategories(const Scene& scene, std::int32_t index) {
  CodedColumn column = ReadCodedColumn(scene.session, scene.data_set, index);
  if (!column.categories.empty()) return column;
  std::vector<std::string> labels;
  for (const CodedColumn& one : ReadCodedColumns(scene.session, scene.data_set))
    labels.push_back(one.label);
  Misuse(fmt::format("{} has no categories; the columns that have some: {}",
                     ColumnTitle(index, column.label),
                     labels.empty() ? "none" : LabelList(labels)));
}

ResponseCheck CheckResponse(const Scene& scene) {
  ResponseCheck check;
  const auto metadata = scene.data_set.As<INominalDataSetMetadata>();
  check.is_fit = metadata->AnalyseResponseCategories(check.message);
  return check;
}

CategoryReport MakeReport(const Scene& scene, const CategoriesOptions& options) {
  CategoryReport report;
  if (scene.column) {
    report.columns.push_back(RequireCategories(scene, *scene.column));
  } else if (options.ConcernsResponse()) {
    report.columns.push_back(
        ReadCodedColumn(scene.session, scene.data_set, scene.data_set->TerminalCount()));
  } else {
    report.columns = ReadCodedColumns(scene.session, scene.data_set);
    report.is_whole = false;
  }
  if (options.checks || options.encodes) report.check = CheckResponse(scene);
  return report;
}

void Note(const Scene& scene, const CategoriesOptions& options) {
  HistoryEntry entry;
  entry.command = "categories";
  entry.words = {"categories", std::string(kRunWord)};
  nlohmann::ordered_json parameters = nlohmann::ordered_json::object();
  if (scene.column) {
    entry.words.push_back(ColumnWord(*scene.column, scene.labels));
    parameters["column"] = scene.labels[static_cast<std::size_t>(*scene.column)];
  }
  for (const CodeChange& change : options.codes) {
    entry.words.push_back(fmt::format("--assign={}={}", change.value, NumberText(change.code)));
    parameters["codes"][change.value] = change.code;
  }
  if (options.checks) entry.words.emplace_back("--check");
  if (options.encodes) {
    entry.words.emplace_back("--encode");
    parameters["encode"] = true;
  }
  if (options.positive_class) {
    entry.words.push_back("--positive-class=" + *options.positive_class);
    parameters["positiveClass"] = *options.positive_class;
  }
  if (!options.statistics) entry.words.emplace_back("--no-stats");
  entry.parameters = JsonText(parameters);
  WriteHistory(scene.session, entry);
}

void Change(const Scene& scene, const CategoriesOptions& options) {
  if (scene.column && !options.codes.empty()) {
    const CodedColumn before = RequireCategories(scene, *scene.column);
    Recode(scene.session, scene.data_set, before, options.codes);
    const CodedColumn after = ReadCodedColumn(scene.session, scene.data_set, *scene.column);
    for (const std::string& warning : WarningsOfFilledGaps(scene.data_set, before, after)) {
      Warn(warning);
    }
  }
  const std::int32_t response = scene.data_set->TerminalCount();
  if (options.checks || options.encodes) {
    const ResponseCheck check = CheckResponse(scene);
    if (!check.is_fit) Refuse(Escaped(check.message));
  }
  StopIfInterrupted();
  if (options.encodes) {
    EncodeResponse(scene.session, scene.data_set,
                   ReadCodedColumn(scene.session, scene.data_set, response));
  }
  if (options.positive_class) {
    NamePositiveClass(scene.session, scene.data_set, RequireCategories(scene, response),
                      *options.positive_class);
  }
  if (options.codes.empty() && !options.encodes) return;  // no cell has changed
  RenewStatistics(scene.session, options.statistics);
}

}  // namespace

ExitCode RunCategories(const CategoriesOptions& options, Output& output) {
  const bool changes = options.Changes();
  const RunSession session(options.run,
                           changes ? RunOptions::Mode::kReadWrite : RunOptions::Mode::kReadOnly);
  CategoryReport report;
  {
    std::optional<Transaction> transaction;
    if (changes) transaction.emplace(session.Connection());
    const Scene scene = SetScene(session, options);
    if (changes) Change(scene, options);
    report = MakeReport(scene, options);
    if (changes) {
      Note(scene, options);
      StopIfInterrupted();
      CommitChange(session, *transaction);
      output.NoteDone("the run is changed");
    }
  }
  output.Write(options.json ? CategoryJson(report) : CategoryText(report));
  return report.check && !report.check->is_fit ? ExitCode::kRefused : ExitCode::kDone;
}

void AddCategoriesCommand(CommandSpec& app, Invocation& invocation) {
  struct Words {
    CategoriesOptions options;
    std::string column;
    std::vector<std::string> assigned;
    std::vector<std::string> formerly_assigned;
    std::vector<std::string> merges;
    std::string positive_class;
    bool no_statistics = false;
  };
  CommandSpec command = app.AddCommand("categories", "Show a run's categories and recode them");
  const auto words = std::make_shared<Words>();
  AddRun(command, words->options.run);
  const OptionSpec column =
      command.AddOption("COLUMN", words->column, "a label, or d0, d1, ... (default: all)");
  command.AddOption("--assign", words->assigned, "give a category a code")
      .ValueName("VALUE=NUMBER");
  // The option's former name, which the histories of older runs hold.
  command.AddOption("--set", words->formerly_assigned, "give a category a code").Hidden();
  command.AddOption("--merge", words->merges, "give several categories one code")
      .ValueName("VALUE,VALUE=NUMBER");
  command.AddFlag("--check", words->options.checks, "ask whether the response can be a binary one");
  command.AddFlag("--encode", words->options.encodes, "write the response as a binary one");
  const OptionSpec positive =
      command
          .AddOption("--positive-class", words->positive_class,
                     "the class of the response that is the positive one; no record changes")
          .ValueName("TEXT");
  command.AddFlag("--no-stats", words->no_statistics,
                  "do not compute the statistics of the columns anew");
  AddJson(command, words->options.json);
  command.Footer(kCategoriesExamples);
  const auto make = [words, column, positive] {
    CategoriesOptions options = words->options;
    options.run = RunName(options.run);
    options.statistics = !words->no_statistics;
    if (column.IsGiven()) options.column = words->column;
    if (positive.IsGiven()) options.positive_class = words->positive_class;
    for (const auto* assigned : {&words->assigned, &words->formerly_assigned}) {
      for (const std::string& word : *assigned) {
        AddCodeChange(ParseCodeChange(word), options.codes);
      }
    }
    for (const std::string& word : words->merges) {
      for (CodeChange& change : ParseMerge(word)) AddCodeChange(change, options.codes);
    }
    if (!options.column && !options.codes.empty()) {
      Misuse("--assign and --merge need COLUMN, the column of the values");
    }
    return options;
  };
  WhenChosen(command, invocation, make, RunCategories);
}

}  // namespace tslm5::host
