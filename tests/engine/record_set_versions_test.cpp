// A record set looks again after a write to its own table, and only then. What the engine does not
// see shows whether it looks: a change by another connection.

#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

class RecordSetVersions : public FileEngineTest {
 protected:
  RecordSetVersions() {
    for (const char* name : {"t", "u"}) {
      const std::string table(name);
      Execute("CREATE TABLE " + table + " (d0 FLOAT, row INTEGER PRIMARY KEY)");
      Execute("INSERT INTO " + table + " VALUES (1, 1), (2, 2)");
    }
    records_ = connection_->OpenRecordSet("SELECT * FROM t");
    EXPECT_EQ(First(), 1.0);
  }

  double First() {
    double number = -1e99;
    EXPECT_TRUE(records_->ReadNumber(1, 0, &number));
    return number;
  }

  /// Whether the record set looks at its table again after `change`.
  template <class Change>
  bool LooksAgainAfter(Change&& change) {
    OpenSecond()->Execute("UPDATE t SET d0 = d0 + 1000");
    const double before = First();
    change();
    return First() != before;
  }
  bool LooksAgainAfter(const char* sql) {
    return LooksAgainAfter([this, sql] { Execute(sql); });
  }

  Ref<IRecordSet> records_;
};

TEST_F(RecordSetVersions, WritesToAnotherTableCostItNothing) {
  const auto others = connection_->OpenRecordSet("SELECT * FROM u");
  EXPECT_FALSE(LooksAgainAfter("UPDATE u SET d0 = 5"));
  EXPECT_FALSE(LooksAgainAfter("DELETE FROM u WHERE row = 2"));
  EXPECT_FALSE(LooksAgainAfter("DELETE FROM u"));
  EXPECT_FALSE(LooksAgainAfter("INSERT INTO u VALUES (3, 3)"));
  EXPECT_FALSE(LooksAgainAfter([&] { others->SetField(0, 9.0); }));
  EXPECT_FALSE(LooksAgainAfter([&] { others->Update(); }));
  EXPECT_FALSE(LooksAgainAfter("SELECT * FROM t"));
  EXPECT_FALSE(LooksAgainAfter([&] {
    connection_->BeginTrans();
    Execute("INSERT INTO u VALUES (4, 4)");
    connection_->CommitTrans();
  }));
}

TEST_F(RecordSetVersions, WritesToItsOwnTableAreSeen) {
  EXPECT_TRUE(LooksAgainAfter("UPDATE t SET d0 = d0"));
  EXPECT_TRUE(LooksAgainAfter("UPDATE T SET d0 = d0"));
  EXPECT_TRUE(LooksAgainAfter("UPDATE \"t\" SET d0 = d0 WHERE row = 2"));
  EXPECT_TRUE(LooksAgainAfter("INSERT INTO t VALUES (3, 3)"));
  EXPECT_TRUE(LooksAgainAfter("REPLACE INTO t VALUES (3, 3)"));
  EXPECT_TRUE(LooksAgainAfter("DELETE FROM t WHERE row = 3"));
  EXPECT_TRUE(LooksAgainAfter("WITH x AS (SELECT 1) UPDATE t SET d0 = d0"));
  EXPECT_TRUE(LooksAgainAfter([&] {
    connection_->BeginTrans();
    Execute("INSERT INTO t VALUES (4, 4)");
    connection_->CommitTrans();
  }));
}

TEST_F(RecordSetVersions, AllOfATableDeletedAtOnceIsSeen) {
  Execute("DELETE FROM t");
  EXPECT_EQ(records_->RecordCount(), 0);
}

TEST_F(RecordSetVersions, WhateverMayChangeMoreThanItsTableIsSeen) {
  EXPECT_TRUE(LooksAgainAfter("CREATE TABLE v (a FLOAT)"));
  EXPECT_TRUE(LooksAgainAfter("PRAGMA foreign_keys = OFF"));
  EXPECT_TRUE(LooksAgainAfter("BEGIN"));
  Execute("SAVEPOINT s");
  EXPECT_EQ(First(), First());
  Execute("UPDATE t SET d0 = 7");
  EXPECT_EQ(First(), 7.0);
  Execute("ROLLBACK TO s");
  EXPECT_NE(First(), 7.0);
  Execute("ROLLBACK");
  connection_->BeginTrans();
  Execute("UPDATE t SET d0 = 8");
  EXPECT_EQ(First(), 8.0);
  connection_->BeginTrans();
  Execute("UPDATE t SET d0 = 9");
  EXPECT_EQ(First(), 9.0);
  connection_->RollbackTrans();
  EXPECT_EQ(First(), 8.0);
  connection_->RollbackTrans();
  EXPECT_NE(First(), 8.0);
}

TEST_F(RecordSetVersions, WritesByATriggerAreSeen) {
  Execute("CREATE TRIGGER g AFTER UPDATE ON u BEGIN UPDATE t SET d0 = 77; END");
  EXPECT_NE(First(), 77.0);
  Execute("UPDATE u SET d0 = 5 WHERE row = 1");
  EXPECT_EQ(First(), 77.0);
}

TEST_F(RecordSetVersions, WritesByATriggerOfAnInsertByBindingAreSeen) {
  Execute("CREATE TRIGGER g AFTER INSERT ON u BEGIN UPDATE t SET d0 = new.d0; END");
  connection_->BeginTrans();
  for (int row = 3; row < 6; ++row) {
    Execute("INSERT INTO u VALUES ('" + std::to_string(row * 10) + "','" + std::to_string(row) +
            "')");
    EXPECT_EQ(First(), row * 10.0);
  }
  connection_->CommitTrans();
}

TEST_F(RecordSetVersions, WritesByATriggerOfAPendingChangeAreSeen) {
  Execute("CREATE TRIGGER g AFTER UPDATE ON u BEGIN UPDATE t SET d0 = new.d0; END");
  const auto others = connection_->OpenRecordSet("SELECT * FROM u");
  EXPECT_EQ(First(), 1.0);
  others->SetField(0, 88.0);
  EXPECT_EQ(First(), 88.0);
  EXPECT_EQ(others->GetField(0), Variant(88.0));
}

TEST_F(RecordSetVersions, WritesByATriggerToTheTableOfThePendingChangeAreSeen) {
  Execute(
      "CREATE TRIGGER g AFTER UPDATE ON t WHEN new.d0 < 1000 BEGIN"
      " UPDATE t SET d0 = new.d0 + 1000 WHERE row = new.row; END");
  EXPECT_EQ(First(), 1.0);
  records_->SetField(0, 88.0);
  records_->Update();
  EXPECT_EQ(First(), 1088.0);
}

TEST_F(RecordSetVersions, WritesByAForeignKeyAreSeen) {
  Execute("PRAGMA foreign_keys = ON");
  Execute(
      "CREATE TABLE c (parent INTEGER REFERENCES u (row) ON DELETE CASCADE, row INTEGER PRIMARY "
      "KEY)");
  Execute("INSERT INTO c VALUES (1, 1), (2, 2)");
  const auto children = connection_->OpenRecordSet("SELECT * FROM c");
  EXPECT_EQ(children->RecordCount(), 2);
  Execute("DELETE FROM u WHERE row = 1");
  EXPECT_EQ(children->RecordCount(), 1);
}

TEST_F(RecordSetVersions, ViewsAndOtherQueriesLookAfterEveryWrite) {
  Execute("CREATE VIEW v AS SELECT d0 FROM u");
  const auto view = connection_->OpenRecordSet("SELECT * FROM v");
  const auto sum = connection_->OpenRecordSet("SELECT sum(d0) FROM u");
  Execute("UPDATE u SET d0 = 50");
  EXPECT_EQ(view->GetField(0), Variant(50.0));
  EXPECT_EQ(sum->GetField(0), Variant(100.0));
}

TEST_F(RecordSetVersions, ATableMadeAnewIsSeen) {
  Execute("DROP TABLE t");
  Execute("CREATE TABLE t (d0 FLOAT, row INTEGER PRIMARY KEY)");
  Execute("INSERT INTO t VALUES (42, 1)");
  EXPECT_EQ(First(), 42.0);
  EXPECT_FALSE(LooksAgainAfter("UPDATE u SET d0 = 5"));
}

}  // namespace
}  // namespace tslm5
