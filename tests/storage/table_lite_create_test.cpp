// Making and dropping a data table.
#include <gtest/gtest.h>

#include "platform/raised.h"
#include "storage/table_lite.h"
#include "storage/test_run.h"

namespace tslm5 {
namespace {

TEST(TableLiteCreate, MakesTheTableOfTheTypeWithTheKeyLast) {
  const TestRun run;
  const Ref<TableLite> table = run.Table();
  table->Create(3, 2, false);
  EXPECT_EQ(table->Name(), "TestingSet");
  EXPECT_EQ(table->TypeCode(), 2);
  EXPECT_EQ(run.Schema(),
            Lines({"TestingSet|CREATE TABLE TestingSet (d0 FLOAT, d1 FLOAT, d2 FLOAT, row INTEGER "
                   "PRIMARY KEY)"}));
}

TEST(TableLiteCreate, MakesTheBackupWithTheSameColumns) {
  const TestRun run;
  run.Table()->Create(1, 5, true);
  EXPECT_EQ(run.ColumnNames("TimeSeriesTestingSet"), "d0,row");
  EXPECT_EQ(run.ColumnNames("TimeSeriesTestingSetBackup"), "d0,row");
}

TEST(TableLiteCreate, SendsExactlyTheseStatementsInOneTransaction) {
  const TestRun run;
  run.Table(1)->Create(2, 1, true);
  EXPECT_EQ(run.Log().statements,
            Lines({"BEGIN", "DROP TABLE TrainingSet;", "DROP TABLE TrainingSetBackup;",
                   "CREATE TABLE TrainingSet (d0 FLOAT, d1 FLOAT, row INTEGER PRIMARY KEY);",
                   "CREATE TABLE TrainingSetBackup (d0 FLOAT, d1 FLOAT, row INTEGER PRIMARY KEY);",
                   "COMMIT"}));
}

TEST(TableLiteCreate, DropsNothingThatIsNotThere) {
  const TestRun run;
  run.Table()->Create(1, 1, true);
  EXPECT_EQ(
      run.Log().statements,
      Lines({"BEGIN", "CREATE TABLE TrainingSet (d0 FLOAT, row INTEGER PRIMARY KEY);",
             "CREATE TABLE TrainingSetBackup (d0 FLOAT, row INTEGER PRIMARY KEY);", "COMMIT"}));
}

TEST(TableLiteCreate, LeavesAnOlderBackupWhenNoneIsAskedFor) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(2, {"1 2"});
  table->CreateCopy();
  table->Create(1, 1, false);
  EXPECT_EQ(run.ColumnNames("TrainingSet"), "d0,row");
  EXPECT_EQ(run.ColumnNames("TrainingSetBackup"), "d0,d1,row");
  EXPECT_EQ(run.TableRows("TrainingSetBackup"), Lines({"1|2|1"}));
}

TEST(TableLiteCreate, ReplacesTheOldTableAndBackup) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(2, {"1 2"});
  table->CreateCopy();
  table->Create(2, 1, true);
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines());
  EXPECT_EQ(run.TableRows("TrainingSetBackup"), Lines());
}

TEST(TableLiteCreate, TakesNoDataColumns) {
  const TestRun run;
  run.Table()->Create(0, 1000, false);
  EXPECT_EQ(run.ColumnNames("Unknown"), "row");
}

TEST(TableLiteCreate, TakesAsManyColumnsAsTheDatabase) {
  const TestRun run;
  const Ref<TableLite> table = run.Table();
  table->Create(1999, 1, true);
  table->LoadRecordSet();
  EXPECT_EQ(table->Columns(), 1999);
}

TEST(TableLiteCreate, ClosesTheRecordSet) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"1", "2"});
  ASSERT_EQ(table->Rows(), 2);
  table->Create(1, 1, true);
  EXPECT_EQ(table->Rows(), 0);
  EXPECT_EQ(table->Columns(), 0);
  table->ParseArray(Lines{"1", "2", "3"});
  EXPECT_EQ(table->Rows(), 0);
  table->LoadRecordSet();
  EXPECT_EQ(table->Rows(), 3);
  EXPECT_EQ(table->Columns(), 1);
}

TEST(TableLiteDrop, DropsTheTableAlone) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"1"});
  table->Drop(false);
  EXPECT_EQ(run.Select("SELECT name FROM sqlite_master"), Lines({"TrainingSetBackup"}));
  EXPECT_EQ(run.Log().statements, Lines({"BEGIN", "DROP TABLE TrainingSet;", "COMMIT"}));
}

TEST(TableLiteDrop, DropsTheBackupWhenAskedTo) {
  const TestRun run;
  run.Table(1)->Drop(true);
  EXPECT_EQ(run.Schema(), Lines());
  EXPECT_EQ(run.Log().statements,
            Lines({"BEGIN", "DROP TABLE TrainingSet;", "DROP TABLE TrainingSetBackup;", "COMMIT"}));
}

TEST(TableLiteDrop, WithoutABackupToDropKeepsTheTable) {
  const TestRun run;
  const Ref<TableLite> table = run.Table();
  table->Create(1, 1, false);
  const Error error = Raised([&table] { table->Drop(true); });
  EXPECT_EQ(error.Number(), 1);
  EXPECT_EQ(error.Description(),
            "no such table: TrainingSetBackup [DROP TABLE TrainingSetBackup;]");
  EXPECT_EQ(run.ColumnNames("TrainingSet"), "d0,row");
  EXPECT_FALSE(run.InTransaction());
}

TEST(TableLiteDrop, ClosesTheRecordSet) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"1"});
  double value = 0;
  ASSERT_TRUE(table->GetValue(0, 0, value));
  table->Drop(false);
  EXPECT_EQ(table->Rows(), 0);
  EXPECT_EQ(table->Columns(), 0);
  EXPECT_FALSE(table->GetValue(0, 0, value));
  EXPECT_FALSE(table->PutValue(0, 0, 1));
  EXPECT_EQ(table->GetRow(0, " "), "");
}

TEST(TableLiteDrop, WithoutATableRaises) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(1);
  table->Drop(false);
  EXPECT_EQ(Raised([&table] { table->Drop(false); }).Description(),
            "no such table: TrainingSet [DROP TABLE TrainingSet;]");
}

}  // namespace
}  // namespace tslm5
