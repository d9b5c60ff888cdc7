#include "host/commands/stats_command.h"

#include <fmt/format.h>

#include <unistd.h>
#include <memory>

#include "host/answers/stats_report.h"
#include "host/answers/stored_text.h"
#include "host/preparation/run_metadata.h"
#include "host/preparation/run_session.h"
#include "host/preparation/statistics_feedback.h"
#include "host/program/common_options.h"
#include "host/program/failure.h"
#include "host/program/shown_text.h"
#include "host/program/terminal.h"

namespace tslm5::host {
namespace {

constexpr const char* kStatsExamples =
    "Examples:\n"
    "  tslm5 stats flowers.db\n"
    "  tslm5 stats flowers.db --set testing --by-class --json\n"
    "\n"
    "Figures by class are kept for a response of at most two values.\n";

constexpr int kHistogramBins = 16;

Ref<IDataSet> RequireSet(const RunSession& session, const StatsOptions& options) {
  if (Ref<IDataSet> data_set = session.OpenDataSet(options.set->type)) return data_set;
  throw Failure(ExitCode::kTrouble, fmt::format("{} has no {} set (tslm5 info tells what it has)",
                                                Escaped(options.run), options.set->name));
}

/// Figures that a load with --no-stats left out are computed now, and kept in the run.
void EnsureComputed(const StatsOptions& options) {
  {
    const RunSession session(options.run, RunOptions::Mode::kReadOnly);
    RequireSet(session, options);
    if (!ReadColumnFigures(session, options.set->type).empty()) return;
  }
  const RunSession session(options.run, RunOptions::Mode::kReadWrite);
  Transaction transaction(session.Connection());
  if (!ReadColumnFigures(session, options.set->type).empty()) return;  // by another program
  if (!HasStatistics(session)) {
    throw Failure(ExitCode::kTrouble,
                  fmt::format("{} has no training set, which the statistics of every set need",
                              Escaped(options.run)));
  }
  Progress progress(Terminal::OfStandardError());
  ComputeStatistics(session, *RequireSet(session, options), progress);
  CommitChange(session, transaction);
}

}  // namespace

void RunStats(const StatsOptions& options, Output& output) {
  EnsureComputed(options);
  const RunSession session(options.run, RunOptions::Mode::kReadOnly);
  const Ref<IDataSet> data_set = RequireSet(session, options);
  StatsReport report;
  report.set = options.set->name;
  report.labels = LabelsOf(*data_set);
  report.columns = ReadColumnFigures(session, options.set->type);
  report.by_class = options.by_class;
  for (const auto& warning : WarningsOfStoredText(session, *options.set, report.labels)) {
    Warn(warning);
  }
  if (options.by_class) report.classes = ReadClassFigures(session, options.set->type);
  if (options.json) return output.Write(StatsJson(report));
  if (isatty(STDOUT_FILENO) != 0) {
    for (const RunFigures& column : report.columns) {
      report.histograms.push_back(Histogram(*data_set, column.column, kHistogramBins));
    }
  }
  output.Write(StatsText(report));
}

void AddStatsCommand(CommandSpec& app, Invocation& invocation) {
  struct Words {
    StatsOptions options;
    std::string set = "training";
  };
  CommandSpec stats = app.AddCommand("stats", "Print the statistics of a set's columns");
  const auto words = std::make_shared<Words>();
  AddRun(stats, words->options.run);
  AddAnyDataSet(stats, words->set, "the set to describe");
  stats.AddFlag("--by-class", words->options.by_class, "the same for each class of the response");
  AddJson(stats, words->options.json);
  stats.Footer(kStatsExamples);
  const auto make = [words] {
    StatsOptions options = words->options;
    options.run = RunName(options.run);
    options.set = FindSet(words->set);
    return options;
  };
  WhenChosen(stats, invocation, make, RunStats);
}

}  // namespace tslm5::host
