// What becomes of appended records when the disk is full or the program dies.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>

#include "engine/bulk_way.h"
#include "engine/engine_fixture.h"
#include "tslm5/engine/guarded_transactions.h"
#include "tslm5/engine/record_appender.h"
#include "tslm5/engine/run_recovery.h"

namespace tslm5 {
namespace {

constexpr const char* kFigures = "SELECT count(*) || ' ' || coalesce(sum(a), 0) FROM n";

class AppendFailures : public FileEngineTest {
 protected:
  AppendFailures() {
    Execute("CREATE TABLE n (a FLOAT, b FLOAT, row INTEGER PRIMARY KEY)");
    Execute("INSERT INTO n VALUES (7, 8, 1)");
  }

  Ref<IRecordAppender> Appender() { return connection_.As<IRecordAppending>()->OpenAppender("n"); }
  /// A statement that inserts one record takes the transaction along when the disk is full.
  static int AtCommit() { return IsBulkSwitchedOff() ? 516 : 13; }
  static void AppendMany(IRecordAppender& appender, int first, int count) {
    for (int key = first; key < first + count; ++key) {
      const double numbers[] = {key + 0.25, key + 0.5};
      appender.AppendNumbers(numbers, key);
    }
  }
};

TEST_F(AppendFailures, AFullDiskKeepsTheTransactionFromBeingCommitted) {
  Execute("PRAGMA max_page_count = 40");
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender();
  AppendMany(*appender, 2, 20000);
  EXPECT_EQ(RaisedNumber([&] { appender->Flush(); }), 13);
  EXPECT_EQ(RaisedNumber([&] { connection_->CommitTrans(); }), AtCommit());
  connection_->RollbackTrans();
  EXPECT_EQ(Listed(kFigures), "1 7.0");
  EXPECT_EQ(Listed("PRAGMA integrity_check"), "ok");
}

TEST_F(AppendFailures, AFullDiskIsToldByTheStatementThatFollows) {
  Execute("PRAGMA max_page_count = 40");
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender();
  AppendMany(*appender, 2, 20000);
  EXPECT_EQ(RaisedNumber([&] { Listed("SELECT 1"); }), 13);
  EXPECT_EQ(RaisedNumber([&] { connection_->CommitTrans(); }), AtCommit());
  connection_->RollbackTrans();
}

TEST_F(AppendFailures, AFullDiskOfATransactionInsideLeavesTheOuterOneUsable) {
  if (IsBulkSwitchedOff()) GTEST_SKIP() << "the outer one is lost";
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender();
  AppendMany(*appender, 2, 500);
  const Ref<IGuardedTransactions> guarded = connection_.As<IGuardedTransactions>();
  const std::int64_t token = guarded->BeginGuarded();
  Execute("PRAGMA max_page_count = 40");
  AppendMany(*appender, 502, 20000);
  EXPECT_EQ(RaisedNumber([&] { guarded->CommitGuarded(token); }), 13);
  guarded->RollbackGuarded(token);
  AppendMany(*appender, 502, 10);
  connection_->CommitTrans();
  EXPECT_EQ(Listed("SELECT count(*) FROM n WHERE b = a + 0.25"), "510");
}

TEST_F(AppendFailures, AnAppenderLetGoOnAFullDiskKeepsTheTransactionFromBeingCommitted) {
  Execute("PRAGMA max_page_count = 40");
  connection_->BeginTrans();
  AppendMany(*Appender(), 2, 20000);
  EXPECT_EQ(RaisedNumber([&] { connection_->CommitTrans(); }), AtCommit());
  connection_->RollbackTrans();
  EXPECT_EQ(Listed(kFigures), "1 7.0");
}

TEST_F(AppendFailures, AProgramThatDiesLeavesTheRunAsItWas) {
  Execute("PRAGMA cache_size = 10");  // pages reach the file before the commit
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender();
  AppendMany(*appender, 2, 50000);
  appender->Flush();
  EXPECT_EQ(WasTransferred(*connection_), !IsBulkSwitchedOff());
  const std::string left = folder_.File("left.db");
  for (const char* ending : {"-journal", ""}) {
    std::filesystem::copy_file(path_ + ending, left + ending);
  }
  EXPECT_GT(std::filesystem::file_size(left), 500000U);
  const Ref<IConnectionService> run = OpenRun(left, Creating());
  EXPECT_TRUE(Query<IRunRecovery>(run.get())->WasRecovered());
  EXPECT_EQ(tslm5::Listed(ConnectionOf(run), kFigures), "1 7.0");
  EXPECT_EQ(tslm5::Listed(ConnectionOf(run), "PRAGMA integrity_check"), "ok");
  connection_->RollbackTrans();
}

TEST_F(AppendFailures, ShortMemoryLosesNoRecordInSilence) {
  constexpr sqlite3_int64 kStep = 16 * 1024;
  bool has_failed = false;
  bool has_succeeded = false;
  for (sqlite3_int64 room = 0; !has_succeeded && room < 400 * kStep; room += kStep) {
    SCOPED_TRACE(room);
    Ref<IRecordAppender> appender;
    connection_->BeginTrans();
    sqlite3_hard_heap_limit64(sqlite3_memory_used() + room);
    const int number = RaisedNumber([&] {
      appender = Appender();
      AppendMany(*appender, 2, 5000);
      appender->Flush();
    });
    sqlite3_hard_heap_limit64(0);
    appender.Reset();
    if (number == 0) {
      connection_->CommitTrans();
      EXPECT_EQ(Listed("SELECT count(*) FROM n"), "5001");
      has_succeeded = true;
    } else {
      EXPECT_EQ(number & 0xFF, 7);
      EXPECT_NE(RaisedNumber([&] { connection_->CommitTrans(); }), 0);
      connection_->RollbackTrans();
      EXPECT_EQ(Listed(kFigures), "1 7.0");
      has_failed = true;
    }
  }
  EXPECT_TRUE(has_failed);
  EXPECT_TRUE(has_succeeded);
  EXPECT_EQ(Listed("PRAGMA integrity_check"), "ok");
}

TEST_F(AppendFailures, ATransactionThatTheDatabaseLostTakesTheRecordsAlong) {
  Execute("CREATE TABLE u (a INTEGER UNIQUE)");
  connection_->BeginTrans();
  Ref<IRecordAppender> appender = Appender();
  EXPECT_EQ(RaisedNumber([&] { Execute("INSERT OR ROLLBACK INTO u VALUES (0), (0)"); }), 2067);
  EXPECT_EQ(RaisedNumber([&] { AppendMany(*appender, 2, 1); }), 516);
  appender.Reset();
  connection_->RollbackTrans();
  EXPECT_EQ(Listed(kFigures), "1 7.0");
}

}  // namespace
}  // namespace tslm5
