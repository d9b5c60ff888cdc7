// An `OriginalDataSet` raises no event: it has no place to attach a listener, and a feedback object
// that it is given is kept, but not called.
#include <gtest/gtest.h>

#include "boundary/boundary_case.h"
#include "boundary/calling_feedback.h"
#include "original/original_run.h"

namespace tslm5 {
namespace {

TEST(OriginalBoundary, HasNoListeners) {
  EXPECT_FALSE(MakeOriginalDataSet().As<IConnectionPoint>());
}

TEST(OriginalBoundary, CallsNoFeedback) {
  const OriginalRun run;
  const Ref<IUnknown> set = MakeOriginalDataSet();
  set.As<IDeploymentDataSet>()->Open(Variant(run.Service()), data_set_type::kTraining, false);
  const Ref<CallingFeedback> feedback = MakeObject<CallingFeedback>();
  set.As<IDataSet>()->CalculateStatistics(feedback.get());
  EXPECT_TRUE(feedback->names.empty());
}

}  // namespace
}  // namespace tslm5
