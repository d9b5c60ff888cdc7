#include "host/commands/reset_command.h"

#include <fmt/format.h>

#include <memory>

#include "host/preparation/run_change.h"
#include "host/preparation/run_history.h"
#include "host/preparation/run_metadata.h"
#include "host/preparation/run_session.h"
#include "host/preparation/series_labels.h"
#include "host/preparation/statistics_feedback.h"
#include "host/program/common_options.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/json_text.h"
#include "host/program/progress.h"
#include "host/program/shown_text.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/time_series.h"

namespace tslm5::host {
namespace {

using Step = ResetOptions::Step;

constexpr const char* kResetExamples =
    "Examples:\n"
    "  tslm5 reset air.db\n"
    "  tslm5 undo air.db\n"
    "  tslm5 keep air.db\n"
    "\n"
    "reset makes the testing records the training set; undo restores the former training set, and\n"
    "keep makes the reset final.\n";

struct ResetRun {
  std::int32_t rows = 0;
  std::int32_t columns = 0;
  std::int32_t backup_rows = 0;         ///< after the step
  std::int32_t former_backup_rows = 0;  ///< before it
};

const char* NameOf(Step step) {
  return step == Step::kReset ? "reset" : step == Step::kUndo ? "undo" : "keep";
}

void Reset(const RunSession& session, const ResetOptions& options,
           const Ref<ITimeSeriesChanges>& changes) {
  const std::string run = Escaped(options.run);
  if (!session.Sets().HasSet(data_set_type::kTesting)) {
    Refuse(fmt::format("{} has no testing set, so there is nothing to reset the training set to",
                       run));
  }
  if (!session.Sets().HasBackup()) {
    Refuse(
        fmt::format("{} has no table to keep the training set of before in; load the training "
                    "set again",
                    run));
  }
  if (changes->ResetTimeSeries()) return;
  throw Failure(ExitCode::kTrouble, "the reset failed: the run could not be written");
}

void RequireBackup(const ResetRun& done, const ResetOptions& options) {
  if (done.former_backup_rows > 0) return;
  Refuse(fmt::format("{}: nothing to {}: no reset is pending", Escaped(options.run),
                     NameOf(options.step)));
}

ResetRun ResetInSession(const RunSession& session, const ResetOptions& options) {
  const Ref<IDataSet> training = RequireTrainingSet(session, options.run);
  const Ref<ITimeSeriesChanges> changes = training.As<ITimeSeriesChanges>();
  ResetRun done;
  done.former_backup_rows = session.Sets().BackupRows();
  if (options.step != Step::kReset) RequireBackup(done, options);
  session.CreateSchema();
  if (options.step == Step::kReset) Reset(session, options, changes);
  if (options.step == Step::kUndo) changes->UndoReset();
  if (options.step == Step::kKeep) changes->ClearReset();
  done.rows = training->Rows();
  done.columns = training->Columns();
  done.backup_rows = session.Sets().BackupRows();
  if (options.step != Step::kKeep) {
    const std::int32_t texts = session.Originals().Columns();
    if (texts > 0 && texts < done.columns) session.Originals().Fit(done.columns);
    FitLabels(session, *training);
    session.Figures().DropFigures(data_set_type::kTraining);
    Progress progress(Terminal::OfStandardError());
    ComputeStatistics(*training, progress);
  }
  HistoryEntry entry;
  entry.command = NameOf(options.step);
  entry.set = data_set_type::kTraining;
  entry.parameters = JsonText({{"rows", done.rows}, {"columns", done.columns}});
  entry.words = {entry.command, std::string(kRunWord)};
  WriteHistory(session, entry);
  return done;
}

std::string Records(std::int32_t count) {
  return fmt::format("{} {}", count, count == 1 ? "record" : "records");
}

std::string ResetText(const ResetOptions& options, const ResetRun& done) {
  const std::string run = Escaped(options.run);
  switch (options.step) {
    case Step::kReset:
      return fmt::format(
          "{}: the testing set is the training set now: {}\n"
          "the former training set is kept: {}; tslm5 undo restores it, tslm5 keep drops it\n",
          run, Records(done.rows), Records(done.backup_rows));
    case Step::kUndo:
      return fmt::format("{}: training set restored: {}\n", run, Records(done.rows));
    case Step::kKeep:
      break;
  }
  return fmt::format("{}: the reset is final: {} of the former training set dropped\n", run,
                     Records(done.former_backup_rows));
}

std::string ResetJson(const ResetOptions& options, const ResetRun& done) {
  return JsonText({{"run", options.run},
                   {"step", NameOf(options.step)},
                   {"rows", done.rows},
                   {"columns", done.columns},
                   {"backupRows", done.backup_rows}});
}

void AddStep(CommandSpec& app, Invocation& invocation, Step step, const char* purpose) {
  CommandSpec command = app.AddCommand(NameOf(step), purpose);
  const auto words = std::make_shared<ResetOptions>();
  AddRun(command, words->run);
  AddJson(command, words->json);
  command.Footer(kResetExamples);
  const auto make = [words, step] { return ResetOptions{step, RunName(words->run), words->json}; };
  WhenChosen(command, invocation, make, RunReset);
}

}  // namespace

void RunReset(const ResetOptions& options, Output& output) {
  const RunSession session(options.run, RunOptions::Mode::kReadWrite);
  Transaction transaction(session);
  const ResetRun done = ResetInSession(session, options);
  StopIfInterrupted();
  transaction.Commit();
  output.NoteDone("the run is changed");
  output.Write(options.json ? ResetJson(options, done) : ResetText(options, done));
}

void AddResetCommand(CommandSpec& app, Invocation& invocation) {
  AddStep(app, invocation, Step::kReset, "Make the testing records the training set");
}

void AddUndoCommand(CommandSpec& app, Invocation& invocation) {
  AddStep(app, invocation, Step::kUndo, "Restore the training set of before a reset");
}

void AddKeepCommand(CommandSpec& app, Invocation& invocation) {
  AddStep(app, invocation, Step::kKeep, "Make a reset final");
}

}  // namespace tslm5::host
