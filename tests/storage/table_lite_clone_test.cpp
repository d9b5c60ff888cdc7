// Copies of a data table under another type code.
#include <gtest/gtest.h>

#include "platform/raised.h"
#include "storage/table_lite.h"
#include "storage/test_run.h"

namespace tslm5 {
namespace {

class TableLiteClone : public testing::Test {
 protected:
  TableLiteClone() : table_(run_.Filled(2, {"1 2", "3 ?"})) {
    run_.Execute("UPDATE TrainingSet SET row = 9 WHERE row = 2");
  }

  const Lines stored_ = {"1|2|1", "3|NULL|9"};
  TestRun run_;
  Ref<TableLite> table_;
};

TEST_F(TableLiteClone, HasTheSameRowsAndKeys) {
  const Ref<TableLite> clone = table_->Clone(2);
  EXPECT_EQ(run_.TableRows("TestingSet"), stored_);
  EXPECT_EQ(run_.TableRows("TrainingSet"), stored_);
}

TEST_F(TableLiteClone, HasAnEmptyBackupOfItsOwn) {
  table_->CreateCopy();
  const Ref<TableLite> clone = table_->Clone(2);
  EXPECT_EQ(run_.ColumnNames("TestingSetBackup"), "d0,d1,row");
  EXPECT_EQ(run_.TableRows("TestingSetBackup"), Lines());
}

TEST_F(TableLiteClone, IsLoadedUnderTheNewType) {
  const Ref<TableLite> clone = table_->Clone(2);
  EXPECT_EQ(clone->TypeCode(), 2);
  EXPECT_EQ(clone->Name(), "TestingSet");
  EXPECT_EQ(clone->Rows(), 2);
  EXPECT_EQ(clone->Columns(), 2);
  EXPECT_EQ(clone->GetRow(0, ","), "1,2,");
}

TEST_F(TableLiteClone, LeavesTheOriginalAlone) {
  const Ref<TableLite> clone = table_->Clone(2);
  ASSERT_TRUE(clone->PutValue(0, 0, 50));
  ASSERT_TRUE(clone->Save());
  EXPECT_EQ(table_->TypeCode(), 1);
  EXPECT_EQ(run_.TableRows("TrainingSet"), stored_);
}

TEST_F(TableLiteClone, TakesWhatIsPendingToo) {
  ASSERT_TRUE(table_->PutValue(0, 0, 50));
  const Ref<TableLite> clone = table_->Clone(2);
  EXPECT_EQ(run_.TableRows("TestingSet"), Lines({"50|2|1", "3|NULL|9"}));
}

TEST_F(TableLiteClone, ToTheSameTypeRaisesAndCreatesNothing) {
  const Lines before = run_.Schema();
  const Error error = Raised([this] { table_->Clone(1); });
  EXPECT_EQ(error.Number(), 41015);
  EXPECT_EQ(error.Source(), "CloneExt");
  EXPECT_EQ(error.Description(), "The clone must be assigned a different type/name.");
  EXPECT_EQ(run_.Log().statements, Lines());
  EXPECT_EQ(run_.Schema(), before);
}

TEST_F(TableLiteClone, TestsTheTypeBeforeItAsksForTheRun) {
  const Ref<TableLite> unattached = MakeObject<TableLite>();
  EXPECT_EQ(RaisedNumber([&unattached] { unattached->Clone(0); }), 41015);
}

TEST_F(TableLiteClone, ReplacesTheTableOfTheNewType) {
  run_.Filled(3, {"7 8 9"}, 2)->CreateCopy();
  const Ref<TableLite> clone = table_->Clone(2);
  EXPECT_EQ(run_.TableRows("TestingSet"), stored_);
  EXPECT_EQ(run_.TableRows("TestingSetBackup"), Lines());
}

TEST_F(TableLiteClone, SendsItsStatementsInOneTransaction) {
  const Ref<TableLite> clone = table_->Clone(2);
  const std::string columns = "(d0 FLOAT, d1 FLOAT, row INTEGER PRIMARY KEY);";
  EXPECT_EQ(run_.Log().statements, Lines({"BEGIN", "BEGIN", "CREATE TABLE TestingSet " + columns,
                                          "CREATE TABLE TestingSetBackup " + columns, "COMMIT",
                                          "INSERT INTO TestingSet SELECT * FROM TrainingSet;",
                                          "SELECT * FROM TestingSet;", "COMMIT"}));
}

TEST_F(TableLiteClone, ThatFailsToCopyKeepsTheTableThatItWouldReplace) {
  run_.Filled(3, {"7 8 9"}, 2)->CreateCopy();
  run_.Log().before = [](std::string_view statement) {
    if (statement.starts_with("INSERT INTO TestingSet ")) throw Error(13, "", "full");
  };
  EXPECT_EQ(Raised([this] { table_->Clone(2); }).Description(), "full");
  EXPECT_EQ(run_.TableRows("TestingSet"), Lines({"7|8|9|1"}));
  EXPECT_EQ(run_.TableRows("TestingSetBackup"), Lines({"7|8|9|1"}));
  EXPECT_FALSE(run_.InTransaction());
}

TEST_F(TableLiteClone, ThatCannotBeReadIsNotMade) {
  run_.Log().before = [](std::string_view statement) {
    if (statement.starts_with("SELECT * FROM TestingSet")) throw Error(13, "", "no memory");
  };
  EXPECT_EQ(Raised([this] { table_->Clone(2); }).Description(), "no memory");
  EXPECT_FALSE(run_.Connection()->TableExists("TestingSet"));
  EXPECT_FALSE(run_.InTransaction());
}

TEST_F(TableLiteClone, WithoutARecordSetRaisesAndCreatesNothing) {
  table_->Dispose(true);
  const Lines before = run_.Schema();
  EXPECT_EQ(RaisedNumber([this] { table_->Clone(2); }), 1);
  EXPECT_EQ(run_.Schema(), before);
}

TEST_F(TableLiteClone, ToATypeWithoutATableRaisesAndCreatesNothing) {
  const Lines before = run_.Schema();
  EXPECT_EQ(RaisedNumber([this] { table_->Clone(4); }), 41001);
  EXPECT_EQ(run_.Schema(), before);
}

TEST_F(TableLiteClone, GoesOnNumberingFromTheSameCounter) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"10", "20"});
  const Ref<TableLite> clone = table->Clone(2);
  clone->ParseDoubleArray(std::vector<double>{30});
  EXPECT_EQ(run.TableRows("TestingSet"), Lines({"10|1", "20|2", "30|3"}));
}

}  // namespace
}  // namespace tslm5
