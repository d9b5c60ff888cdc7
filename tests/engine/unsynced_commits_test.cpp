// Commits whose change is stored, but may be undone by a power loss: the folder cannot be synced.
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>

#include "engine/engine_fixture.h"
#include "engine/unsynced_folder.h"
#include "tslm5/engine/guarded_transactions.h"
#include "tslm5/engine/transaction.h"

namespace tslm5 {
namespace {

class UnsyncedCommits : public testing::Test {
 protected:
  UnsyncedCommits() {
    ConnectionOf(OpenRun(path_, Creating()))->Execute("CREATE TABLE t (a FLOAT)");
    unsynced_.emplace();
    connection_ = ConnectionOf(OpenRun(path_, Creating()));
  }

  void Insert(int value) {
    connection_->Execute("INSERT INTO t VALUES (" + std::to_string(value) + ")");
  }
  std::string Values() const { return Listed(connection_, "SELECT CAST(a AS INTEGER) FROM t"); }
  /// What the file holds, as another connection sees it.
  std::string StoredValues() const {
    return Listed(ConnectionOf(OpenRun(path_, Creating())), "SELECT CAST(a AS INTEGER) FROM t");
  }
  /// Expects `change` to be told as stored but unsynced.
  static void ExpectTold(const std::function<void()>& change, const std::string& statement) {
    const Error error = Raised(change);
    EXPECT_EQ(error.Number(), error_number::kStoredUnsynced);
    EXPECT_EQ(error.Source(), "TSLMRep5");
    EXPECT_EQ(error.Description(),
              "The change is stored, but the folder of the run could not be synced: a power loss"
              " may still undo it. [" +
                  statement + "]");
  }

  TempFolder folder_;
  std::string path_ = folder_.File("run.db");
  std::optional<UnsyncedFolder> unsynced_;
  Ref<IConnection> connection_;
};

TEST_F(UnsyncedCommits, AreToldAsStored) {
  connection_->BeginTrans();
  Insert(1);
  ExpectTold([&] { connection_->CommitTrans(); }, "COMMIT");
  EXPECT_EQ(Values(), "1");
  EXPECT_EQ(StoredValues(), "1");
}

TEST_F(UnsyncedCommits, EndTheTransaction) {
  connection_->BeginTrans();
  Insert(1);
  EXPECT_EQ(RaisedNumber([&] { connection_->CommitTrans(); }), error_number::kStoredUnsynced);
  EXPECT_EQ(RaisedNumber([&] { connection_->RollbackTrans(); }), error_number::kInvalidCall);
  connection_->BeginTrans();
  Insert(2);
  connection_->RollbackTrans();
  EXPECT_EQ(Values(), "1");
  EXPECT_EQ(StoredValues(), "1");
}

TEST_F(UnsyncedCommits, OfGuardedTransactionsToo) {
  const auto guarded = connection_.As<IGuardedTransactions>();
  const std::int64_t token = guarded->BeginGuarded();
  Insert(1);
  ExpectTold([&] { guarded->CommitGuarded(token); }, "COMMIT");
  guarded->RollbackGuarded(token);
  EXPECT_EQ(StoredValues(), "1");
}

TEST_F(UnsyncedCommits, OfStatementsToo) {
  ExpectTold([&] { Insert(1); }, "INSERT INTO t VALUES (1)");
  EXPECT_EQ(StoredValues(), "1");
  connection_->Execute("BEGIN");
  Insert(2);
  ExpectTold([&] { connection_->Execute("COMMIT"); }, "COMMIT");
  EXPECT_EQ(StoredValues(), "1 2");
  EXPECT_EQ(Values(), "1 2") << "statements run again";
}

TEST_F(UnsyncedCommits, OfRecordSetsLeaveNothingPending) {
  EXPECT_EQ(RaisedNumber([&] { Insert(1); }), error_number::kStoredUnsynced);
  const Ref<IRecordSet> records = connection_->OpenRecordSet("SELECT * FROM t");
  records->MoveTo(1, 0);
  records->SetField(0, 7.0);
  ExpectTold([&] { records->Update(); }, "COMMIT");
  EXPECT_EQ(StoredValues(), "7");
  EXPECT_EQ(RaisedNumber([&] { connection_->Execute("UPDATE t SET a = 8"); }),
            error_number::kStoredUnsynced);
  records->Update();
  EXPECT_EQ(Values(), "8");
  EXPECT_EQ(records->GetField(0).ToDouble(), 8.0);
}

}  // namespace
}  // namespace tslm5
