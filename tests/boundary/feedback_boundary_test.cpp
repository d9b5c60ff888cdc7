// Every call of a feedback object while statistics are computed, and an object there that throws,
// stops, lets go of the set, or calls it.
#include <gmock/gmock.h>

#include <stdexcept>

#include "boundary/callbacks.h"
#include "boundary/calling_feedback.h"
#include "datasetlite/lite_set.h"
#include "inmemory/memory_set.h"
#include "tslm5/platform/live_objects.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

const Lines kOldColumns = {"0|200|300", "1|0.5|1"};
const Lines kOldClasses = {"0|0|100", "1|0|0", "0|1|300", "1|1|1"};
const Lines kNewColumns = {"0|2|3", "1|0.5|1"};
const Lines kNewClasses = {"0|0|1", "1|0|0", "0|1|3", "1|1|1"};
constexpr std::size_t kCalls = 13;
constexpr std::size_t kCallsOfColumns = 6;

class FeedbackBoundary : public DataSetLiteTest {
 protected:
  FeedbackBoundary() {
    scene_.run = Variant(run_.Service());
    scene_.file = folder_.Write("callback.csv", "50,0\n70,1\n");
    scene_.source = source_.Object().get();
  }

  /// Records of two classes, and the figures of others.
  void Restore() {
    set_ = LiteSet(run_, data_set_type::kTraining);
    Parse("100,0\n300,1\n");
    set_->CalculateStatistics(nullptr);
    Parse("1,0\n3,1\n");
  }

  Lines Columns() const {
    return run_.Select("SELECT ColumnIndex, Centroid, Maximum FROM DataSetStatistics");
  }
  Lines Classes() const {
    return run_.Select("SELECT ColumnId, Class, Centroid FROM DataSetClassStatistics");
  }

  std::int32_t Try(std::size_t place, CallingFeedback::Hook hook) {
    feedback_->At(place, std::move(hook));
    IDataSet& set = *set_.operator->();  // no reference is held
    return RaisedNumber([&] { set.CalculateStatistics(feedback_.get()); });
  }

  /// Calls a callback on the set, whatever it raises.
  void Call(const Callback& callback) {
    const Ref<IUnknown> set = set_.Object();
    RaisedNumber([&] { callback.call(set.get(), scene_); });
  }

  /// Runs `tried(place)` for each call, with the old figures in the run.
  template <class Tried>
  void AtEveryCall(Tried tried) {
    Restore();
    ASSERT_EQ(Try(0, nullptr), 0);
    ASSERT_THAT(feedback_->names,
                ElementsAre("Start", "SetMaximum", "ReportProgress", "ReportProgress", "Finish",
                            "ContinueFlag",  // of the columns; now the classes
                            "ReportProgress", "ContinueFlag", "ReportProgress", "ContinueFlag",
                            "ReportProgress", "Finish", "ContinueFlag"));
    ASSERT_EQ(Columns(), kNewColumns);
    ASSERT_EQ(Classes(), kNewClasses);
    for (std::size_t place = 0; place < kCalls; ++place) {
      Restore();
      tried(place);
    }
  }

  /// The figures of a pass that ended stay; those of one that did not are as before.
  void ExpectUndone(std::size_t place) const {
    EXPECT_EQ(Columns(), place < kCallsOfColumns ? kOldColumns : kNewColumns) << place;
    EXPECT_EQ(Classes(), kOldClasses) << place;
  }

  void ExpectSound(std::size_t place) {
    EXPECT_FALSE(run_.InTransaction()) << place;
    if (!set_.Object()) set_ = LiteSet(run_, data_set_type::kTraining);
    Parse("1,0\n3,1\n");
    set_->CalculateStatistics(nullptr);
    EXPECT_EQ(Columns(), kNewColumns) << place;
    EXPECT_EQ(Classes(), kNewClasses) << place;
  }

  MemorySet source_{"50,0\n70,1"};
  CallbackScene scene_;
  Ref<CallingFeedback> feedback_ = MakeObject<CallingFeedback>();
};

TEST_F(FeedbackBoundary, WhatItThrowsReachesTheCallerAndUndoesThePass) {
  AtEveryCall([this](std::size_t place) {
    EXPECT_EQ(Try(place, []() -> bool { throw Error(4711); }), 4711) << place;
    ExpectUndone(place);
    ExpectSound(place);
    Restore();
    EXPECT_EQ(Try(place, []() -> bool { throw std::runtime_error("no Error"); }), 51) << place;
    ExpectUndone(place);
    ExpectSound(place);
  });
}

TEST_F(FeedbackBoundary, MayStopThePassWhereItIsAsked) {
  AtEveryCall([this](std::size_t place) {
    EXPECT_EQ(Try(place, [] { return false; }), 0) << place;
    const std::string& call = feedback_->names.at(place);
    if (call == "ReportProgress" || call == "ContinueFlag") {
      EXPECT_EQ(feedback_->names.size(), place + 1) << place;
      ExpectUndone(place);
    } else {
      EXPECT_EQ(Classes(), kNewClasses) << place;
    }
    ExpectSound(place);
  });
}

TEST_F(FeedbackBoundary, MayLetGoOfTheSet) {
  AtEveryCall([this](std::size_t place) {
    const auto release = [this] {
      const std::int64_t living = LiveObjects::Count();
      set_.Reset();
      EXPECT_EQ(LiveObjects::Count(), living) << "the computation holds it to its end";
      return true;
    };
    EXPECT_EQ(Try(place, release), 0) << place;
    EXPECT_EQ(Columns(), kNewColumns) << place;
    EXPECT_EQ(Classes(), kNewClasses) << place;
    ExpectSound(place);
  });
}

TEST_F(FeedbackBoundary, MayCallWhatOnlyLooks) {
  AtEveryCall([this](std::size_t place) {
    const auto look = [this] {
      for (const Callback& callback : Callbacks()) {
        if (!callback.changes) Call(callback);
      }
      return true;
    };
    EXPECT_EQ(Try(place, look), 0) << place;
    EXPECT_EQ(Columns(), kNewColumns) << place;
    EXPECT_EQ(Classes(), kNewClasses) << place;
    ExpectSound(place);
  });
}

TEST_F(FeedbackBoundary, MayChangeTheSetWhoseFiguresAreThenComputedAnew) {
  for (const std::size_t place : {std::size_t{0}, std::size_t{2}, kCallsOfColumns}) {
    for (const Callback& callback : Callbacks()) {
      if (!callback.changes) continue;
      Restore();
      Try(place, [&] {
        Call(callback);
        return true;
      });
      ExpectSound(place);
    }
  }
}

}  // namespace
}  // namespace tslm5
