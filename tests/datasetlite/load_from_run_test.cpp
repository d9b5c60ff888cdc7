// `IPersistable::Load`: attaching to a run and what is there. The parameters that it refuses are in
// load_parameters_test.cpp.
#include <gtest/gtest.h>

#include <initializer_list>

#include "datasetlite/lite_set.h"
#include "tslm5/contracts/deployment_data_set.h"
#include "tslm5/contracts/extra_set.h"
#include "tslm5/contracts/lr_services.h"
#include "tslm5/contracts/nominal_metadata.h"

namespace tslm5 {
namespace {

class DataSetLiteLoad : public DataSetLiteTest {
 protected:
  /// Stores a table under `type`.
  void Store(std::string_view bytes, std::int32_t type) const {
    ParseFile(LiteSet(run_, type), File(bytes), {.type = type});
  }
};

TEST_F(DataSetLiteLoad, ServesTheTableOfTheType) {
  Store("1,2,3\n4,5,6\n", data_set_type::kTraining);
  Store("7,8\n", data_set_type::kTesting);
  const LiteSet training;
  EXPECT_TRUE(training.Load(run_, data_set_type::kTraining));
  EXPECT_EQ(training.Records(), (Lines{"1,2,3", "4,5,6"}));
  const LiteSet testing;
  EXPECT_TRUE(testing.Load(run_, data_set_type::kTesting));
  EXPECT_EQ(testing.Records(), (Lines{"7,8"}));
  EXPECT_EQ(testing->DataSetType(), 2);
}

TEST_F(DataSetLiteLoad, MakesTheSetReadyAndClean) {
  Store("1,2\n", data_set_type::kTraining);
  const LiteSet set;
  set->SetProperty("1", "k");
  ASSERT_TRUE(set.IsDirty());
  set.Load(run_, data_set_type::kTraining);
  EXPECT_TRUE(set->IsReady());
  EXPECT_FALSE(set.IsDirty());
  EXPECT_EQ(set->GetProperty("k"), "1");
}

TEST_F(DataSetLiteLoad, AnswersFalseWhereThereIsNoTable) {
  for (const std::int32_t type : {1, 2, 3, 5, 0, 4, 1000}) {
    const LiteSet set;
    EXPECT_FALSE(set.Load(run_, type)) << type;
    EXPECT_EQ(set->DataSetType(), type);
    EXPECT_EQ(set->Rows(), 0) << type;
    EXPECT_EQ(set->Columns(), 0) << type;
    EXPECT_FALSE(set->IsReady()) << type;
    EXPECT_FALSE(set.As<IExtraSet>()->Exists()) << type;
    EXPECT_EQ(Raised([&] { set->GetItem(0, 0); }).Number(), 41011) << type;
  }
}

TEST_F(DataSetLiteLoad, WorksOnARunWithoutAnyTable) {
  const TestRun bare;
  const LiteSet set;
  EXPECT_FALSE(set.Load(bare, data_set_type::kTraining));
  EXPECT_FALSE(set->HasLabels());
  EXPECT_EQ(bare.Schema(), Lines());
}

TEST_F(DataSetLiteLoad, OpensTheExtraTableBesideTheMainOne) {
  Store("1,2\n", data_set_type::kTraining);
  Store("7\n8\n9\n", data_set_type::kTimeSeriesTesting);
  const LiteSet set;
  EXPECT_TRUE(set.Load(run_, data_set_type::kTraining));
  EXPECT_EQ(set.Records(), (Lines{"1,2"}));
  const Ref<IExtraSet> extra = set.As<IExtraSet>();
  EXPECT_TRUE(extra->Exists());
  EXPECT_EQ(extra->Rows(), 3);
}

TEST_F(DataSetLiteLoad, AnswersForTheMainTableAlone) {
  Store("7\n8\n", data_set_type::kTimeSeriesTesting);
  const LiteSet set;
  EXPECT_FALSE(set.Load(run_, data_set_type::kTraining));
  EXPECT_TRUE(set.As<IExtraSet>()->Exists());
  EXPECT_EQ(set->Rows(), 0);
  EXPECT_FALSE(set->IsReady());
}

TEST_F(DataSetLiteLoad, TakesTheTimeSeriesTestingTableAsMainTableOfItsOwnType) {
  Store("7\n8\n", data_set_type::kTimeSeriesTesting);
  const LiteSet set;
  EXPECT_TRUE(set.Load(run_, data_set_type::kTimeSeriesTesting));
  EXPECT_EQ(set.Records(), (Lines{"7", "8"}));
  EXPECT_FALSE(set.As<IExtraSet>()->Exists());
}

TEST_F(DataSetLiteLoad, OfAnotherRunLeavesNothingOfTheFirst) {
  Store("1,2\n", data_set_type::kTraining);
  Store("7\n", data_set_type::kTimeSeriesTesting);
  AddColumn(0, "age");
  const LiteSet set;
  set.Load(run_, data_set_type::kTraining);
  ASSERT_TRUE(set->HasLabels());

  const TestRun other;
  CreateRunTables(*other.Connection());
  EXPECT_FALSE(set.Load(other, data_set_type::kTesting));
  EXPECT_EQ(set->DataSetType(), 2);
  EXPECT_EQ(set->Rows(), 0);
  EXPECT_FALSE(set->HasLabels());
  EXPECT_FALSE(set->IsReady());
  EXPECT_FALSE(set.As<IExtraSet>()->Exists());
  EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"1|2|1"})) << "the first run is untouched";
}

TEST_F(DataSetLiteLoad, OfAnotherRunThatFailsLeavesTheSetAsItWas) {
  Store("1,2\n", data_set_type::kTraining);
  Store("7\n", data_set_type::kTimeSeriesTesting);
  AddColumn(0, "age");
  AddColumn(1, "height", true);
  run_.Execute("UPDATE DataSetColumn SET IsNominal = 1, MissingCount = 2 WHERE ColumnIndex = 0");
  const LiteSet set;
  set.Load(run_, data_set_type::kTraining);
  set->CalculateStatistics(nullptr);
  set->SetProperty("1", "k");
  const Lines before = set.Everything();

  const TestRun damaged;
  CreateRunTables(*damaged.Connection());
  ParseFile(LiteSet(damaged, 2), File("70,80\n"), {.type = 2});
  damaged.Execute("DROP TABLE DataSetColumn");
  damaged.Execute("CREATE TABLE DataSetColumn (Id INTEGER, Name TEXT, OriginalLabel TEXT)");
  EXPECT_EQ(RaisedNumber([&] { set.Load(damaged, data_set_type::kTesting); }), 1);
  EXPECT_EQ(set.Everything(), before);
  EXPECT_EQ(set.As<IExtraSet>()->GetItem(0, 0), 7.0);
  EXPECT_TRUE(set.As<INominalDataSetMetadata>()->GetIsCategorical(0));
  EXPECT_TRUE(set.As<IDeploymentDataSet>()->HasMissingValues(0));
  EXPECT_EQ(set->GetMax(0, 0, 0), 1.0);
  EXPECT_EQ(set->GetGlobalCentroid(0), 1.0);
  const Variant names = set.As<INominalDataSetMetadata>()->GetCategoricalNames();
  EXPECT_EQ(names.ToMap()->Entries().size(), 1U) << "the run of before tells";
}

/// Makes each statement of a load fail in turn.
TEST_F(DataSetLiteLoad, ThatFailsAtAnyStatementLeavesTheSetAsItWas) {
  Store("1,2\n", data_set_type::kTraining);
  Store("7\n", data_set_type::kTimeSeriesTesting);
  AddColumn(0, "age");
  const TestRun other;
  CreateRunTables(*other.Connection());
  ParseFile(LiteSet(other, 2), File("3,4,5\n6,7,8\n"), {.type = 2});
  other.Execute("INSERT INTO DataSetColumn VALUES (NULL, 0, 'd0', 'x', 0, 0, 0, 0)");
  const LiteSet set;
  set.Load(run_, data_set_type::kTraining);
  const Lines before = set.Everything();
  std::size_t failures = 0;
  for (;; ++failures) {
    other.Log().FailAt(failures + 1, Error(4711, "Test", "it fails"));
    const std::int32_t number = RaisedNumber([&] { set.Load(other, data_set_type::kTesting); });
    other.Log().before = nullptr;
    if (number == 0) break;
    ASSERT_EQ(number, 4711);
    ASSERT_EQ(set.Everything(), before) << "statement " << failures + 1;
    ASSERT_EQ(set.As<IExtraSet>()->Rows(), 1) << "statement " << failures + 1;
  }
  EXPECT_GT(failures, 3U) << "the table, the labels, the flags";
  EXPECT_EQ(set.Records(), (Lines{"3,4,5", "6,7,8"}));
}

TEST_F(DataSetLiteLoad, OfNoTableLeavesASetAsOneThatWasOnlyAttached) {
  const LiteSet set;
  ASSERT_FALSE(set.Load(run_, data_set_type::kTraining));
  EXPECT_FALSE(set.Save(run_, data_set_type::kTraining));
  EXPECT_FALSE(set.As<ILRServices>()->IsBinary());
  const LiteSet clone(set.As<ICloneableEx>()->Clone(data_set_type::kTesting));
  EXPECT_EQ(clone->DataSetType(), 2);
  EXPECT_EQ(clone->Rows(), 0);
  EXPECT_FALSE(clone->IsReady());
  EXPECT_TRUE(run_.ColumnNames("TestingSet").empty()) << "an empty clone has no table";
  ParseFile(set, File("1,2\n"));
  EXPECT_EQ(set.Records(), (Lines{"1,2"}));
}

TEST_F(DataSetLiteLoad, OfAnotherRunAsksForTheColumnCountAnew) {
  Store("1,2,3,4\n5,6,7,8\n", data_set_type::kTraining);
  const TestRun narrow;
  ParseFile(LiteSet(narrow, 1), File("10,20\n30,40\n50,60\n"));
  const LiteSet set;
  for (const TestRun* run : std::initializer_list<const TestRun*>{&run_, &narrow, &run_}) {
    set.Load(*run, data_set_type::kTraining);
    EXPECT_EQ(set->GetRowOriginalIndex(1), 2);
  }
}

TEST_F(DataSetLiteLoad, RaisesNoEvent) {
  Store("1,2\n", data_set_type::kTraining);
  const LiteSet set;
  const Ref<RecordingEvents> events = set.Listen();
  set.Load(run_, data_set_type::kTraining);
  EXPECT_TRUE(events->lines.empty());
}

}  // namespace
}  // namespace tslm5
