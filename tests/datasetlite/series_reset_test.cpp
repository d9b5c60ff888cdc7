// `ITimeSeriesChanges`: the testing records as training records, with one level of undo.
#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"
#include "tslm5/contracts/data_set_lite.h"
#include "tslm5/contracts/time_series.h"

namespace tslm5 {
namespace {

const Lines kTraining = {"1", "2", "3", "4", "5"};

class DataSetLiteSeriesReset : public DataSetLiteTest {
 protected:
  DataSetLiteSeriesReset() { Parse("1\n2\n3\n4\n5\n"); }

  /// Makes the testing table of these records.
  void ParseTesting(std::string_view bytes) const {
    ParseFile(LiteSet(run_, 2), File(bytes), {.type = 2});
  }

  Ref<ITimeSeriesChanges> changes_ = set_.As<ITimeSeriesChanges>();
};

TEST_F(DataSetLiteSeriesReset, MakesTheTestingRecordsTheTrainingRecords) {
  ParseTesting("8\n9\n");
  run_.Execute("UPDATE TestingSet SET row = row + 40");
  EXPECT_TRUE(changes_->ResetTimeSeries());
  EXPECT_EQ(set_.Records(), (Lines{"8", "9"}));
  EXPECT_EQ(set_->GetRowOriginalIndex(0), 41) << "row keys are kept";
  EXPECT_EQ(run_.TableRows("TrainingSetBackup"), (Lines{"1|1", "2|2", "3|3", "4|4", "5|5"}));
  EXPECT_EQ(run_.TableRows("TestingSet"), (Lines{"8|41", "9|42"}));
}

TEST_F(DataSetLiteSeriesReset, TakesTestingRecordsOfAnyWidth) {
  ParseTesting("10,11,12\n20,?,22\n");
  EXPECT_TRUE(changes_->ResetTimeSeries());
  EXPECT_EQ(set_.Records(), (Lines{"10,11,12", "20,,22"}));
  EXPECT_EQ(set_->Columns(), 3);
  EXPECT_EQ(run_.TableRows("TrainingSetBackup").size(), 5U);
  changes_->UndoReset();
  EXPECT_EQ(set_.Records(), kTraining);
  EXPECT_EQ(run_.ColumnNames("TrainingSet"), "d0,row");
}

TEST_F(DataSetLiteSeriesReset, WithoutATestingTableDoesNothing) {
  EXPECT_FALSE(changes_->ResetTimeSeries());
  EXPECT_EQ(set_.Records(), kTraining);
  EXPECT_TRUE(run_.TableRows("TrainingSetBackup").empty());
}

TEST_F(DataSetLiteSeriesReset, ProbesTheTestingTableBeforeAnythingElse) {
  run_.Log().Clear();
  EXPECT_FALSE(changes_->ResetTimeSeries());
  EXPECT_EQ(run_.Log().statements, (Lines{"SELECT * FROM TestingSet WHERE 1=0;"}));
}

TEST_F(DataSetLiteSeriesReset, WithoutABackupTableDoesNothing) {
  ParseTesting("8\n9\n");
  run_.Execute("DROP TABLE TrainingSetBackup");
  EXPECT_FALSE(changes_->ResetTimeSeries());
  EXPECT_EQ(set_.Records(), kTraining);
  EXPECT_FALSE(run_.InTransaction());
}

TEST_F(DataSetLiteSeriesReset, OfAnEmptyTestingTableLeavesNoRecords) {
  ParseTesting("8\n");
  run_.Execute("DELETE FROM TestingSet");
  EXPECT_TRUE(changes_->ResetTimeSeries());
  EXPECT_EQ(set_->Rows(), 0);
  changes_->UndoReset();
  EXPECT_EQ(set_.Records(), kTraining);
}

TEST_F(DataSetLiteSeriesReset, WorksOnTheTrainingTableAlone) {
  ParseTesting("8\n9\n");
  const LiteSet testing;
  testing.Load(run_, 2);
  const Ref<ITimeSeriesChanges> changes = testing.As<ITimeSeriesChanges>();
  run_.Execute("INSERT INTO TestingSetBackup VALUES (70, 1)");
  run_.Execute("INSERT INTO TrainingSetBackup VALUES (60, 1)");
  run_.Log().Clear();
  EXPECT_FALSE(changes->ResetTimeSeries());
  changes->UndoReset();
  changes->ClearReset();
  EXPECT_TRUE(run_.Log().statements.empty());
  EXPECT_EQ(testing.Records(), (Lines{"8", "9"}));
  EXPECT_EQ(set_.Records(), kTraining);
}

TEST_F(DataSetLiteSeriesReset, OfASetWithoutATableDoesNothing) {
  ParseTesting("8\n");
  const LiteSet fresh(run_, 1);
  EXPECT_FALSE(fresh.As<ITimeSeriesChanges>()->ResetTimeSeries());
  fresh.As<ITimeSeriesChanges>()->UndoReset();
  fresh.As<ITimeSeriesChanges>()->ClearReset();
  EXPECT_EQ(set_.Records(), kTraining);
}

TEST_F(DataSetLiteSeriesReset, CanBeUndoneOnce) {
  ParseTesting("8\n9\n");
  ASSERT_TRUE(changes_->ResetTimeSeries());
  changes_->UndoReset();
  EXPECT_EQ(set_.Records(), kTraining);
  EXPECT_EQ(set_->Rows(), 5);
  EXPECT_TRUE(run_.TableRows("TrainingSetBackup").empty());
  changes_->UndoReset();
  EXPECT_EQ(set_.Records(), kTraining) << "there is nothing to undo";
}

TEST_F(DataSetLiteSeriesReset, IsNotUndoneBeforeItWasMade) {
  changes_->UndoReset();
  EXPECT_EQ(set_.Records(), kTraining);
  run_.Execute("DROP TABLE TrainingSetBackup");
  changes_->UndoReset();
  EXPECT_EQ(set_.Records(), kTraining);
}

TEST_F(DataSetLiteSeriesReset, TwiceGoesBackToTheFirst) {
  ParseTesting("8\n9\n");
  ASSERT_TRUE(changes_->ResetTimeSeries());
  ParseTesting("6\n");
  ASSERT_TRUE(changes_->ResetTimeSeries());
  ASSERT_EQ(set_.Records(), (Lines{"6"}));
  changes_->UndoReset();
  EXPECT_EQ(set_.Records(), (Lines{"8", "9"}));
}

TEST_F(DataSetLiteSeriesReset, TwiceGoesBackToTheFirstAlsoInAnotherWidth) {
  ParseTesting("8,80\n9,90\n");
  ASSERT_TRUE(changes_->ResetTimeSeries());
  ASSERT_TRUE(changes_->ResetTimeSeries());
  changes_->UndoReset();
  EXPECT_EQ(set_.Records(), (Lines{"8,80", "9,90"}));
}

TEST_F(DataSetLiteSeriesReset, IsFinalOnceItIsCleared) {
  ParseTesting("8\n9\n");
  ASSERT_TRUE(changes_->ResetTimeSeries());
  changes_->ClearReset();
  EXPECT_TRUE(run_.TableRows("TrainingSetBackup").empty());
  changes_->UndoReset();
  EXPECT_EQ(set_.Records(), (Lines{"8", "9"}));
}

TEST_F(DataSetLiteSeriesReset, CannotBeClearedWithoutABackupTable) {
  run_.Execute("DROP TABLE TrainingSetBackup");
  EXPECT_EQ(Raised([this] { changes_->ClearReset(); })
                .Description()
                .find("no such table: TrainingSetBackup"),
            0U);
}

TEST_F(DataSetLiteSeriesReset, IsUndoneAlsoWhenTheTrainingTableIsGone) {
  ParseTesting("8\n9\n");
  ASSERT_TRUE(changes_->ResetTimeSeries());
  run_.Execute("DROP TABLE TrainingSet");
  changes_->UndoReset();
  EXPECT_EQ(set_.Records(), kTraining);
}

TEST_F(DataSetLiteSeriesReset, ForgetsTheFiguresAndKeepsTheIteratorInStep) {
  ParseTesting("8,80\n9,90\n");
  set_->CalculateStatistics(nullptr);
  ASSERT_EQ(set_->GetMax(0, 0, 0), 5.0);
  const Ref<IIterator> iterator = set_.As<IIterator>();
  Array<double> sample;
  ASSERT_TRUE(changes_->ResetTimeSeries());
  EXPECT_EQ(set_->GetMax(0, 0, 0), 9.0);
  iterator->ResetIterator();
  EXPECT_TRUE(iterator->GetCurrentSample(sample));
  EXPECT_EQ(sample.Elements(), (std::vector<double>{8, 9})) << "row and column crossed";

  set_->CalculateStatistics(nullptr);
  changes_->UndoReset();
  EXPECT_EQ(set_->GetMax(0, 0, 0), 5.0);
  iterator->ResetIterator();
  Array<double> narrow;
  EXPECT_TRUE(iterator->GetCurrentSample(narrow));
  EXPECT_EQ(narrow.Size(), 1U);
}

TEST_F(DataSetLiteSeriesReset, IsSeenByTheOtherSetsOfTheRun) {
  ParseTesting("8\n9\n");
  const LiteSet other;
  other.Load(run_, 1);
  ASSERT_EQ(other.Records(), kTraining);
  ASSERT_TRUE(changes_->ResetTimeSeries());
  EXPECT_EQ(other.Records(), (Lines{"8", "9"}));
  other.As<ITimeSeriesChanges>()->UndoReset();
  EXPECT_EQ(set_.Records(), kTraining);
}

TEST_F(DataSetLiteSeriesReset, HasTheNamesOfTheClassToo) {
  ParseTesting("8\n9\n");
  const Ref<IDataSetLite> lite = set_.As<IDataSetLite>();
  EXPECT_TRUE(lite->CopyTimeSeries());
  EXPECT_EQ(set_.Records(), (Lines{"8", "9"}));
  lite->UndoCopy();
  EXPECT_EQ(set_.Records(), kTraining);
  EXPECT_TRUE(lite->CopyTimeSeries());
  lite->ClearUndo();
  lite->UndoCopy();
  EXPECT_EQ(set_.Records(), (Lines{"8", "9"}));
}

}  // namespace
}  // namespace tslm5
