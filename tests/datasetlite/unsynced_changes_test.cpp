// Operations whose change is stored although the folder of the run cannot be synced: done in every
// respect, and told with 1290 where they can raise.
#include <gtest/gtest.h>

#include <functional>

#include "datasetlite/prepared_set.h"
#include "fakes/unsynced_run.h"
#include "inmemory/memory_set.h"
#include "tslm5/contracts/data_set_lite.h"
#include "tslm5/contracts/time_series.h"
#include "tslm5/engine/transaction.h"

namespace tslm5 {
namespace {

class UnsyncedChanges : public PreparedSetTest {
 protected:
  UnsyncedChanges() { Attach(data_set_type::kTraining); }

  void Attach(std::int32_t type) const { unsynced_.Load(Variant(run_object_), type); }
  static void ExpectTold(const std::function<void()>& change) {
    EXPECT_EQ(RaisedNumber(change), error_number::kStoredUnsynced);
  }

  const Ref<UnsyncedRun> run_object_ = MakeObject<UnsyncedRun>(run_.Connection());
  const LiteSet unsynced_;
};

TEST_F(UnsyncedChanges, OfAParseAreDone) {
  const Ref<RecordingEvents> events = unsynced_.Listen();
  ExpectTold([&] { ParseFile(unsynced_, File("a,b\n7,8\n"), {.has_labels = true}); });
  EXPECT_EQ(unsynced_.Records(), Lines{"7,8"});
  EXPECT_EQ(unsynced_.Labels(), (Lines{"a", "b"}));
  EXPECT_EQ(unsynced_->GetProperty("Separator"), ",");
  EXPECT_TRUE(unsynced_->IsReady());
  EXPECT_TRUE(unsynced_.IsDirty());
  EXPECT_EQ(events->lines.back(), "AfterDataLoad 1 x 2: Data load succeded.");
  EXPECT_EQ(run_.TableRows("TrainingSet"), Lines{"7|8|1"});
}

TEST_F(UnsyncedChanges, OfSetDataAreDone) {
  const MemorySet source("7,8\n9,10");
  const Ref<RecordingEvents> events = unsynced_.Listen();
  ExpectTold([&] { unsynced_->SetData(source.Object().get(), data_set_type::kTraining); });
  EXPECT_EQ(unsynced_.Records(), (Lines{"7,8", "9,10"}));
  EXPECT_TRUE(unsynced_->IsReady());
  EXPECT_EQ(events->lines.back(), "AfterDataLoad 2 x 2: Data load succeded.");
}

TEST_F(UnsyncedChanges, OfACancelledSetDataLeaveAnEmptySet) {
  const MemorySet source("7,8\n9,10");
  const Ref<RecordingEvents> events = unsynced_.Listen();
  events->on_before_data_load = [](IDataSet&, IParseEventArgs& arguments) {
    arguments.put_Cancel(true);
  };
  ExpectTold([&] { unsynced_->SetData(source.Object().get(), data_set_type::kTraining); });
  EXPECT_EQ(unsynced_->Rows(), 0);
  EXPECT_FALSE(run_.Connection()->TableExists("TrainingSet"));
}

TEST_F(UnsyncedChanges, OfASaveAreDone) {
  unsynced_->SetLabels("x y z");
  ExpectTold(
      [&] { unsynced_.As<IPersistable>()->Save(Variant(run_object_), data_set_type::kTesting); });
  EXPECT_EQ(unsynced_->DataSetType(), data_set_type::kTesting);
  EXPECT_FALSE(unsynced_.IsDirty());
  EXPECT_EQ(run_.Select("SELECT label FROM DataSetLabels WHERE SetId = 2"), (Lines{"x", "y", "z"}));
}

TEST_F(UnsyncedChanges, OfAClearAreDone) {
  ExpectTold([&] { unsynced_->Clear(); });
  EXPECT_EQ(unsynced_->Rows(), 0);
  EXPECT_TRUE(unsynced_.IsDirty());
  EXPECT_FALSE(run_.Connection()->TableExists("TrainingSet"));
}

TEST_F(UnsyncedChanges, OfFilledGapsAreNoFailure) {
  EXPECT_TRUE(unsynced_.As<IMissingMetadata>()->ApplyMissing(1));
  EXPECT_EQ(Training("d1"), (Lines{"10", "5", "7.5", "30"}));
  EXPECT_TRUE(unsynced_.IsDirty());
}

TEST_F(UnsyncedChanges, OfAnEmbeddingAreNoFailure) {
  RaisedNumber([&] { ParseFile(unsynced_, File("1\n2\n3\n4\n"), {.separator = -1}); });
  unsynced_->SetProperty("1", "EmbeddingDimension");
  unsynced_->SetProperty("1", "DelayTime");
  EXPECT_TRUE(unsynced_->FormatDataAs(0));
  EXPECT_EQ(unsynced_.Records(), (Lines{"1,2", "2,3", "3,4"}));
}

TEST_F(UnsyncedChanges, OfAResetAreNoFailure) {
  RaisedNumber([&] { ParseFile(unsynced_, File("1,2,3\n")); });  // which makes a backup table
  const auto changes = unsynced_.As<ITimeSeriesChanges>();
  EXPECT_TRUE(changes->ResetTimeSeries());
  EXPECT_EQ(unsynced_.Records(), (Lines{"1,,1", "2,40,0"}));
  ExpectTold([&] { changes->UndoReset(); });
  EXPECT_EQ(unsynced_.Records(), Lines{"1,2,3"});
}

TEST_F(UnsyncedChanges, OfColumnRecordsAreSeen) {
  unsynced_.As<IIsDirty>()->put_IsDirty(false);
  Execute("INSERT INTO DataSetLabels VALUES (NULL, 1, 3, 'more')");
  ExpectTold([&] { unsynced_.As<IDataSetLite>()->SaveTimeSeriesDataSetColumnData(0); });
  EXPECT_EQ(run_.Select("SELECT OriginalLabel FROM DataSetColumn WHERE IsResponse = 1"),
            (Lines{"answer", "more"}));
}

TEST_F(UnsyncedChanges, OfACloneAreTold) {
  ExpectTold([&] { unsynced_.As<ICloneableEx>()->Clone(data_set_type::kTesting); });
  EXPECT_EQ(run_.TableRows("TestingSet").size(), 4U);
}

}  // namespace
}  // namespace tslm5
