// `SetData`: what a run's set takes over from an in-memory set. Its events are in
// set_data_events_test.cpp.
#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "datasetlite/lite_set.h"
#include "fakes/fake_data_set.h"
#include "inmemory/memory_set.h"
#include "tslm5/contracts/extra_set.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DataSetLiteSetData : public DataSetLiteTest {
 protected:
  bool SetData(const MemorySet& source, std::int32_t type = data_set_type::kTraining) const {
    return set_->SetData(source.Object().get(), type);
  }

  /// Gives a source an extra set of one row a value.
  static void AddExtraSet(const MemorySet& source, const std::vector<double>& values) {
    source.State().extra_set = CellArray(static_cast<std::int32_t>(values.size()), 1);
    source.State().extra_set_exists = true;
    for (std::size_t row = 0; row < values.size(); ++row) {
      source.State().extra_set.Put(static_cast<std::int32_t>(row), 0, values[row]);
    }
  }
};

TEST_F(DataSetLiteSetData, TakesTheRecords) {
  EXPECT_TRUE(SetData(MemorySet("1,2.5,3\n4,5,-6e1")));
  EXPECT_THAT(set_.Records(), ElementsAre("1,2.5,3", "4,5,-60"));
  EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"1|2.5|3|1", "4|5|-60|2"}));
  EXPECT_EQ(set_->GetRowOriginalIndex(1), 2);
  EXPECT_EQ(set_->DataSetType(), 1);
  EXPECT_TRUE(set_->IsReady());
  EXPECT_TRUE(set_.IsDirty());
  EXPECT_TRUE(run_.Connection()->TableExists("TrainingSetBackup"));
}

TEST_F(DataSetLiteSetData, LosesNoBitOfANumber) {
  const double third = 1.0 / 3.0;
  const MemorySet source("1e300,4.9406564584124654e-324\n0,1");
  source.State().data->Put(1, 0, third);
  ASSERT_TRUE(SetData(source));
  EXPECT_EQ(set_->GetItem(0, 0), 1e300);
  EXPECT_EQ(set_->GetItem(1, 0), 5e-324);
  EXPECT_EQ(set_->GetItem(0, 1), third);
}

TEST_F(DataSetLiteSetData, StoresWhatIsMissingAsNull) {
  const MemorySet source("1,2\n3,4");
  source.State().data->Put(0, 1, std::numeric_limits<double>::quiet_NaN());
  ASSERT_TRUE(SetData(source));
  EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"1|NULL|1", "3|4|2"}));
  EXPECT_TRUE(std::isnan(set_->GetItem(1, 0)));
}

TEST_F(DataSetLiteSetData, FillsTheTableOfItsType) {
  Parse("7,8\n9,10\n");
  EXPECT_TRUE(SetData(MemorySet("1,2,3"), 2));
  EXPECT_EQ(set_->Name(), "Testing");
  EXPECT_THAT(set_.Records(), ElementsAre("1,2,3"));
  EXPECT_EQ(run_.TableRows("TestingSet"), (Lines{"1|2|3|1"}));
  EXPECT_FALSE(run_.Connection()->TableExists("TrainingSet")) << "the set was emptied first";
}

TEST_F(DataSetLiteSetData, TakesTheLabels) {
  const MemorySet source;
  source.Parse("Blood\x05Pressure,Age\n1,2", {.has_labels = true});
  ASSERT_TRUE(SetData(source));
  EXPECT_TRUE(set_->HasLabels());
  EXPECT_THAT(set_.Labels(), ElementsAre("Blood Pressure", "Age"));
  set_.Save(run_, 1);
  EXPECT_EQ(run_.Select("SELECT SetId, Label FROM DataSetLabels"),
            (Lines{"1|Blood Pressure", "1|Age"}));
}

TEST_F(DataSetLiteSetData, HasNoLabelsWhereTheSourceHasNone) {
  Parse("a,b\n7,8\n", {.has_labels = true});
  set_->put_IndependentVarsPrefix("x");
  ASSERT_TRUE(SetData(MemorySet("1,2")));
  EXPECT_FALSE(set_->HasLabels());
  EXPECT_THAT(set_.Labels(), ElementsAre("x0", "y"));
}

TEST_F(DataSetLiteSetData, TakesAsManyLabelsAsThereAre) {
  const MemorySet source("1,2,3");
  source->SetLabels("a,b");
  ASSERT_TRUE(SetData(source));
  EXPECT_THAT(set_.Labels(), ElementsAre("a", "b", ""));
}

TEST_F(DataSetLiteSetData, TakesEveryProperty) {
  const MemorySet source;
  source.Parse("1;2", {.separator = 3});
  source->SetProperty("5", "DelayTime");
  source->SetProperty("mine", "OfTheApplication");
  set_->SetProperty("4", "delaytime");
  set_->SetProperty("kept", "Own");
  ASSERT_TRUE(SetData(source));
  EXPECT_EQ(set_->GetProperty("Separator"), ";");
  EXPECT_EQ(set_->GetProperty("DelayTime"), "5");
  EXPECT_EQ(set_->GetProperty("OfTheApplication"), "mine");
  EXPECT_EQ(set_->GetProperty("Own"), "kept");
}

TEST_F(DataSetLiteSetData, TakesNothingFromAnyOtherSource) {
  Parse("a,b\n7,8\n", {.has_labels = true});
  set_.SetDirty(false);
  const Lines before = set_.Everything();
  const LiteSet other(run_, 2);
  ParseFile(other, File("1,2\n"), {.type = 2});
  const Ref<FakeDataSet> fake = MakeObject<FakeDataSet>(std::vector<std::vector<double>>{{1, 2}});
  const Ref<RecordingEvents> events = set_.Listen();
  EXPECT_FALSE(set_->SetData(other.Object().get(), 1));
  EXPECT_FALSE(set_->SetData(fake.get(), 2));
  EXPECT_FALSE(set_->SetData(run_.Service().get(), 2));
  EXPECT_FALSE(set_->SetData(nullptr, 2));
  EXPECT_FALSE(SetData(MemorySet(), 2)) << "there are no records in it";
  EXPECT_EQ(set_.Everything(), before);
  EXPECT_THAT(events->lines, IsEmpty());
}

TEST_F(DataSetLiteSetData, NeedsARun) {
  const LiteSet set;
  set->SetProperty("kept", "Own");
  set.SetDirty(false);
  EXPECT_EQ(RaisedNumber([&] { set->SetData(MemorySet("1,2").Object().get(), 1); }), 41001);
  EXPECT_FALSE(set.IsDirty());
  EXPECT_EQ(set->DataSetType(), 0);
}

TEST_F(DataSetLiteSetData, RefusesATypeWithoutATableBeforeAnythingIsDone) {
  Parse("7,8\n");
  const Lines before = set_.Everything();
  const Ref<RecordingEvents> events = set_.Listen();
  for (const std::int32_t type : {4, 0, -1, 100}) {
    EXPECT_THAT(
        Raised([&] { SetData(MemorySet("1,2"), type); }),
        IsError(41001, "SetData", "Sets of type " + std::to_string(type) + " have no table."));
  }
  EXPECT_EQ(set_.Everything(), before);
  EXPECT_THAT(events->lines, IsEmpty());
}

TEST_F(DataSetLiteSetData, RefusesMoreColumnsThanATableTakesBeforeAnythingIsDone) {
  Parse("7,8\n");
  const Lines before = set_.Everything();
  std::string wide = "1";
  for (int i = 1; i < 2100; ++i) wide += ",1";
  EXPECT_THAT(Raised([&] { SetData(MemorySet(wide)); }),
              IsError(41011, "SetData",
                      "too many columns on TrainingSet: 2100 data columns, but the database takes "
                      "1999 at most."));
  EXPECT_EQ(set_.Everything(), before);
}

TEST_F(DataSetLiteSetData, PutsTheExtraSetIntoTheExtraTable) {
  const MemorySet source("1,2\n3,4");
  AddExtraSet(source, {10, 20.5, 30});
  ASSERT_TRUE(SetData(source));
  EXPECT_EQ(run_.TableRows("TimeSeriesTestingSet"), (Lines{"10|0", "20.5|1", "30|2"}));
  const Ref<IExtraSet> extra = set_.As<IExtraSet>();
  EXPECT_TRUE(extra->Exists());
  EXPECT_EQ(extra->Rows(), 3);
  EXPECT_EQ(extra->Columns(), 1);
  EXPECT_EQ(extra->GetItem(0, 1), 20.5);
  EXPECT_THAT(set_.Records(), ElementsAre("1,2", "3,4"));
  EXPECT_FALSE(run_.Connection()->TableExists("TimeSeriesTestingSetBackup"));
  const LiteSet again;
  again.Load(run_, 1);
  EXPECT_EQ(again.As<IExtraSet>()->Rows(), 3);
}

TEST_F(DataSetLiteSetData, BringsNoSamplesOfASeriesThatItsSourceNoLongerHolds) {
  const MemorySet source;
  source.Parse("1\n2\n3\n4", {.separator = separator_code::kNone});
  source->SetProperty("1", "TestingSamples");
  source->SetProperty("1", "EmbeddingDimension");
  source->SetProperty("1", "DelayTime");
  ASSERT_TRUE(source->FormatDataAs(0));
  source.Parse("5,6\n7,8");
  ASSERT_TRUE(SetData(source));
  EXPECT_EQ(set_.Records(), (Lines{"5,6", "7,8"}));
  EXPECT_FALSE(set_.As<IExtraSet>()->Exists());
  EXPECT_FALSE(run_.Connection()->TableExists("TimeSeriesTestingSet"));
}

TEST_F(DataSetLiteSetData, RefusesAnExtraSetForTheVeryTableOfTheRecords) {
  Parse("7,8\n");
  const Lines before = set_.Everything();
  const MemorySet source("1,2\n3,4");
  AddExtraSet(source, {10});
  EXPECT_FALSE(SetData(source, data_set_type::kTimeSeriesTesting));
  EXPECT_EQ(set_.Everything(), before);
  EXPECT_FALSE(run_.Connection()->TableExists("TimeSeriesTestingSet"));
}

TEST_F(DataSetLiteSetData, MakesTheExtraTableItsOwnUnderThatType) {
  const MemorySet source("1,2");
  AddExtraSet(source, {10});
  ASSERT_TRUE(SetData(source));
  ASSERT_TRUE(SetData(MemorySet("5,6"), data_set_type::kTimeSeriesTesting));
  EXPECT_EQ(run_.TableRows("TimeSeriesTestingSet"), (Lines{"5|6|1"}));
  EXPECT_FALSE(set_.As<IExtraSet>()->Exists());
}

TEST_F(DataSetLiteSetData, ForgetsTheFiguresOfTheOldRecords) {
  Parse("7,8\n9,10\n");
  set_->CalculateStatistics(nullptr);
  ASSERT_EQ(set_->GetMax(0, 0, 0), 9);
  ASSERT_TRUE(SetData(MemorySet("100,2")));
  EXPECT_EQ(set_->GetMax(0, 0, 0), 100);
}

TEST_F(DataSetLiteSetData, ReadsTheFlagsOfTheColumnsAgain) {
  AddColumn(0, "d0");
  run_.Execute("UPDATE DataSetColumn SET IsNominal = 1, MissingCount = 2");
  ASSERT_TRUE(SetData(MemorySet("1,2")));
  const DataSetLiteState& state = static_cast<DataSetLite*>(set_.Object().get())->State();
  EXPECT_TRUE(state.is_categorical.at(0));
  EXPECT_TRUE(state.has_missing.at(0));
}

}  // namespace
}  // namespace tslm5
