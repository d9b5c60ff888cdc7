#include "tslm5/engine/record_appender.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "engine/bulk_way.h"
#include "engine/engine_fixture.h"
#include "platform/raised.h"
#include "tslm5/engine/guarded_transactions.h"

namespace tslm5 {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

class RecordAppender : public EngineTest {
 protected:
  RecordAppender() {
    Execute("CREATE TABLE n (a FLOAT, b FLOAT, row INTEGER PRIMARY KEY)");
    Execute("CREATE TABLE x (a TEXT, row INTEGER PRIMARY KEY, b FLOAT)");
  }

  Ref<IRecordAppender> Appender(std::string_view table) {
    return connection_.As<IRecordAppending>()->OpenAppender(table);
  }
  /// Enough records for a transfer: keys from `first` on, the second number twice the first.
  static void AppendMany(IRecordAppender& appender, int first, int count) {
    for (int key = first; key < first + count; ++key) {
      const double numbers[] = {key / 4.0, key / 2.0};
      appender.AppendNumbers(numbers, key);
    }
  }
  std::string CountAndSum() {
    return Listed("SELECT count(*) || ' ' || coalesce(sum(a), 0) FROM n WHERE b = 2 * a");
  }
};

RecordCell Text(std::string_view text) {
  return {RecordCell::Kind::kText, 0.0, text};
}
RecordCell Number(double number) {
  return {RecordCell::Kind::kNumber, number, {}};
}

TEST_F(RecordAppender, AppendsManyRecordsInOneTransfer) {
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender("n");
  EXPECT_EQ(appender->TypeName(), "RecordAppender");
  EXPECT_EQ(appender->Columns(), 2);
  AppendMany(*appender, 1, 1000);
  EXPECT_EQ(CountAndSum(), "1000 125125.0");
  EXPECT_EQ(WasTransferred(*connection_), !IsBulkSwitchedOff());
  connection_->CommitTrans();
  EXPECT_EQ(CountAndSum(), "1000 125125.0");
  EXPECT_EQ(Listed("PRAGMA integrity_check"), "ok");
}

TEST_F(RecordAppender, LeavesNothingAttachedBehindATransaction) {
  connection_->BeginTrans();
  AppendMany(*Appender("n"), 1, 1000);
  connection_->CommitTrans();
  EXPECT_FALSE(WasTransferred(*connection_));
  connection_->BeginTrans();
  AppendMany(*Appender("n"), 2000, 1000);
  connection_->RollbackTrans();
  EXPECT_FALSE(WasTransferred(*connection_));
  Execute("BEGIN");
  Execute("DELETE FROM n");
  AppendMany(*Appender("n"), 1, 1000);
  Execute("COMMIT");
  EXPECT_FALSE(WasTransferred(*connection_));
}

TEST_F(RecordAppender, BindsFewRecords) {
  connection_->BeginTrans();
  AppendMany(*Appender("n"), 1, 20);
  EXPECT_EQ(CountAndSum(), "20 52.5");
  EXPECT_FALSE(WasTransferred(*connection_));
  connection_->CommitTrans();
}

TEST_F(RecordAppender, TakesNoNameButThatOfATableWithAKey) {
  Execute("CREATE TABLE keyless (a FLOAT)");
  Execute("CREATE TABLE texts (a FLOAT, row TEXT PRIMARY KEY)");
  Execute("CREATE TABLE bare (a FLOAT, row INTEGER PRIMARY KEY) WITHOUT ROWID");
  Execute("CREATE VIEW v AS SELECT * FROM n");
  for (const char* name : {"keyless", "texts", "bare", "v", "absent", "", "sqlite_master"}) {
    EXPECT_FALSE(Appender(name)) << name;
  }
  EXPECT_TRUE(Appender("N"));
}

TEST_F(RecordAppender, PutsTheKeyWhereItsColumnStands) {
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender("x");
  for (int key = 1; key <= 200; ++key) {
    const std::string text = "t" + std::to_string(key);
    const RecordCell cells[] = {Text(text), Number(key + 0.5)};
    appender->AppendCells(cells, key);
  }
  EXPECT_EQ(Listed("SELECT count(*) FROM x WHERE a = 't' || row AND b = row + 0.5"), "200");
  EXPECT_EQ(WasTransferred(*connection_), !IsBulkSwitchedOff());
  connection_->CommitTrans();
}

TEST_F(RecordAppender, StoresNanAndNullAsNull) {
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender("n");
  const double numbers[] = {kNan, 3};
  appender->AppendNumbers(numbers, 1);
  const RecordCell cells[] = {RecordCell{}, Number(kNan)};
  appender->AppendCells(cells, 2);
  EXPECT_EQ(Listed("SELECT typeof(a) || typeof(b) FROM n"), "nullreal nullnull");
  connection_->CommitTrans();
}

TEST_F(RecordAppender, RefusesAnInfinityAndKeepsTheOthers) {
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender("n");
  AppendMany(*appender, 1, 100);
  const double numbers[] = {1, -std::numeric_limits<double>::infinity()};
  const Error raised = Raised([&] { appender->AppendNumbers(numbers, 101); });
  EXPECT_EQ(raised.Number(), 6);
  EXPECT_EQ(raised.Description(), "An infinite number cannot be stored.");
  const RecordCell cells[] = {Number(numbers[1]), Number(1)};
  EXPECT_EQ(Raised([&] { appender->AppendCells(cells, 101); }).Number(), 6);
  connection_->CommitTrans();
  EXPECT_EQ(CountAndSum(), "100 1262.5");
}

TEST_F(RecordAppender, RefusesATextWithANulCharacter) {
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender("x");
  const RecordCell cells[] = {Text(std::string_view("a\0b", 3)), Number(1)};
  const Error raised = Raised([&] { appender->AppendCells(cells, 1); });
  EXPECT_EQ(raised.Number(), 1);
  EXPECT_EQ(raised.Description(), "the text holds a NUL character [a b]");
  connection_->CommitTrans();
  EXPECT_EQ(Listed("SELECT count(*) FROM x"), "0");
}

TEST_F(RecordAppender, RefusesAnotherNumberOfCells) {
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender("n");
  const double one[] = {1};
  const Error raised = Raised([&] { appender->AppendNumbers(one, 1); });
  EXPECT_EQ(raised.Number(), 1);
  EXPECT_EQ(raised.Description(), "table n has 3 columns but 2 values were supplied");
  const RecordCell three[3] = {};
  EXPECT_EQ(Raised([&] { appender->AppendCells(three, 1); }).Description(),
            "table n has 3 columns but 4 values were supplied");
  connection_->RollbackTrans();
}

TEST_F(RecordAppender, ConvertsAsAnInsertDoes) {
  connection_->BeginTrans();
  Execute("CREATE TABLE any (i INTEGER, n NUMERIC, r FLOAT, t TEXT, b, row INTEGER PRIMARY KEY)");
  const Ref<IRecordAppender> appender = Appender("any");
  for (int key = 1; key <= 100; ++key) {
    const RecordCell cells[] = {Number(2), Text("4.5"), Text(" 7 "), Number(8), Number(9)};
    appender->AppendCells(cells, key);
  }
  EXPECT_EQ(Listed("SELECT DISTINCT quote(i) || ' ' || quote(n) || ' ' || quote(r) || ' ' ||"
                   " quote(t) || ' ' || quote(b) FROM any"),
            "2 4.5 7.0 '8.0' 9.0");
  connection_->RollbackTrans();
}

TEST_F(RecordAppender, AppendsOutsideATransactionAsStatementsDo) {
  const Ref<IRecordAppender> appender = Appender("n");
  AppendMany(*appender, 1, 100);
  connection_->BeginTrans();
  connection_->RollbackTrans();
  EXPECT_EQ(CountAndSum(), "100 1262.5");
}

TEST_F(RecordAppender, NamesTheRecordWhoseKeyIsTaken) {
  AppendMany(*Appender("n"), 50, 1);
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender("n");
  AppendMany(*appender, 51, 100);
  const double numbers[] = {1, 2};
  const Error raised = Raised([&] { appender->AppendNumbers(numbers, 50); });
  EXPECT_EQ(raised.Number(), 1555);
  EXPECT_EQ(raised.Description(),
            "UNIQUE constraint failed: n.row [INSERT INTO main.\"n\" VALUES (?,?,?)]; the record"
            " with key 50 of table n");
  AppendMany(*appender, 151, 100);
  connection_->CommitTrans();
  EXPECT_EQ(Listed("SELECT count(*) FROM n WHERE b = 2 * a"), "201");
}

TEST_F(RecordAppender, TakesKeysInAnyOrder) {
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender("n");
  AppendMany(*appender, 1000, 200);
  AppendMany(*appender, 1, 200);
  AppendMany(*appender, -500, 200);
  AppendMany(*appender, 5000, 200);
  connection_->CommitTrans();
  EXPECT_EQ(
      Listed("SELECT count(*) || ' ' || min(row) || ' ' || max(row) FROM n WHERE a * 4 = row"),
      "800 -500 5199");
  EXPECT_EQ(Listed("PRAGMA integrity_check"), "ok");
}

TEST_F(RecordAppender, IsSeenByAStatementAtOnce) {
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender("n");
  AppendMany(*appender, 1, 10);
  Execute("UPDATE n SET a = -a, b = -b WHERE row <= 20");
  AppendMany(*appender, 11, 10);
  EXPECT_EQ(Listed("SELECT sum(row) FROM n WHERE a < 0"), "55");
  connection_->CommitTrans();
}

TEST_F(RecordAppender, IsSeenByARecordSetThatIsOpen) {
  connection_->BeginTrans();
  const Ref<IRecordSet> records = Open("SELECT * FROM n");
  EXPECT_EQ(records->RecordCount(), 0);
  const Ref<IRecordAppender> appender = Appender("n");
  AppendMany(*appender, 1, 5);
  EXPECT_EQ(records->RecordCount(), 5);
  AppendMany(*appender, 6, 500);
  double value = 0;
  EXPECT_TRUE(records->ReadNumber(500, 0, &value));
  EXPECT_EQ(value, 125);
  connection_->RollbackTrans();
  EXPECT_EQ(records->RecordCount(), 0);
}

TEST_F(RecordAppender, IsSeenByAReaderThatIsOpen) {
  AppendMany(*Appender("n"), 1, 1);
  connection_->BeginTrans();
  const Ref<IDataReader> reader = connection_->ExecuteReader("SELECT row FROM n");
  ASSERT_TRUE(reader->Read());
  const Ref<IRecordAppender> appender = Appender("n");
  AppendMany(*appender, 2, 100);
  int last = 0;
  while (reader->Read()) last = reader->GetInteger(0);
  EXPECT_EQ(last, 101);
  connection_->RollbackTrans();
}

TEST_F(RecordAppender, WritesThePendingChangesOfRecordSetsFirst) {
  AppendMany(*Appender("n"), 1, 3);
  Execute("CREATE TABLE log (a FLOAT)");
  Execute(
      "CREATE TRIGGER g AFTER INSERT ON n BEGIN"
      " INSERT INTO log SELECT a FROM n WHERE row = 2; END");
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender("n");
  const Ref<IRecordSet> records = Open("SELECT * FROM n");
  records->MoveTo(2, 0);
  records->SetField(0, 77.0);
  AppendMany(*appender, 4, 1);
  EXPECT_EQ(Listed("SELECT a FROM log"), "77");
  connection_->CommitTrans();
}

TEST_F(RecordAppender, FeedsTwoTablesInTurn) {
  connection_->BeginTrans();
  const Ref<IRecordAppender> numbers = Appender("n");
  const Ref<IRecordAppender> texts = Appender("x");
  for (int key = 1; key <= 5000; ++key) {
    AppendMany(*numbers, key, 1);
    const std::string text(static_cast<std::size_t>(key % 50), 'w');
    const RecordCell cells[] = {Text(text), RecordCell{}};
    texts->AppendCells(cells, key);
  }
  connection_->CommitTrans();
  EXPECT_EQ(Listed("SELECT count(*) FROM n JOIN x ON n.row = x.row AND length(x.a) = n.row % 50"
                   " AND n.a * 4 = n.row"),
            "5000");
}

TEST_F(RecordAppender, LetsTwoAppendersFillOneTable) {
  connection_->BeginTrans();
  const Ref<IRecordAppender> one = Appender("n");
  const Ref<IRecordAppender> other = Appender("n");
  AppendMany(*one, 1, 300);
  AppendMany(*other, 1000, 300);
  AppendMany(*one, 301, 300);
  EXPECT_EQ(Raised([&] { AppendMany(*other, 300, 1); }).Number(), 1555);
  connection_->CommitTrans();
  EXPECT_EQ(Listed("SELECT count(*) FROM n"), "900");
}

TEST_F(RecordAppender, DropsWithARollbackWhatItUndoes) {
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender("n");
  AppendMany(*appender, 1, 200);
  connection_->BeginTrans();
  AppendMany(*appender, 201, 200);
  connection_->RollbackTrans();
  AppendMany(*appender, 201, 7);
  connection_->CommitTrans();
  EXPECT_EQ(Listed("SELECT count(*) FROM n WHERE a * 4 = row"), "207");
}

TEST_F(RecordAppender, KeepsWithACommitInsideWhatWasAppendedThere) {
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender("n");
  AppendMany(*appender, 1, 200);
  const Ref<IGuardedTransactions> guarded = connection_.As<IGuardedTransactions>();
  const std::int64_t token = guarded->BeginGuarded();
  AppendMany(*appender, 201, 200);
  guarded->CommitGuarded(token);
  connection_->CommitTrans();
  EXPECT_EQ(Listed("SELECT count(*) FROM n WHERE a * 4 = row"), "400");
}

TEST_F(RecordAppender, GoesOnInATableThatWasMadeAnew) {
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender("n");
  AppendMany(*appender, 1, 200);
  Execute("DROP TABLE n");
  Execute("CREATE TABLE n (row INTEGER PRIMARY KEY, a FLOAT, b FLOAT)");
  AppendMany(*appender, 1, 100);
  EXPECT_EQ(Listed("SELECT count(*) FROM n WHERE a * 4 = row"), "100");
  Execute("DROP TABLE n");
  const Error raised = Raised([&] { AppendMany(*appender, 1, 1); });
  EXPECT_EQ(raised.Number(), 1);
  EXPECT_EQ(raised.Description(), "no such table with a key: n");
  connection_->RollbackTrans();
}

TEST_F(RecordAppender, FiresTriggersAndFillsIndexes) {
  Execute("CREATE TABLE log (row INTEGER)");
  Execute("CREATE TRIGGER g AFTER INSERT ON n BEGIN INSERT INTO log VALUES (new.row); END");
  Execute("CREATE INDEX i ON n (a)");
  connection_->BeginTrans();
  AppendMany(*Appender("n"), 1, 300);
  connection_->CommitTrans();
  EXPECT_EQ(Listed("SELECT count(*) FROM log"), "300");
  EXPECT_EQ(Listed("SELECT count(*) FROM n INDEXED BY i WHERE a > 0"), "300");
  EXPECT_EQ(Listed("PRAGMA integrity_check"), "ok");
}

TEST_F(RecordAppender, KeepsConstraints) {
  Execute("CREATE TABLE c (a FLOAT CHECK (a < 10), row INTEGER PRIMARY KEY)");
  Execute("CREATE TABLE f (a FLOAT NOT NULL, row INTEGER PRIMARY KEY)");
  Execute("CREATE TABLE g (a FLOAT, row INTEGER PRIMARY KEY ON CONFLICT REPLACE)");
  connection_->BeginTrans();
  const Ref<IRecordAppender> checked = Appender("c");
  const Ref<IRecordAppender> filled = Appender("f");
  const double ten[] = {10};
  const double none[] = {kNan};
  EXPECT_EQ(Raised([&] { checked->AppendNumbers(ten, 1); }).Number(), 275);
  EXPECT_EQ(Raised([&] { filled->AppendNumbers(none, 1); }).Number(), 1299);
  const Ref<IRecordAppender> replacing = Appender("g");
  for (int i = 0; i < 200; ++i) replacing->AppendNumbers(ten, 1 + i % 100);
  connection_->CommitTrans();
  EXPECT_EQ(Listed("SELECT count(*) FROM g"), "100");
}

TEST_F(RecordAppender, KeepsWhatItAppendedWhenItIsLetGo) {
  connection_->BeginTrans();
  AppendMany(*Appender("n"), 1, 300);
  connection_->CommitTrans();
  EXPECT_EQ(Listed("SELECT count(*) FROM n"), "300");
}

TEST_F(RecordAppender, OutlivesTheRun) {
  connection_->BeginTrans();
  const Ref<IRecordAppender> appender = Appender("n");
  AppendMany(*appender, 1, 300);
  connection_.Reset();
  AppendMany(*appender, 301, 300);
  appender->Flush();
  EXPECT_EQ(appender->Columns(), 2);
}

TEST_F(RecordAppender, AppendsToARunThatManySchemasAreAttachedTo) {
  for (int i = 0; i < 10; ++i) Execute("ATTACH ':memory:' AS s" + std::to_string(i));
  connection_->BeginTrans();
  AppendMany(*Appender("n"), 1, 1000);
  connection_->CommitTrans();
  EXPECT_EQ(CountAndSum(), "1000 125125.0");
}

using RecordAppenderOfFile = FileEngineTest;

TEST_F(RecordAppenderOfFile, WaitsForTheWriteLockBeforeItCollects) {
  Execute("CREATE TABLE n (a FLOAT, row INTEGER PRIMARY KEY)");
  const Ref<IConnection> second = OpenSecond();
  Execute("BEGIN");
  const Ref<IRecordAppender> appender =
      connection_.As<IRecordAppending>()->OpenAppender("n");  // reads, and locks for that alone
  second->BeginTrans();
  const double one[] = {1};
  EXPECT_EQ(Raised([&] { appender->AppendNumbers(one, 1); }).Number() & 0xFF, 5);  // busy
  second->RollbackTrans();
  for (int key = 1; key <= 100; ++key) appender->AppendNumbers(one, key);
  Execute("COMMIT");
  EXPECT_EQ(Listed("SELECT count(*) FROM n"), "100");
}

TEST_F(RecordAppenderOfFile, RefusesARunThatIsOpenedForReading) {
  Execute("CREATE TABLE n (a FLOAT, row INTEGER PRIMARY KEY)");
  RunOptions reading;
  reading.mode = RunOptions::Mode::kReadOnly;
  const Ref<IConnection> second = ConnectionOf(OpenRun(path_, reading));
  const Ref<IRecordAppender> appender = second.As<IRecordAppending>()->OpenAppender("n");
  const double one[] = {1};
  EXPECT_EQ(Raised([&] { appender->AppendNumbers(one, 1); }).Number(), 8);
}

}  // namespace
}  // namespace tslm5
