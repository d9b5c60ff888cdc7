#include "host/commands/missing_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>

#include "host/answers/gap_report.h"
#include "host/preparation/gap_filling.h"
#include "host/preparation/label_list.h"
#include "host/preparation/replacement_type.h"
#include "host/preparation/run_change.h"
#include "host/preparation/run_history.h"
#include "host/preparation/run_metadata.h"
#include "host/program/common_options.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/json_text.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

constexpr const char* kMissingExamples =
    "Examples:\n"
    "  tslm5 missing air.db\n"
    "  tslm5 missing air.db ozone --replace NA=median --apply\n"
    "  tslm5 missing air.db month --replace =May --replace '?=May' --apply\n"
    "  tslm5 missing air.db ozone --replace NA=none\n"
    "\n"
    "Figures are those of the training records, in the unit of the file. A column of categories\n"
    "takes the name of one, else a number. The token of an empty cell is written as nothing, as\n"
    "in =May. A replacement reaches the data with --apply; none takes it back and opens the cells\n"
    "again. The whole command is done or, on a failure, nothing of it.\n";

ReportedGaps ReadReported(const RunSession& session, const Ref<IDataSet>& data_set,
                          std::int32_t column) {
  ReportedGaps reported;
  reported.gaps = ReadGapColumn(session, data_set, column);
  if (reported.gaps.is_categorical)
    reported.categories = ReadCodedColumn(session, data_set, column);
  return reported;
}

/// The column that is named, or all that have gaps.
std::vector<ReportedGaps> ReadReport(const RunSession& session, const Ref<IDataSet>& data_set,
                                     const std::optional<std::int32_t>& column) {
  std::vector<ReportedGaps> columns;
  if (column) {
    columns.push_back(ReadReported(session, data_set, *column));
    return columns;
  }
  for (const GapColumn& one : ReadGapColumns(session, data_set)) {
    columns.push_back(ReadReported(session, data_set, one.index));
  }
  return columns;
}

std::vector<ReplacementChoice> ParseChoices(const MissingOptions& options,
                                            const ReportedGaps& column) {
  std::vector<ReplacementChoice> choices;
  for (const std::string& word : options.replacements) {
    ReplacementChoice choice = ParseReplacement(word, column.gaps, column.categories);
    const bool is_twice = std::any_of(choices.begin(), choices.end(), [&choice](const auto& one) {
      return one.token == choice.token;
    });
    if (is_twice) {
      Misuse(fmt::format("--replace: the token {} is replaced twice", Quoted(choice.token)));
    }
    choices.push_back(std::move(choice));
  }
  return choices;
}

bool HasChoice(const GapColumn& column) {
  return std::any_of(column.tokens.begin(), column.tokens.end(),
                     [](const GapToken& token) { return token.replacement.has_value(); });
}

void Apply(const RunSession& session, const Ref<IDataSet>& data_set,
           const std::optional<std::int32_t>& column) {
  std::vector<GapColumn> columns;
  if (column) {
    columns.push_back(ReadGapColumn(session, data_set, *column));
  } else {
    columns = ReadGapColumns(session, data_set);
  }
  std::erase_if(columns, [](const GapColumn& one) { return !HasChoice(one); });
  if (columns.empty()) {
    Refuse("no replacement is chosen yet (--replace TOKEN=... chooses one)");
  }
  for (const GapColumn& one : columns) FillGaps(session, data_set, one);
}

void Note(const RunSession& session, const MissingOptions& options,
          const std::optional<std::int32_t>& column, const std::vector<std::string>& labels,
          const std::vector<ReportedGaps>& after) {
  HistoryEntry entry;
  entry.command = "missing";
  entry.words = {"missing", std::string(kRunWord)};
  nlohmann::ordered_json parameters = nlohmann::ordered_json::object();
  if (column) {
    entry.words.push_back(ColumnWord(*column, labels));
    parameters["column"] = labels[static_cast<std::size_t>(*column)];
  }
  for (const std::string& word : options.replacements) entry.words.push_back("--replace=" + word);
  for (const ReportedGaps& one : after) {
    for (const GapToken& token : one.gaps.tokens) {
      if (!token.replacement) continue;
      parameters["replacements"][one.gaps.label][token.text] = *token.replacement;
    }
  }
  parameters["apply"] = options.applies;
  if (options.applies) entry.words.emplace_back("--apply");
  if (!options.statistics) entry.words.emplace_back("--no-stats");
  entry.parameters = JsonText(parameters);
  WriteHistory(session, entry);
}

bool TakesBack(const std::vector<ReplacementChoice>& choices) {
  return std::any_of(choices.begin(), choices.end(), [](const ReplacementChoice& one) {
    return one.type == replacement_type::kNone;
  });
}

}  // namespace

void RunMissing(const MissingOptions& options, Output& output) {
  const bool changes = options.applies || !options.replacements.empty();
  const RunSession session(options.run,
                           changes ? RunOptions::Mode::kReadWrite : RunOptions::Mode::kReadOnly);
  std::vector<ReportedGaps> report;
  bool waits = false;  // for --apply
  {
    std::optional<Transaction> transaction;
    if (changes) transaction.emplace(session.Connection());
    const Ref<IDataSet> data_set = RequireTrainingSet(session, options.run);
    const std::vector<std::string> labels = LabelsOf(*data_set);
    std::optional<std::int32_t> column;
    if (options.column) column = RequireColumn("COLUMN", *options.column, labels);
    if (changes) {
      std::vector<ReplacementChoice> choices;
      if (column) {
        const ReportedGaps before = ReadReported(session, data_set, *column);
        choices = ParseChoices(options, before);
        ChooseReplacements(session, data_set, before.gaps, choices);
        waits = !options.applies && !TakesBack(choices) && !choices.empty();
      }
      if (options.applies) Apply(session, data_set, column);
      if (options.applies || TakesBack(choices)) RenewStatistics(session, options.statistics);
    }
    report = ReadReport(session, data_set, column);
    if (changes) {
      Note(session, options, column, labels, report);
      StopIfInterrupted();
      CommitChange(session, *transaction);
      output.NoteDone("the run is changed");
    }
  }
  output.Write(options.json ? GapJson(report) : GapText(report));
  if (waits && !options.json) {
    output.Write("chosen, not yet applied: --apply writes the replacements into the data\n");
  }
}

void AddMissingCommand(CommandSpec& app, Invocation& invocation) {
  struct Words {
    MissingOptions options;
    std::string column;
    bool no_statistics = false;
  };
  CommandSpec missing = app.AddCommand("missing", "Show a run's missing values and replace them");
  const auto words = std::make_shared<Words>();
  AddRun(missing, words->options.run);
  const OptionSpec column =
      missing.AddOption("COLUMN", words->column, "a label, or d0, d1, ... (default: all)");
  missing
      .AddOption("--replace", words->options.replacements,
                 "what a token stands for: mean, median, min, max, a number, the name of a "
                 "category, or none")
      .ValueName("TOKEN=VALUE");
  missing.AddFlag("--apply", words->options.applies, "write the replacements into the data");
  missing.AddFlag("--no-stats", words->no_statistics,
                  "do not compute the statistics of the columns anew");
  AddJson(missing, words->options.json);
  missing.Footer(kMissingExamples);
  const auto make = [words, column] {
    MissingOptions options = words->options;
    options.run = RunName(options.run);
    options.statistics = !words->no_statistics;
    if (column.IsGiven()) options.column = words->column;
    if (!options.column && !options.replacements.empty()) {
      Misuse("--replace needs COLUMN, the column of the token");
    }
    return options;
  };
  WhenChosen(missing, invocation, make, RunMissing);
}

}  // namespace tslm5::host
