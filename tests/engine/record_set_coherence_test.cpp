// A record set serves the table as it is now.

#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

class RecordSetCoherence : public EngineTest {
 protected:
  RecordSetCoherence() {
    Execute("CREATE TABLE t (d0 FLOAT, row INTEGER PRIMARY KEY)");
    Execute("INSERT INTO t VALUES (1, 1), (2, 2), (3, 3)");
    records_ = Open("SELECT * FROM t");
    derived_ = Open("SELECT sum(d0), count(*) FROM t");
    EXPECT_EQ(First(), 1.0);
    EXPECT_EQ(Sum(), 6.0);
  }

  /// d0 of the first record, and of all together, as the record sets show them.
  double First() { return Number(records_); }
  double Sum() { return Number(derived_); }
  static double Number(const Ref<IRecordSet>& records) {
    double number = -1e99;
    EXPECT_TRUE(records->ReadNumber(1, 0, &number));
    return number;
  }

  Ref<IRecordSet> records_;
  Ref<IRecordSet> derived_;
};

TEST_F(RecordSetCoherence, SeesEveryStatementOfItsConnection) {
  Execute("UPDATE t SET d0 = 5 WHERE row = 1");
  EXPECT_EQ(First(), 5.0);
  EXPECT_EQ(Sum(), 10.0);
  Execute("INSERT INTO t VALUES (4.5, 0)");
  EXPECT_EQ(First(), 4.5);
  EXPECT_EQ(records_->RecordCount(), 4);
  Execute("DELETE FROM t WHERE row < 2");
  EXPECT_EQ(records_->RecordCount(), 2);
  EXPECT_EQ(First(), 2.0);
  Execute("ALTER TABLE t ADD COLUMN d1 TEXT");
  EXPECT_EQ(records_->FieldCount(), 3);
}

TEST_F(RecordSetCoherence, SeesInsertsByLiteralBinding) {
  connection_->BeginTrans();
  for (int row = 4; row <= 6; ++row) {
    Execute("INSERT INTO t VALUES ('10','" + std::to_string(row) + "')");
    EXPECT_EQ(records_->RecordCount(), row);
    EXPECT_EQ(Sum(), 6.0 + 10 * (row - 3));
  }
  connection_->CommitTrans();
}

TEST_F(RecordSetCoherence, KeepsItsPositionByRecordNumber) {
  records_->MoveTo(3, 0);
  Execute("INSERT INTO t VALUES (0.5, 0)");
  EXPECT_EQ(records_->GetField(0), Variant(2.0));
  Execute("DELETE FROM t WHERE row > 1");
  EXPECT_TRUE(records_->EndOfFile());
  Execute("INSERT INTO t VALUES (9, 9)");
  EXPECT_FALSE(records_->EndOfFile());
  EXPECT_EQ(records_->GetField(0), Variant(9.0));
}

TEST_F(RecordSetCoherence, LooksForItsBlocksAnew) {
  Execute("DELETE FROM t");
  Execute(
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 40000)"
      " INSERT INTO t SELECT i, i * 3 FROM n");
  double number = 0.0;
  ASSERT_TRUE(records_->ReadNumber(40000, 0, &number));
  EXPECT_EQ(number, 40000.0);
  Execute("DELETE FROM t WHERE d0 <= 1000");
  for (const int record : {39000, 1, 20000}) {
    ASSERT_TRUE(records_->ReadNumber(record, 0, &number));
    EXPECT_EQ(number, record + 1000.0);
  }
}

TEST_F(RecordSetCoherence, SeesWhatIsPendingInAnotherRecordSet) {
  const auto writer = Open("SELECT * FROM t");
  for (const double value : {7.0, 8.0}) {
    writer->SetField(0, value);
    EXPECT_EQ(First(), value);
    EXPECT_EQ(Sum(), value + 5.0);
    EXPECT_EQ(writer->GetField(0), Variant(value));
  }
  records_->MoveTo(2, 0);
  records_->SetField(0, 20.0);
  writer->MoveTo(3, 0);
  writer->SetField(0, 30.0);
  EXPECT_EQ(records_->GetField(0), Variant(20.0));
  EXPECT_EQ(Sum(), 58.0);
}

TEST_F(RecordSetCoherence, EveryStatementSeesWhatIsPending) {
  records_->SetField(0, 7.0);
  EXPECT_EQ(Listed("SELECT avg(d0) FROM t"), "4");
  records_->SetField(0, 10.0);
  Execute("CREATE TABLE copy AS SELECT d0 FROM t");
  EXPECT_EQ(Listed("SELECT sum(d0) FROM copy"), "15");
  records_->SetField(0, 13.0);
  EXPECT_EQ(Open("SELECT avg(d0) FROM t")->GetField(0), Variant(6.0));
  records_->SetField(0, 16.0);
  connection_->BeginTrans();
  connection_->RollbackTrans();
  EXPECT_EQ(Listed("SELECT avg(d0) FROM t"), "7");
}

TEST_F(RecordSetCoherence, AStatementComesAfterWhatIsPending) {
  records_->SetField(0, 7.0);
  Execute("UPDATE t SET d0 = d0 * 2");
  EXPECT_EQ(First(), 14.0);
  EXPECT_EQ(Listed("SELECT d0 FROM t"), "14 4 6");
}

TEST_F(RecordSetCoherence, ServesAgainWhenItsDroppedTableIsBack) {
  records_->MoveTo(2, 0);
  Execute("DROP TABLE t");
  double number = 0.0;
  EXPECT_EQ(RaisedNumber([&] { records_->ReadNumber(1, 0, &number); }), 1);
  EXPECT_EQ(RaisedNumber([&] { records_->GetField(0); }), 1);
  EXPECT_EQ(Raised([&] { derived_->RecordCount(); }).Description(),
            "no such table: t [SELECT sum(d0), count(*) FROM t]");
  Execute("CREATE TABLE t (name TEXT, d0 FLOAT, row INTEGER PRIMARY KEY)");
  EXPECT_EQ(records_->RecordCount(), 0);
  EXPECT_TRUE(records_->EndOfFile());
  Execute("INSERT INTO t VALUES ('x', 1.5, 1), ('y', 2.5, 2)");
  EXPECT_EQ(records_->FieldCount(), 3);
  EXPECT_EQ(records_->GetField(0), Variant("y"));
  EXPECT_EQ(Sum(), 4.0);
}

TEST_F(RecordSetCoherence, CanBeClosedAfterItsTableIsGone) {
  Execute("DROP TABLE t");
  EXPECT_EQ(RaisedNumber([&] { records_->Close(); }), 0);
  EXPECT_EQ(records_->RecordCount(), 0);
}

TEST_F(RecordSetCoherence, FollowsATableThatBecomesAView) {
  Execute("ALTER TABLE t RENAME TO other");
  Execute("CREATE VIEW t AS SELECT d0 + 1 AS d0 FROM other");
  EXPECT_EQ(First(), 2.0);
  EXPECT_EQ(records_->FieldCount(), 1);
}

TEST_F(RecordSetCoherence, SeesARollback) {
  connection_->BeginTrans();
  Execute("UPDATE t SET d0 = 100");
  EXPECT_EQ(First(), 100.0);
  connection_->BeginTrans();
  Execute("DELETE FROM t");
  EXPECT_EQ(records_->RecordCount(), 0);
  connection_->RollbackTrans();
  EXPECT_EQ(First(), 100.0);
  connection_->RollbackTrans();
  EXPECT_EQ(First(), 1.0);
  EXPECT_EQ(Sum(), 6.0);
}

TEST_F(RecordSetCoherence, SeesTransactionsThatStatementsEnd) {
  Execute("BEGIN");
  Execute("UPDATE t SET d0 = 100");
  EXPECT_EQ(First(), 100.0);
  Execute("SAVEPOINT s");
  Execute("UPDATE t SET d0 = 200");
  EXPECT_EQ(First(), 200.0);
  Execute("ROLLBACK TO s");
  EXPECT_EQ(First(), 100.0);
  Execute("ROLLBACK");
  EXPECT_EQ(First(), 1.0);
}

TEST_F(RecordSetCoherence, SeesWhatTheDatabaseRollsBackByItself) {
  Execute("CREATE TABLE once (a FLOAT UNIQUE ON CONFLICT ROLLBACK)");
  Execute("INSERT INTO once VALUES (1)");
  for (const char* sql : {"INSERT INTO once VALUES (1)", "INSERT OR ROLLBACK INTO once VALUES (1)",
                          "INSERT INTO once SELECT 1"}) {
    connection_->BeginTrans();
    Execute("UPDATE t SET d0 = 100");
    EXPECT_EQ(First(), 100.0);
    EXPECT_EQ(RaisedNumber([&] { Execute(sql); }), 2067);
    connection_->RollbackTrans();
    EXPECT_EQ(First(), 1.0) << sql;
  }
}

TEST_F(RecordSetCoherence, SeesWhatAWriteOfARecordSetRollsBack) {
  Execute("CREATE TABLE u (a FLOAT)");
  Execute("INSERT INTO u VALUES (1)");
  Execute("CREATE TRIGGER g BEFORE UPDATE ON u BEGIN SELECT RAISE(ROLLBACK, 'never'); END");
  connection_->BeginTrans();
  Execute("UPDATE t SET d0 = 100");
  const auto other = Open("SELECT * FROM u");
  EXPECT_EQ(First(), 100.0);
  other->SetField(0, 2.0);
  EXPECT_EQ(RaisedNumber([&] { other->Update(); }), 1811);
  connection_->RollbackTrans();
  EXPECT_EQ(First(), 1.0);
  EXPECT_EQ(Number(other), 1.0);
}

TEST_F(RecordSetCoherence, SeesWhatAFailedStatementLeftBehind) {
  Execute("CREATE UNIQUE INDEX i ON t (d0)");
  EXPECT_EQ(RaisedNumber([&] { Execute("INSERT OR FAIL INTO t VALUES (0, 0), (3, 5)"); }), 2067);
  EXPECT_EQ(First(), 0.0);
  EXPECT_EQ(records_->RecordCount(), 4);
}

using SharedRun = FileEngineTest;

TEST_F(SharedRun, AnotherProgramsDeletionsWhileReadingAreTold) {
  Execute("CREATE TABLE t (d0 FLOAT, row INTEGER PRIMARY KEY)");
  for (const char* key : {"i", "i * 2"}) {
    Execute("DELETE FROM t");
    Execute(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 40000)"
        " INSERT INTO t SELECT 1, " +
        std::string(key) + " FROM n");
    const auto records = connection_->OpenRecordSet("SELECT * FROM t");
    OpenSecond()->Execute("DELETE FROM t WHERE row > 5");
    records->MoveTo(39999, 0);
    const Error error = Raised([&] { records->GetField(0); });
    EXPECT_EQ(error.Number(), 517) << key;
    EXPECT_EQ(error.Description(),
              "the table \"t\" was changed by another program while it was read");
    Execute("DELETE FROM t WHERE row > 4");
    EXPECT_TRUE(records->EndOfFile());
  }
}

}  // namespace
}  // namespace tslm5
