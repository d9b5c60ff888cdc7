// A creation that fails leaves the old table, its backup and the table object as they were.
#include <gtest/gtest.h>

#include "platform/raised.h"
#include "storage/table_lite.h"
#include "storage/test_run.h"

namespace tslm5 {
namespace {

class TableLiteCreateFailure : public testing::Test {
 protected:
  TableLiteCreateFailure() : table_(run_.Filled(2, {"1 2", "3 4", "5 6"})) {
    table_->CreateCopy();
    run_.Log().Clear();
  }

  void ExpectTheOldState() {
    const Lines rows = {"1|2|1", "3|4|2", "5|6|3"};
    EXPECT_EQ(run_.TableRows("TrainingSet"), rows);
    EXPECT_EQ(run_.TableRows("TrainingSetBackup"), rows);
    EXPECT_EQ(table_->TypeCode(), 1);
    EXPECT_EQ(table_->Rows(), 3);
    EXPECT_EQ(table_->Columns(), 2);
    EXPECT_FALSE(run_.InTransaction());
  }

  TestRun run_;
  Ref<TableLite> table_;
};

TEST_F(TableLiteCreateFailure, TooManyColumnsAreToldBeforeAnythingIsSent) {
  const Error error = Raised([this] { table_->Create(2500, 1, true); });
  EXPECT_EQ(error.Number(), 41011);
  EXPECT_EQ(error.Source(), "Create");
  EXPECT_EQ(error.Description(),
            "too many columns on TrainingSet: 2500 data columns, but the database takes 1999 at "
            "most.");
  EXPECT_EQ(run_.Log().statements, Lines());
  ExpectTheOldState();
}

TEST_F(TableLiteCreateFailure, OneColumnTooManyIsRefused) {
  EXPECT_EQ(RaisedNumber([this] { table_->Create(2000, 1, true); }), 41011);
  ExpectTheOldState();
}

TEST_F(TableLiteCreateFailure, AtEachStatementInTurnKeepsTheOldState) {
  const Lines sent = {"BEGIN",
                      "DROP TABLE TrainingSet;",
                      "DROP TABLE TrainingSetBackup;",
                      "CREATE TABLE TrainingSet (d0 FLOAT, row INTEGER PRIMARY KEY);",
                      "CREATE TABLE TrainingSetBackup (d0 FLOAT, row INTEGER PRIMARY KEY);",
                      "COMMIT"};
  for (std::size_t failing = 1; failing <= sent.size(); ++failing) {
    SCOPED_TRACE(sent[failing - 1]);
    run_.Log().Clear();
    run_.Log().FailAt(failing, Error(13, "TSLMRep5", "database or disk is full"));
    const Error error = Raised([this] { table_->Create(1, 1, true); });
    EXPECT_EQ(error.Number(), 13);
    EXPECT_EQ(error.Source(), "TSLMRep5");
    EXPECT_EQ(error.Description(), "database or disk is full");
    Lines expected(sent.begin(), sent.begin() + static_cast<std::ptrdiff_t>(failing));
    if (failing > 1) expected.push_back("ROLLBACK");
    EXPECT_EQ(run_.Log().statements, expected);
    ExpectTheOldState();
  }
}

TEST_F(TableLiteCreateFailure, KeepsTheTypeCodeThatTheRecordSetBelongsTo) {
  EXPECT_EQ(RaisedNumber([this] { table_->Create(2500, 2, true); }), 41011);
  EXPECT_EQ(table_->Name(), "TrainingSet");
  run_.Log().FailAt(2, Error(13));
  EXPECT_EQ(RaisedNumber([this] { table_->Create(1, 2, true); }), 13);
  EXPECT_EQ(table_->Name(), "TrainingSet");
}

TEST_F(TableLiteCreateFailure, OfATypeWithoutATableTouchesNoOtherTable) {
  run_.Execute("CREATE TABLE Backup (a INTEGER)");
  EXPECT_EQ(RaisedNumber([this] { table_->Create(1, 100, true); }), 41001);
  EXPECT_EQ(run_.ColumnNames("Backup"), "a");
  ExpectTheOldState();
}

TEST_F(TableLiteCreateFailure, IsFollowedByACreationThatSucceeds) {
  run_.Log().FailAt(3, Error(13));
  EXPECT_EQ(RaisedNumber([this] { table_->Create(1, 1, true); }), 13);
  table_->Create(1, 1, true);
  EXPECT_EQ(run_.ColumnNames("TrainingSet"), "d0,row");
  EXPECT_EQ(run_.TableRows("TrainingSetBackup"), Lines());
}

}  // namespace
}  // namespace tslm5
