#ifndef TSLM5_HOST_PREPARATION_STATISTICS_FEEDBACK_H_
#define TSLM5_HOST_PREPARATION_STATISTICS_FEEDBACK_H_

#include "host/preparation/run_session.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/progress.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/feedback.h"
#include "tslm5/platform/object.h"

namespace tslm5::host {

/// Shows the progress of the statistics and hands Ctrl-C on.
class StatisticsFeedback final : public CountedObject<IFeedback> {
 public:
  explicit StatisticsFeedback(Progress& progress) : progress_(progress) {}

  std::string_view TypeName() override { return "StatisticsFeedback"; }
  bool ReportProgress(std::int32_t pPosition, std::string_view) override {
    progress_.Step(pPosition);
    return !Interrupted();
  }
  bool ContinueFlag() override { return !Interrupted(); }
  void Finish() override { progress_.End(); }
  void Start() override { progress_.Begin("Statistics", 0); }
  void SetMaximum(std::int32_t pMaximum) override { progress_.Begin("Statistics", pMaximum); }

 private:
  ~StatisticsFeedback() override = default;

  Progress& progress_;
};

/// Has the run prepared by `operation`, which is handed a feedback that shows progress. Raises
/// `Failure` when Ctrl-C was pressed.
template <class Operation>
void PrepareWithProgress(Operation operation) {
  Progress progress(Terminal::OfStandardError());
  const auto feedback = MakeObject<StatisticsFeedback>(progress);
  try {
    operation(feedback.get());
  } catch (const Error&) {
    StopIfInterrupted();
    throw;
  }
  StopIfInterrupted();
}

/// Computes the statistics of a set. Raises `Failure` when Ctrl-C was pressed.
inline void ComputeStatistics(IDataSet& data_set, Progress& progress) {
  const auto feedback = MakeObject<StatisticsFeedback>(progress);
  data_set.CalculateStatistics(feedback.get());
  StopIfInterrupted();
}

/// The same beside a training set of another width, as a series beside its embedding. Figures by
/// class go by the columns of the training set, so such a set may have none.
inline void ComputeStatistics(const RunSession& session, IDataSet& data_set, Progress& progress) {
  try {
    ComputeStatistics(data_set, progress);
  } catch (const Error& error) {
    const bool is_narrow = session.Sets().SetColumns(data_set_type::kTraining) > data_set.Columns();
    if (!is_narrow || !IsRefusedStatement(error)) throw;
  }
}

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_STATISTICS_FEEDBACK_H_
