#include <gmock/gmock.h>

#include <chrono>
#include <thread>

#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

using std::string_view_literals::operator""sv;
using testing::HasSubstr;
using testing::StartsWith;

class RunConnectionTest : public EngineTest {
 protected:
  RunConnectionTest() {
    Execute("CREATE TABLE t (a FLOAT, row INTEGER PRIMARY KEY)");
    Execute("INSERT INTO t VALUES (1.5, 1)");
  }
};

TEST_F(RunConnectionTest, RunsOneStatementWithWhateverIsNoStatementAfterIt) {
  for (const char* after :
       {"", ";", " ; ", ";\n\t\r\f", " -- done", "; -- done; DELETE FROM t", ";/* done; */ ",
        "; /* never ended", "; /*/ DELETE */", "; -- a\n-- b\n/**/"}) {
    const std::string sql = "UPDATE t SET a = a + 1" + std::string(after);
    EXPECT_EQ(RaisedNumber([&] { Execute(sql); }), 0) << sql;
  }
  EXPECT_EQ(Listed("SELECT a FROM t"), "11.5");
}

TEST_F(RunConnectionTest, RefusesASecondStatementAndRunsNeither) {
  for (const char* sql :
       {"DELETE FROM t; DELETE FROM t", "DELETE FROM t; x",
        "INSERT INTO t VALUES (2, 2); DROP TABLE t", "DELETE FROM t; -- a\nDROP TABLE t",
        "DELETE FROM t; /* a */ DROP TABLE t", "DELETE FROM t;;;;", "DELETE FROM t; /"}) {
    const Error error = Raised([&] { Execute(sql); });
    EXPECT_EQ(error.Number(), 1) << sql;
    EXPECT_THAT(error.Description(), StartsWith("only one statement can be run at a time"));
    EXPECT_EQ(RaisedNumber([&] { connection_->ExecuteReader(sql); }), 1) << sql;
    EXPECT_EQ(RaisedNumber([&] { connection_->OpenRecordSet(sql); }), 1) << sql;
  }
  EXPECT_EQ(Listed("SELECT a FROM t"), "1.5");
}

TEST_F(RunConnectionTest, RefusesAnEmptyStatement) {
  for (const std::string_view sql :
       {std::string_view(), ""sv, "  \n"sv, ";"sv, "-- nothing"sv, "/* nothing */;"sv}) {
    EXPECT_EQ(RaisedNumber([&] { Execute(sql); }), 1) << sql;
    EXPECT_EQ(RaisedNumber([&] { connection_->ExecuteReader(sql); }), 1) << sql;
    EXPECT_EQ(RaisedNumber([&] { connection_->OpenRecordSet(sql); }), 1) << sql;
  }
}

TEST_F(RunConnectionTest, RefusesANulCharacter) {
  for (const std::string_view sql :
       {"DELETE FROM t\0 WHERE a = 9"sv, "INSERT INTO t VALUES ('a\0b', 2)"sv,
        "INSERT INTO t VALUES (2, 2)\0"sv}) {
    const Error error = Raised([&] { Execute(sql); });
    EXPECT_EQ(error.Number(), 1);
    EXPECT_THAT(error.Description(), StartsWith("the statement holds a NUL character"));
  }
  EXPECT_EQ(Listed("SELECT a FROM t"), "1.5");
}

TEST_F(RunConnectionTest, TakesAViewThatEndsWithTheStatement) {
  const std::string_view insert = "INSERT INTO t VALUES (2, 2)', 999); garbage";
  Execute(insert.substr(0, insert.find('\'')));
  const std::string_view update = "UPDATE t SET a = 71 garbage";
  Execute(update.substr(0, update.find('1')));
  EXPECT_EQ(Listed("SELECT a FROM t"), "7 7");
}

TEST_F(RunConnectionTest, TakesNoDoubleQuotedTextForAString) {
  for (const char* sql : {"UPDATE t SET a = \"nine\"", "INSERT INTO t VALUES (\"nine\", 2)",
                          "CREATE INDEX i ON t (\"nine\")"}) {
    EXPECT_THAT(Raised([&] { Execute(sql); }).Description(), HasSubstr("nine")) << sql;
    EXPECT_EQ(RaisedNumber([&] { Execute(sql); }), 1) << sql;
  }
  EXPECT_EQ(RaisedNumber([&] { connection_->ExecuteReader("SELECT \"nine\" FROM t"); }), 1);
  Execute("UPDATE \"t\" SET \"a\" = 3");
  EXPECT_EQ(Listed("SELECT a FROM t"), "3");
}

TEST_F(RunConnectionTest, RaisesTheExtendedCodeTheTextAndTheStatement) {
  Execute("CREATE TABLE c (k TEXT PRIMARY KEY, u UNIQUE, n NOT NULL, p CHECK (p > 0))");
  Execute("INSERT INTO c VALUES ('x', 1, 1, 1)");
  struct Case {
    int number;
    const char* text;
    const char* sql;
  };
  const Case cases[] = {
      {1555, "UNIQUE constraint failed: c.k", "INSERT INTO c VALUES ('x', 2, 2, 2)"},
      {1555, "UNIQUE constraint failed: t.row", "INSERT INTO t VALUES (2, 1)"},
      {2067, "UNIQUE constraint failed: c.u", "INSERT INTO c VALUES ('y', 1, 2, 2)"},
      {1299, "NOT NULL constraint failed: c.n", "INSERT INTO c VALUES ('y', 2, NULL, 2)"},
      {275, "CHECK constraint failed: p > 0", "INSERT INTO c VALUES ('y', 2, 2, -2)"},
      {1, "no such table: none", "DELETE FROM none"},
      {1, "near \"SELEC\": syntax error", "SELEC 1"},
      {1, "integer overflow", "UPDATE t SET a = abs(-9223372036854775807 - 1)"},
  };
  for (const Case& one : cases) {
    const Error error = Raised([&] { Execute(one.sql); });
    EXPECT_EQ(error.Number(), one.number) << one.sql;
    EXPECT_EQ(error.Description(), std::string(one.text) + " [" + one.sql + "]");
    EXPECT_EQ(error.Source(), "TSLMRep5");
  }
}

TEST_F(RunConnectionTest, ShowsOnlyTheBeginningOfALongStatement) {
  const std::string sql = "SELEC\t" + std::string(113, 'x') + "\u00e9" + std::string(500, 'y');
  EXPECT_EQ(Raised([&] { Execute(sql); }).Description(),
            "near \"SELEC\": syntax error [SELEC " + std::string(113, 'x') + "...]");
  const std::string insert = "INSERT INTO t VALUES ('" + std::string(300, '7') + "', 1)";
  EXPECT_EQ(Raised([&] { Execute(insert); }).Description(),
            "UNIQUE constraint failed: t.row [" + insert.substr(0, 120) + "...]");
}

TEST_F(RunConnectionTest, ExecuteTakesASelect) {
  Execute("SELECT * FROM t;");
  EXPECT_EQ(RaisedNumber([&] { Execute("SELECT abs(-9223372036854775807 - 1)"); }), 1);
}

TEST_F(RunConnectionTest, FindsTablesWithoutRegardToCase) {
  Execute("CREATE TABLE TrainingSet (a FLOAT)");
  Execute("CREATE TABLE \"odd 'name\" (a FLOAT)");
  for (const char* name : {"TrainingSet", "trainingset", "TRAININGSET", "odd 'name", "T"}) {
    EXPECT_TRUE(connection_->TableExists(name)) << name;
  }
  for (const char* name :
       {"", "TrainingSe", "TrainingSet2", "Training%", "\"TrainingSet\"", "' OR 1 --"}) {
    EXPECT_FALSE(connection_->TableExists(name)) << name;
  }
  Execute("DROP TABLE TrainingSet");
  EXPECT_FALSE(connection_->TableExists("TrainingSet"));
}

TEST_F(RunConnectionTest, TakesNoViewOrIndexForATable) {
  Execute("CREATE VIEW v AS SELECT a FROM t");
  Execute("CREATE INDEX i ON t (a)");
  EXPECT_FALSE(connection_->TableExists("v"));
  EXPECT_FALSE(connection_->TableExists("i"));
}

TEST_F(RunConnectionTest, LivesWhileAReaderOrARecordSetDoes) {
  Ref<IDataReader> reader = connection_->ExecuteReader("SELECT a FROM t");
  Ref<IRecordSet> records = connection_->OpenRecordSet("SELECT * FROM t");
  connection_.Reset();
  EXPECT_TRUE(reader->Read());
  EXPECT_EQ(reader->GetDouble(0), 1.5);
  reader.Reset();
  records->SetField(0, 2.5);
  records->Update();
  EXPECT_EQ(records->GetField(0).ToDouble(), 2.5);
}

TEST_F(RunConnectionTest, OutlivesItsRun) {
  Ref<IConnectionService> run = OpenRun("", InMemory());
  const Ref<IConnection> connection = ConnectionOf(run);
  run.Reset();
  connection->Execute("CREATE TABLE t (a FLOAT)");
  EXPECT_TRUE(connection->TableExists("t"));
}

TEST_F(RunConnectionTest, NamesTheTypeOfEveryObject) {
  EXPECT_EQ(connection_->TypeName(), "Connection");
  EXPECT_EQ(connection_->ExecuteReader("SELECT 1")->TypeName(), "DataReader");
  EXPECT_EQ(connection_->OpenRecordSet("SELECT 1")->TypeName(), "RecordSet");
}

using BusyRun = FileEngineTest;

TEST_F(BusyRun, RaisesBusyWhenAnotherConnectionHoldsTheLock) {
  Execute("CREATE TABLE t (a FLOAT)");
  const Ref<IConnection> second = OpenSecond();
  connection_->BeginTrans();
  for (const char* sql :
       {"INSERT INTO t VALUES (1)", "DELETE FROM t", "CREATE TABLE u (a FLOAT)"}) {
    const Error error = Raised([&] { second->Execute(sql); });
    EXPECT_EQ(error.Number() & 0xFF, 5) << sql;
    EXPECT_EQ(error.Description(), std::string("database is locked [") + sql + "]");
  }
  EXPECT_EQ(RaisedNumber([&] { second->BeginTrans(); }) & 0xFF, 5);
  connection_->CommitTrans();
  second->Execute("INSERT INTO t VALUES (1)");
  EXPECT_EQ(Listed("SELECT a FROM t"), "1");
}

TEST_F(BusyRun, WaitsForTheLockAsLongAsAllowed) {
  Execute("CREATE TABLE t (a FLOAT)");
  RunOptions options;
  options.busy_timeout_ms = 60000;
  const Ref<IConnection> patient = ConnectionOf(OpenRun(path_, options));
  connection_->BeginTrans();
  std::thread holder([this] {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    connection_->CommitTrans();
  });
  EXPECT_EQ(RaisedNumber([&] { patient->Execute("INSERT INTO t VALUES (1)"); }), 0);
  holder.join();
}

TEST_F(BusyRun, IsSyncedWithItsFolderAtEachCommit) {
  EXPECT_EQ(Listed("PRAGMA synchronous"), "3");
}

TEST_F(BusyRun, TableExistsDoesNotTakeALockForANo) {
  const Ref<IConnection> second = OpenSecond();
  Execute("CREATE TABLE t (a FLOAT)");
  Execute("BEGIN EXCLUSIVE");
  EXPECT_EQ(RaisedNumber([&] { second->TableExists("t"); }), 5);
  Execute("COMMIT");
  EXPECT_TRUE(second->TableExists("t"));
}

}  // namespace
}  // namespace tslm5
