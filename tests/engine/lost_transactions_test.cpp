// Transactions that SQLite has rolled back by itself, and failures that nobody heeded.

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <functional>
#include <initializer_list>

#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

using testing::StartsWith;

constexpr const char* kLost = "The transaction was already rolled back by the database";

class LostTransactions : public FileEngineTest {
 protected:
  LostTransactions() { Execute("CREATE TABLE t (a INTEGER UNIQUE)"); }

  void Insert(int value) { Execute("INSERT INTO t VALUES (" + std::to_string(value) + ")"); }
  /// Makes the database roll back the open transaction.
  void Lose() {
    EXPECT_EQ(RaisedNumber([&] { Execute("INSERT OR ROLLBACK INTO t VALUES (0), (0)"); }), 2067);
  }
  std::string StoredValues() { return tslm5::Listed(OpenSecond(), "SELECT a FROM t ORDER BY a"); }
};

TEST_F(LostTransactions, RefuseEveryStatementUntilTheyAreEnded) {
  const auto records = connection_->OpenRecordSet("SELECT * FROM t");
  connection_->BeginTrans();
  Insert(1);
  const auto reader = connection_->ExecuteReader("SELECT a FROM t");
  Lose();
  double number = 0.0;
  for (const std::function<void()>& statement : std::initializer_list<std::function<void()>>{
           [&] { Insert(2); }, [&] { Listed("SELECT 1"); },
           [&] { connection_->OpenRecordSet("SELECT * FROM t"); },
           [&] { connection_->TableExists("t"); }, [&] { connection_->BeginTrans(); },
           [&] { records->ReadNumber(1, 0, &number); }, [&] { records->RecordCount(); },
           [&] { reader->Read(); }, [&] { connection_->CommitTrans(); },
           [&] { Execute("SELECT 1"); }}) {
    const Error error = Raised(statement);
    EXPECT_EQ(error.Number(), 516);
    EXPECT_THAT(error.Description(), StartsWith(kLost));
  }
  connection_->RollbackTrans();
  EXPECT_EQ(StoredValues(), "");
  Insert(3);
  EXPECT_EQ(records->RecordCount(), 1);
}

TEST_F(LostTransactions, TellTheirReason) {
  connection_->BeginTrans();
  Lose();
  EXPECT_EQ(Raised([&] { Insert(2); }).Description(),
            "The transaction was already rolled back by the database (UNIQUE constraint failed: t.a"
            " [INSERT OR ROLLBACK INTO t VALUES (0), (0)]); nothing more is run until it is ended"
            " by a rollback.");
  connection_->RollbackTrans();
}

TEST_F(LostTransactions, EndAsManyTimesAsTheyBegan) {
  connection_->BeginTrans();
  connection_->BeginTrans();
  Lose();
  connection_->RollbackTrans();
  EXPECT_EQ(RaisedNumber([&] { Insert(1); }), 516);
  EXPECT_EQ(RaisedNumber([&] { connection_->CommitTrans(); }), 516);
  connection_->RollbackTrans();
  EXPECT_EQ(RaisedNumber([&] { connection_->RollbackTrans(); }), error_number::kInvalidCall);
  Insert(1);
  EXPECT_EQ(StoredValues(), "1");
}

TEST_F(LostTransactions, ThatAStatementBeganAreEndedByOne) {
  Execute("BEGIN");
  Insert(1);
  Lose();
  EXPECT_EQ(RaisedNumber([&] { Insert(2); }), 516);
  EXPECT_EQ(RaisedNumber([&] { Execute("COMMIT"); }), 516);
  EXPECT_EQ(RaisedNumber([&] { Execute("BEGIN"); }), 516);
  Execute("ROLLBACK");
  EXPECT_EQ(StoredValues(), "");
  Insert(3);
  EXPECT_EQ(StoredValues(), "3");
}

TEST_F(LostTransactions, InsideOneThatAStatementBeganNeedBothEnds) {
  Execute("BEGIN");
  connection_->BeginTrans();
  Lose();
  connection_->RollbackTrans();
  EXPECT_EQ(RaisedNumber([&] { Insert(2); }), 516);
  Execute("ROLLBACK");
  Insert(3);
  EXPECT_EQ(StoredValues(), "3");
}

TEST_F(LostTransactions, DropWhatIsPending) {
  Insert(1);
  const auto records = connection_->OpenRecordSet("SELECT * FROM t");
  connection_->BeginTrans();
  Lose();
  EXPECT_EQ(RaisedNumber([&] { records->SetField(0, 5.0); }), 516);
  connection_->RollbackTrans();
  records->SetField(0, 6.0);
  records->Update();
  EXPECT_EQ(StoredValues(), "6");
}

TEST_F(LostTransactions, OnAFullDiskLetNothingRunOutside) {
  Execute("CREATE TABLE big (a TEXT)");
  Execute("PRAGMA max_page_count = 20");
  connection_->BeginTrans();
  Insert(1);
  const Error full = Raised([&] {
    for (int i = 0; i < 100; ++i) Execute("INSERT INTO big VALUES (hex(zeroblob(4000)))");
  });
  EXPECT_EQ(full.Number(), 13);
  EXPECT_NE(RaisedNumber([&] { connection_->CommitTrans(); }), 0);
  connection_->RollbackTrans();
  EXPECT_EQ(StoredValues(), "");
}

TEST_F(LostTransactions, OfStatementsAloneAreNone) {
  EXPECT_EQ(RaisedNumber([&] { Execute("INSERT OR ROLLBACK INTO t VALUES (0), (0)"); }), 2067);
  Insert(1);
  EXPECT_EQ(StoredValues(), "1");
}

/// A connection whose questions fail for want of memory.
class UnheededFailures : public LostTransactions {
 protected:
  /// A question that fails, and that somebody takes for a "no".
  void FailUnheeded() {
    const std::int64_t before = sqlite3_hard_heap_limit64(sqlite3_memory_used());
    const std::int32_t number = RaisedNumber([&] { connection_->TableExists("t"); });
    sqlite3_hard_heap_limit64(before);
    EXPECT_EQ(number, 7);
  }
};

TEST_F(UnheededFailures, ForbidTheCommit) {
  connection_->BeginTrans();
  Insert(1);
  FailUnheeded();
  Insert(2);
  const Error error = Raised([&] { connection_->CommitTrans(); });
  EXPECT_EQ(error.Number(), 7);
  EXPECT_EQ(error.Source(), "CommitTrans");
  EXPECT_THAT(error.Description(),
              StartsWith("The transaction cannot be committed, because a failure in it went"
                         " unheeded: out of memory"));
  connection_->RollbackTrans();
  EXPECT_EQ(StoredValues(), "");
}

TEST_F(UnheededFailures, ThatWereUndoneWithTheirTransactionForbidNothing) {
  connection_->BeginTrans();
  Insert(1);
  connection_->BeginTrans();
  Insert(2);
  FailUnheeded();
  EXPECT_EQ(RaisedNumber([&] { connection_->CommitTrans(); }), 7);
  connection_->RollbackTrans();
  connection_->CommitTrans();
  EXPECT_EQ(StoredValues(), "1");
}

TEST_F(UnheededFailures, OutsideOfATransactionForbidNothing) {
  FailUnheeded();
  connection_->BeginTrans();
  Insert(1);
  connection_->CommitTrans();
  EXPECT_EQ(StoredValues(), "1");
}

TEST_F(UnheededFailures, OfAnOrdinaryKindForbidNothing) {
  connection_->BeginTrans();
  Insert(1);
  EXPECT_EQ(RaisedNumber([&] { Insert(1); }), 2067);
  EXPECT_EQ(RaisedNumber([&] { Listed("SELECT a FROM absent"); }), 1);
  connection_->CommitTrans();
  EXPECT_EQ(StoredValues(), "1");
}

}  // namespace
}  // namespace tslm5
