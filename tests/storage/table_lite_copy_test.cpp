// The undo copy of a data table.
#include <gtest/gtest.h>

#include "platform/raised.h"
#include "storage/table_lite.h"
#include "storage/test_run.h"

namespace tslm5 {
namespace {

class TableLiteCopy : public testing::Test {
 protected:
  TableLiteCopy() : table_(run_.Filled(2, rows_)) {}

  const Lines rows_ = {"1 2", "3 ?"};
  const Lines stored_ = {"1|2|1", "3|NULL|2"};
  TestRun run_;
  Ref<TableLite> table_;
};

TEST_F(TableLiteCopy, SendsExactlyTheseStatements) {
  table_->CreateCopy();
  table_->DeleteAll();
  table_->UndoCopy();
  table_->ClearCopy();
  EXPECT_EQ(
      run_.Log().statements,
      Lines({"INSERT INTO TrainingSetBackup SELECT * FROM TrainingSet;", "DELETE FROM TrainingSet;",
             "INSERT INTO TrainingSet SELECT * FROM TrainingSetBackup;",
             "DELETE FROM TrainingSetBackup;", "DELETE FROM TrainingSetBackup;"}));
}

TEST_F(TableLiteCopy, CreateCopyFillsTheBackup) {
  table_->CreateCopy();
  EXPECT_EQ(run_.TableRows("TrainingSet"), stored_);
  EXPECT_EQ(run_.TableRows("TrainingSetBackup"), stored_);
}

TEST_F(TableLiteCopy, CreateCopyTakesWhatIsPendingToo) {
  ASSERT_TRUE(table_->PutValue(1, 1, 4));
  table_->CreateCopy();
  EXPECT_EQ(run_.TableRows("TrainingSetBackup"), Lines({"1|2|1", "3|4|2"}));
}

TEST_F(TableLiteCopy, UndoCopyBringsTheRowsBackAndEmptiesTheBackup) {
  table_->CreateCopy();
  ASSERT_TRUE(table_->PutValue(0, 0, 99));
  table_->DeleteAll();
  table_->UndoCopy();
  EXPECT_EQ(run_.TableRows("TrainingSet"), stored_);
  EXPECT_EQ(run_.TableRows("TrainingSetBackup"), Lines());
}

TEST_F(TableLiteCopy, UndoCopyOnAFilledTableRaisesAndKeepsBoth) {
  table_->CreateCopy();
  table_->PutValue(0, 0, 99);
  const Error error = Raised([this] { table_->UndoCopy(); });
  EXPECT_EQ(error.Number(), 1555);  // SQLite's code of a primary key that is there already
  EXPECT_EQ(run_.TableRows("TrainingSet"), Lines({"99|2|1", "3|NULL|2"}));
  EXPECT_EQ(run_.TableRows("TrainingSetBackup"), stored_);
}

TEST_F(TableLiteCopy, ClearCopyEmptiesTheBackupAlone) {
  table_->CreateCopy();
  table_->ClearCopy();
  EXPECT_EQ(run_.TableRows("TrainingSet"), stored_);
  EXPECT_EQ(run_.TableRows("TrainingSetBackup"), Lines());
}

TEST_F(TableLiteCopy, DeleteAllKeepsTheBackupAndTheRecordSetFollows) {
  table_->CreateCopy();
  table_->DeleteAll();
  EXPECT_EQ(table_->Rows(), 0);
  EXPECT_EQ(table_->Columns(), 2);
  EXPECT_EQ(run_.TableRows("TrainingSetBackup"), stored_);
}

TEST_F(TableLiteCopy, WithoutABackupTableRaises) {
  table_->Create(2, 2, false);
  for (const auto operation :
       {&TableLite::CreateCopy, &TableLite::UndoCopy, &TableLite::ClearCopy}) {
    const Error error = Raised([this, operation] { (table_.get()->*operation)(); });
    EXPECT_EQ(error.Description().find("no such table: TestingSetBackup"), 0U)
        << error.Description();
  }
}

TEST_F(TableLiteCopy, NeedsABackupOfTheSameWidth) {
  table_->Create(3, 1, false);
  table_->ParseArray(Lines{"7 8 9"});
  EXPECT_EQ(RaisedNumber([this] { table_->CreateCopy(); }), 1);
  EXPECT_EQ(run_.TableRows("TrainingSetBackup"), Lines());
  EXPECT_EQ(run_.TableRows("TrainingSet"), Lines({"7|8|9|1"}));
}

TEST_F(TableLiteCopy, FitsABackupMadeAnew) {
  table_->CreateCopy();
  table_->Create(3, 1, false);
  table_->ParseArray(Lines{"7 8 9"});
  table_->LoadRecordSet();
  table_->RemakeBackup();
  EXPECT_EQ(run_.ColumnNames("TrainingSetBackup"), "d0,d1,d2,row");
  table_->CreateCopy();
  EXPECT_EQ(run_.TableRows("TrainingSetBackup"), Lines({"7|8|9|1"}));
}

TEST_F(TableLiteCopy, ThatCannotBeMadeAnewStaysAsItWas) {
  table_->CreateCopy();
  run_.Log().FailAt(3, Error(4711, "Test", "it fails"));  // after the begin and the drop
  EXPECT_EQ(RaisedNumber([this] { table_->RemakeBackup(); }), 4711);
  EXPECT_EQ(run_.TableRows("TrainingSetBackup"), stored_);
}

}  // namespace
}  // namespace tslm5
