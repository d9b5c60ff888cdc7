#include "engine/literal_inserter.h"

#include <gmock/gmock.h>

#include "engine/bare_database.h"
#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

using testing::StartsWith;

TEST(LiteralInserterTest, TakesTheShapesOfALoad) {
  BareDatabase database(":memory:");
  database.Run("CREATE TABLE t (d0 FLOAT, name TEXT, row INTEGER PRIMARY KEY)");
  TableVersions versions;
  StatementWatch watch(database.Handle(), versions);
  LiteralInserter inserter(database.Handle(), watch);
  EXPECT_TRUE(inserter.TryRun("INSERT INTO t VALUES ('1.5','a', 1)"));
  EXPECT_TRUE(inserter.TryRun("INSERT INTO t VALUES (NULL, 'it''s', 2);"));
  EXPECT_TRUE(inserter.TryRun("INSERT INTO T VALUES ( -2.5e3 , 'x' , '3' ) ;"));
  EXPECT_EQ(database.Records("SELECT d0, name, row FROM t WHERE row = 2")[0][1].bytes, "it's");
  EXPECT_EQ(database.Records("SELECT 1 FROM t").size(), 3u);
}

TEST(LiteralInserterTest, LeavesEveryOtherStatementAlone) {
  BareDatabase database(":memory:");
  database.Run("CREATE TABLE t (a FLOAT, b FLOAT)");
  database.Run("CREATE VIEW v AS SELECT * FROM t");
  TableVersions versions;
  StatementWatch watch(database.Handle(), versions);
  LiteralInserter inserter(database.Handle(), watch);
  for (const char* sql :
       {"INSERT INTO t VALUES (1, 2, 3)", "INSERT INTO t VALUES (1)",
        "INSERT INTO t VALUES (1, 2), (3, 4)", "INSERT INTO t VALUES (1, 1 + 1)",
        "INSERT INTO t (a, b) VALUES (1, 2)", "INSERT INTO none VALUES (1, 2)",
        "INSERT INTO v VALUES (1, 2)", "INSERT INTO t VALUES (1, 2) RETURNING a",
        "INSERT INTO t VALUES (1, 2); DROP TABLE t",
        "INSERT INTO t VALUES (1, '2'); DROP TABLE t; --')", "DELETE FROM t", ""}) {
    EXPECT_FALSE(inserter.TryRun(sql)) << sql;
  }
  EXPECT_TRUE(database.Records("SELECT 1 FROM t").empty());
}

TEST(LiteralInserterTest, ServesManyTablesInTurn) {
  BareDatabase database(":memory:");
  TableVersions versions;
  StatementWatch watch(database.Handle(), versions);
  LiteralInserter inserter(database.Handle(), watch);
  for (int i = 0; i < 20; ++i) {
    // Two names of which one begins the other, and other columns in each.
    const std::string type = i % 2 == 0 ? "TEXT" : "FLOAT";
    database.Run("CREATE TABLE t" + std::to_string(i) + " (a " + type + ")");
  }
  for (int round = 0; round < 3; ++round) {
    for (int i = 0; i < 20; ++i) {
      const std::string name = "t" + std::to_string(i);
      EXPECT_TRUE(inserter.TryRun("INSERT INTO " + name + " VALUES ('1.50')"));
      const auto records = database.Records("SELECT a FROM " + name);
      ASSERT_EQ(records.size(), static_cast<std::size_t>(round) + 1);
      EXPECT_EQ(records[0][0].type, i % 2 == 0 ? SQLITE_TEXT : SQLITE_FLOAT);
    }
  }
}

/// Through the connection, where other statements run in between.
class LiteralBinding : public EngineTest {
 protected:
  void Make(const std::string& type) { Execute("CREATE TABLE t (a " + type + ")"); }
  void Remake(const std::string& type) {
    Execute("DROP TABLE t");
    Make(type);
  }
  void Insert() { Execute("INSERT INTO t VALUES ('1.50')"); }
  std::string Last() {
    return Listed("SELECT typeof(a) || ':' || a FROM t ORDER BY rowid DESC LIMIT 1");
  }
};

TEST_F(LiteralBinding, FollowsAColumnThatChangesItsType) {
  Make("FLOAT");
  for (const auto& [type, stored] : {std::pair{"TEXT", "text:1.50"}, std::pair{"FLOAT", "real:1.5"},
                                     std::pair{"INTEGER", "real:1.5"},
                                     std::pair{"TEXT", "text:1.50"}, std::pair{"", "text:1.50"}}) {
    Insert();
    Remake(type);
    Insert();
    EXPECT_EQ(Last(), stored) << type;
  }
}

TEST_F(LiteralBinding, FollowsAColumnWhoseTypeIsRolledBack) {
  for (const bool to_text : {true, false}) {
    Execute("DROP TABLE IF EXISTS t");
    Make(to_text ? "TEXT" : "FLOAT");
    Insert();
    connection_->BeginTrans();
    Remake(to_text ? "FLOAT" : "TEXT");
    Insert();
    EXPECT_EQ(Last(), to_text ? "real:1.5" : "text:1.50");
    connection_->RollbackTrans();
    Insert();
    EXPECT_EQ(Last(), to_text ? "text:1.50" : "real:1.5");
  }
}

TEST_F(LiteralBinding, FollowsATypeThatAStatementRollsBack) {
  Make("TEXT");
  for (const auto& [begin, end] :
       {std::pair{"BEGIN", "ROLLBACK"}, std::pair{"SAVEPOINT s", "ROLLBACK TO s"}}) {
    Execute(begin);
    Remake("FLOAT");
    Insert();
    EXPECT_EQ(Last(), "real:1.5");
    Execute(end);
    Insert();
    EXPECT_EQ(Last(), "text:1.50") << end;
  }
}

TEST_F(LiteralBinding, FollowsATypeThatTheDatabaseRollsBackByItself) {
  Execute("CREATE TABLE once (a FLOAT UNIQUE ON CONFLICT ROLLBACK)");
  Execute("INSERT INTO once VALUES (1)");
  Make("TEXT");
  connection_->BeginTrans();
  Remake("FLOAT");
  Insert();
  EXPECT_EQ(RaisedNumber([&] { Execute("INSERT INTO once VALUES (1)"); }), 2067);
  connection_->RollbackTrans();
  Insert();
  EXPECT_EQ(Last(), "text:1.50");
}

using LiteralBindingOfASharedRun = FileEngineTest;

TEST_F(LiteralBindingOfASharedRun, FollowsATypeThatAnotherConnectionChanges) {
  for (const bool in_transaction : {true, false}) {
    Execute("DROP TABLE IF EXISTS t");
    Execute("CREATE TABLE t (a FLOAT)");
    const auto insert = [&] {
      if (in_transaction) connection_->BeginTrans();
      Execute("INSERT INTO t VALUES ('1.50')");
      if (in_transaction) connection_->CommitTrans();
    };
    insert();
    const Ref<IConnection> second = OpenSecond();
    second->Execute("DROP TABLE t");
    second->Execute("CREATE TABLE t (a TEXT)");
    insert();
    EXPECT_EQ(Listed("SELECT typeof(a) || ':' || a FROM t"), "text:1.50") << in_transaction;
  }
}

TEST_F(LiteralBinding, RaisesSqlitesOwnErrorForTooManyAndTooFewValues) {
  Execute("CREATE TABLE t (a FLOAT, b FLOAT)");
  Execute("INSERT INTO t VALUES ('1','2')");
  for (const auto& [values, count] : {std::pair{"('1')", "1"}, std::pair{"('1','2','3')", "3"}}) {
    const std::string sql = std::string("INSERT INTO t VALUES ") + values;
    const Error error = Raised([&] { Execute(sql); });
    EXPECT_EQ(error.Number(), 1);
    EXPECT_EQ(error.Description(), std::string("table t has 2 columns but ") + count +
                                       " values were supplied [" + sql + "]");
  }
  EXPECT_EQ(Listed("SELECT count(*) FROM t"), "1");
}

TEST_F(LiteralBinding, GoesOnAfterAConstraintFailed) {
  Execute("CREATE TABLE t (a FLOAT, row INTEGER PRIMARY KEY)");
  connection_->BeginTrans();
  for (int round = 0; round < 3; ++round) {
    Execute("INSERT INTO t VALUES ('2.5', " + std::to_string(round) + ")");
    const Error error = Raised([&] { Execute("INSERT INTO t VALUES ('3.5', 0)"); });
    EXPECT_EQ(error.Number(), 1555);
    EXPECT_EQ(error.Description(),
              "UNIQUE constraint failed: t.row [INSERT INTO t VALUES ('3.5', 0)]");
  }
  EXPECT_EQ(RaisedNumber([&] { Execute("INSERT INTO t VALUES ('3.5', 'word')"); }), 20);
  connection_->CommitTrans();
  EXPECT_EQ(Listed("SELECT a || '@' || row FROM t"), "2.5@0 2.5@1 2.5@2");
}

TEST_F(LiteralBinding, AStatementHiddenInAValueDoesNothingButFail) {
  Execute("CREATE TABLE t (a FLOAT)");
  Execute("INSERT INTO t VALUES ('1')");
  const Error error = Raised([&] { Execute("INSERT INTO t VALUES ('1'); DROP TABLE t; --')"); });
  EXPECT_EQ(error.Number(), 1);
  EXPECT_THAT(error.Description(), StartsWith("only one statement can be run at a time"));
  EXPECT_EQ(Listed("SELECT a FROM t"), "1");
  Execute("INSERT INTO t VALUES ('1''); DROP TABLE t; --')");
  EXPECT_EQ(Listed("SELECT a FROM t"), "1 1'); DROP TABLE t; --");
}

TEST_F(LiteralBinding, GivesAKeyToARecordWithoutOne) {
  Execute("CREATE TABLE t (a FLOAT, row INTEGER PRIMARY KEY)");
  for (const char* key : {"7", "NULL", "'20'", "NULL"}) {
    Execute(std::string("INSERT INTO t VALUES ('1.5', ") + key + ")");
  }
  EXPECT_EQ(Listed("SELECT row FROM t"), "7 8 20 21");
}

TEST_F(LiteralBinding, RunsTriggersAndDefaults) {
  Execute("CREATE TABLE t (a FLOAT, row INTEGER PRIMARY KEY)");
  Execute("CREATE TABLE log (kind TEXT)");
  Execute("CREATE TRIGGER g AFTER INSERT ON t BEGIN INSERT INTO log VALUES (typeof(new.a)); END");
  Execute("INSERT INTO t VALUES ('1', 1)");
  Execute("INSERT INTO t VALUES ('x', 2)");
  EXPECT_EQ(Listed("SELECT kind FROM log"), "real text");
}

}  // namespace
}  // namespace tslm5
