// Pending changes of a record set that their table refuses.

#include <gmock/gmock.h>

#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

class RefusedChanges : public FileEngineTest {
 protected:
  RefusedChanges() {
    Execute("CREATE TABLE t (a FLOAT CHECK (a < 100), b FLOAT, row INTEGER PRIMARY KEY)");
    Execute("INSERT INTO t VALUES (1, 10, 1), (2, 20, 2), (3, 30, 3)");
    records_ = connection_->OpenRecordSet("SELECT * FROM t");
  }

  void Set(int record, int field, double value) {
    records_->MoveTo(record, 0);
    records_->SetField(field, value);
  }
  std::string Values() { return Listed("SELECT a || ' ' || b FROM t ORDER BY row"); }

  Ref<IRecordSet> records_;
};

TEST_F(RefusedChanges, AreDroppedWithTheErrorOnce) {
  Set(2, 0, 500.0);
  const Error error = Raised([&] { Listed("SELECT 1"); });
  EXPECT_EQ(error.Number(), 275);
  EXPECT_EQ(error.Description(),
            "CHECK constraint failed: a < 100 [UPDATE \"t\" SET \"a\" = ?1 WHERE rowid = ?2]; the"
            " change of \"t\".\"a\" in the record with key 2 to 500 is dropped");
  EXPECT_EQ(Values(), "1.0 10.0 2.0 20.0 3.0 30.0");
  EXPECT_EQ(records_->GetField(0), Variant(2.0));
  EXPECT_EQ(RaisedNumber([&] { records_->Close(); }), 0);
}

TEST_F(RefusedChanges, LeaveTheOthersPending) {
  Set(1, 1, 11.0);
  Set(2, 0, 500.0);
  Set(2, 0, 600.0);
  Set(3, 0, 33.0);
  EXPECT_EQ(RaisedNumber([&] { records_->Update(); }), 275);
  EXPECT_EQ(Values(), "1.0 11.0 2.0 20.0 33.0 30.0");
}

TEST_F(RefusedChanges, AreToldOneByOne) {
  Set(1, 0, 500.0);
  Set(2, 0, 600.0);
  EXPECT_EQ(RaisedNumber([&] { Listed("SELECT 1"); }), 275);
  EXPECT_EQ(RaisedNumber([&] { Listed("SELECT 1"); }), 275);
  EXPECT_EQ(Listed("SELECT 1"), "1");
}

TEST_F(RefusedChanges, GoWithTheirRecordSetAndTheOthersAreWritten) {
  Set(1, 0, 500.0);
  Set(2, 0, 22.0);
  records_.Reset();
  EXPECT_EQ(Values(), "1.0 10.0 22.0 20.0 3.0 30.0");
}

TEST_F(RefusedChanges, ThatGoWithTheirRecordSetForbidTheCommit) {
  connection_->BeginTrans();
  Set(1, 0, 500.0);
  records_.Reset();
  EXPECT_EQ(RaisedNumber([&] { connection_->CommitTrans(); }), 275);
  connection_->RollbackTrans();
  EXPECT_EQ(Values(), "1.0 10.0 2.0 20.0 3.0 30.0");
}

TEST_F(RefusedChanges, OfATableThatIsGoneAreDroppedTogether) {
  Set(1, 0, 5.0);
  Set(2, 0, 6.0);
  OpenSecond()->Execute("DROP TABLE t");
  EXPECT_EQ(RaisedNumber([&] { Listed("SELECT 1"); }), 1);
  EXPECT_EQ(Listed("SELECT 1"), "1");
}

TEST_F(RefusedChanges, ByATriggerAreDropped) {
  Execute("CREATE TRIGGER g BEFORE UPDATE ON t BEGIN SELECT RAISE(ABORT, 'never'); END");
  Set(1, 0, 8.0);
  EXPECT_EQ(RaisedNumber([&] { Execute("DELETE FROM t WHERE row = 3"); }), 1811);
  Execute("DELETE FROM t WHERE row = 3");
  EXPECT_EQ(Values(), "1.0 10.0 2.0 20.0");
}

TEST_F(RefusedChanges, OfARunOpenedForReadingFailAtOnce) {
  RunOptions options;
  options.mode = RunOptions::Mode::kReadOnly;
  const auto reading = ConnectionOf(OpenRun(path_, options));
  const auto records = reading->OpenRecordSet("SELECT * FROM t");
  const Error error = Raised([&] { records->SetField(0, 5.0); });
  EXPECT_EQ(error.Number(), 8);
  EXPECT_EQ(error.Description(),
            "table \"t\" cannot be written: the run was opened for reading only");
  EXPECT_EQ(records->GetField(0), Variant(1.0));
  EXPECT_EQ(RaisedNumber([&] { records->Close(); }), 0);
}

}  // namespace
}  // namespace tslm5
