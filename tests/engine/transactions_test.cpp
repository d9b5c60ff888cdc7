#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

class Transactions : public FileEngineTest {
 protected:
  Transactions() { Execute("CREATE TABLE t (a INTEGER)"); }

  void Insert(int value) { Execute("INSERT INTO t VALUES (" + std::to_string(value) + ")"); }
  void Begin() { connection_->BeginTrans(); }
  void Commit() { connection_->CommitTrans(); }
  void Rollback() { connection_->RollbackTrans(); }
  void End(bool commit) { commit ? Commit() : Rollback(); }
  std::string Values() { return Listed("SELECT a FROM t ORDER BY a"); }
  /// What the file holds, as another connection sees it.
  std::string StoredValues() { return tslm5::Listed(OpenSecond(), "SELECT a FROM t ORDER BY a"); }
};

TEST_F(Transactions, CommitKeepsAndRollbackUndoes) {
  Begin();
  Insert(1);
  Commit();
  Begin();
  Insert(2);
  Execute("CREATE TABLE u (a FLOAT)");
  Rollback();
  EXPECT_EQ(StoredValues(), "1");
  EXPECT_FALSE(connection_->TableExists("u"));
}

TEST_F(Transactions, NestedOnesEndOnTheirOwn) {
  struct Case {
    bool inner_commits;
    bool outer_commits;
    const char* expected;
  };
  for (const Case& one : {Case{true, true, "1 2 3"}, Case{false, true, "1 3"},
                          Case{true, false, ""}, Case{false, false, ""}}) {
    Execute("DELETE FROM t");
    Begin();
    Insert(1);
    Begin();
    Insert(2);
    End(one.inner_commits);
    Insert(3);
    End(one.outer_commits);
    EXPECT_EQ(StoredValues(), one.expected) << one.inner_commits << one.outer_commits;
    EXPECT_EQ(RaisedNumber([&] { Commit(); }), error_number::kInvalidCall);
  }
}

TEST_F(Transactions, NestedOnesFollowEachOtherAndGoThreeDeep) {
  Begin();
  Begin();
  Insert(1);
  Rollback();
  Begin();
  Insert(2);
  Begin();
  Insert(3);
  Rollback();
  Begin();
  Insert(4);
  Commit();
  Commit();
  Commit();
  EXPECT_EQ(StoredValues(), "2 4");
}

TEST_F(Transactions, NothingIsStoredBeforeTheOuterCommit) {
  Begin();
  Begin();
  Insert(1);
  Commit();
  EXPECT_EQ(Values(), "1");
  EXPECT_EQ(StoredValues(), "");
  Commit();
  EXPECT_EQ(StoredValues(), "1");
}

TEST_F(Transactions, EndingNoneRaises5) {
  for (int round = 0; round < 2; ++round) {
    const Error commit = Raised([&] { Commit(); });
    EXPECT_EQ(commit.Number(), error_number::kInvalidCall);
    EXPECT_EQ(commit.Source(), "CommitTrans");
    EXPECT_EQ(commit.Description(), "There is no transaction to end.");
    const Error rollback = Raised([&] { Rollback(); });
    EXPECT_EQ(rollback.Number(), error_number::kInvalidCall);
    EXPECT_EQ(rollback.Source(), "RollbackTrans");
    Begin();
    End(round == 0);
  }
}

TEST_F(Transactions, AFailedStatementLeavesThemOpen) {
  Begin();
  Insert(1);
  EXPECT_EQ(RaisedNumber([&] { Execute("INSERT INTO t VALUES (2, 2)"); }), 1);
  Insert(3);
  Commit();
  EXPECT_EQ(StoredValues(), "1 3");
}

TEST_F(Transactions, NestInOneThatAStatementBegan) {
  Execute("BEGIN");
  Insert(1);
  Begin();
  Insert(2);
  Rollback();
  Begin();
  Insert(3);
  Commit();
  EXPECT_EQ(StoredValues(), "");
  EXPECT_EQ(RaisedNumber([&] { Commit(); }), error_number::kInvalidCall);
  Execute("ROLLBACK");
  EXPECT_EQ(StoredValues(), "");
  Execute("BEGIN");
  Begin();
  Insert(4);
  Commit();
  Execute("COMMIT");
  EXPECT_EQ(StoredValues(), "4");
}

TEST_F(Transactions, TakeTheWriteLockAtOnce) {
  const Ref<IConnection> second = OpenSecond();
  Begin();
  EXPECT_EQ(RaisedNumber([&] { second->BeginTrans(); }) & 0xFF, 5);
  EXPECT_EQ(RaisedNumber([&] { second->CommitTrans(); }), error_number::kInvalidCall);
  EXPECT_EQ(tslm5::Listed(second, "SELECT count(*) FROM t"), "0");
  Commit();
  second->BeginTrans();
  second->RollbackTrans();
}

TEST_F(Transactions, ACommitThatMustWaitCanBeRepeated) {
  Insert(1);
  Insert(2);
  const Ref<IConnection> second = OpenSecond();
  Ref<IDataReader> reader = second->ExecuteReader("SELECT a FROM t");
  ASSERT_TRUE(reader->Read());
  Begin();
  Insert(3);
  EXPECT_EQ(RaisedNumber([&] { Commit(); }) & 0xFF, 5);
  reader->Close();
  Commit();
  EXPECT_EQ(StoredValues(), "1 2 3");
}

TEST_F(Transactions, AnOpenReaderDoesNotStopThem) {
  Insert(1);
  Insert(2);
  const Ref<IDataReader> reader = connection_->ExecuteReader("SELECT a FROM t");
  ASSERT_TRUE(reader->Read());
  Begin();
  Insert(3);
  Rollback();
  Begin();
  Insert(4);
  Commit();
  reader->Close();
  EXPECT_EQ(StoredValues(), "1 2 4");
}

TEST_F(Transactions, LeftOpenAreUndoneWithTheConnection) {
  Begin();
  Insert(1);
  connection_.Reset();
  EXPECT_EQ(StoredValues(), "");
}

}  // namespace
}  // namespace tslm5
