#include "preparation/run_reset_facet.h"

#include "platform/only_errors.h"
#include "preparation/preparation_step.h"
#include "preparation/training_labels.h"
#include "storage/run_tables.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/time_series.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

void RequireTesting(const RunAccess& run) {
  if (!run.Sets().HasSet(data_set_type::kTesting)) {
    RaiseNotPossible("there is no testing set, so there is nothing to reset the training set to");
  }
  if (!run.Sets().HasBackup()) {
    RaiseNotPossible(
        "there is no table to keep the former training set in; load the training set again");
  }
}

/// Runs `change(training)`, the step called `command`, which has to leave labels and statistics of
/// another training set unless it `keeps_records`.
template <class Change>
ResetResult Perform(const RunAccess& run, const std::string& command,
                    const std::vector<std::string>& words, IFeedback* feedback, bool keeps_records,
                    Change change) {
  Transaction transaction(run.Connection());
  const Ref<IDataSet> training = run.OpenDataSet(data_set_type::kTraining);
  if (!training) RaiseNotPossible("there is no training set");
  ResetResult result;
  result.former_backup_rows = run.Sets().BackupRows();
  if (command != "reset" && result.former_backup_rows == 0) {
    RaiseNotPossible("nothing to " + command + ": no reset is pending");
  }
  CreateRunTables(run.Connection());
  const auto changes = training.As<ITimeSeriesChanges>();
  if (!changes) RaiseNotPossible("the training set cannot be reset");
  change(*changes);
  result.rows = training->Rows();
  result.columns = training->Columns();
  result.backup_rows = run.Sets().BackupRows();
  if (!keeps_records) {
    const std::int32_t texts = run.Originals().Columns();
    if (texts > 0 && texts < result.columns) run.Originals().Fit(result.columns);
    FitLabels(run, *training);
    run.Figures().DropFigures(data_set_type::kTraining);
    ComputeStatistics(*training, feedback);
  }
  AppendStep(run, command, {{"rows", result.rows}, {"columns", result.columns}}, words);
  transaction.Commit();
  return result;
}

}  // namespace

void RunResetFacet::Reset(const std::vector<std::string>& pWords, IFeedback* pFeedback,
                          ResetResult& pResult) {
  OnlyErrors([&] {
    pResult = Perform(run_, "reset", pWords, pFeedback, false, [this](ITimeSeriesChanges& changes) {
      RequireTesting(run_);
      if (changes.ResetTimeSeries()) return;
      throw Error(error_number::kFileAccess, "RunPreparation",
                  "the reset failed: the run could not be written");
    });
  });
}

void RunResetFacet::Undo(const std::vector<std::string>& pWords, IFeedback* pFeedback,
                         ResetResult& pResult) {
  OnlyErrors([&] {
    pResult = Perform(run_, "undo", pWords, pFeedback, false,
                      [](ITimeSeriesChanges& changes) { changes.UndoReset(); });
  });
}

void RunResetFacet::Keep(const std::vector<std::string>& pWords, ResetResult& pResult) {
  OnlyErrors([&] {
    pResult = Perform(run_, "keep", pWords, nullptr, true,
                      [](ITimeSeriesChanges& changes) { changes.ClearReset(); });
  });
}

}  // namespace tslm5
