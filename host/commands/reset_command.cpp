#include "host/commands/reset_command.h"

#include <fmt/format.h>

#include <memory>
#include <string>
#include <vector>

#include "host/preparation/run_change.h"
#include "host/preparation/run_history.h"
#include "host/preparation/run_session.h"
#include "host/preparation/statistics_feedback.h"
#include "host/program/common_options.h"
#include "host/program/failure.h"
#include "host/program/json_text.h"
#include "host/program/shown_text.h"
#include "tslm5/platform/error.h"
#include "tslm5/preparation/run_reset.h"

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

const char* NameOf(Step step) {
  return step == Step::kReset ? "reset" : step == Step::kUndo ? "undo" : "keep";
}

ResetResult Perform(const RunSession& session, const ResetOptions& options) {
  RequireTrainingSet(session, options.run);
  const std::vector<std::string> words = {NameOf(options.step), std::string(kRunWord)};
  const auto preparation = session.Preparation().As<IRunReset>();
  ResetResult result;
  try {
    PrepareWithProgress([&](IFeedback* feedback) {
      if (options.step == Step::kReset) preparation->Reset(words, feedback, result);
      if (options.step == Step::kUndo) preparation->Undo(words, feedback, result);
      if (options.step == Step::kKeep) preparation->Keep(words, result);
    });
  } catch (const Error& error) {
    if (error.Number() != error_number::kNotPossible) throw;
    Refuse(fmt::format("{}: {}", Escaped(options.run), error.what()));
  }
  return result;
}

std::string Records(std::int32_t count) {
  return fmt::format("{} {}", count, count == 1 ? "record" : "records");
}

std::string ResetText(const ResetOptions& options, const ResetResult& done) {
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

std::string ResetJson(const ResetOptions& options, const ResetResult& done) {
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
  Transaction transaction(session.Connection());
  const ResetResult done = Perform(session, options);
  CommitChange(session, transaction);
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
