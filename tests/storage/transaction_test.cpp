#include "tslm5/engine/transaction.h"

#include <gtest/gtest.h>

#include <new>
#include <string_view>

#include "fakes/unsynced_run.h"
#include "platform/raised.h"
#include "storage/test_run.h"

namespace tslm5 {
namespace {

class TransactionTest : public testing::Test {
 protected:
  TransactionTest() { run_.Execute("CREATE TABLE t (a INTEGER)"); }

  Ref<IConnection> Recorded() {
    return Query<IConnection>(run_.Service()->GetConnection().ToObject());
  }

  TestRun run_;
};

TEST_F(TransactionTest, KeepsWhatIsCommitted) {
  {
    Transaction transaction(*Recorded());
    run_.Execute("INSERT INTO t VALUES (1)");
    transaction.Commit();
  }
  EXPECT_EQ(run_.TableRows("t"), Lines({"1"}));
  EXPECT_EQ(run_.Log().statements, Lines({"BEGIN", "COMMIT"}));
}

TEST_F(TransactionTest, RollsBackWhatIsNotCommitted) {
  {
    Transaction transaction(*Recorded());
    run_.Execute("INSERT INTO t VALUES (1)");
  }
  EXPECT_EQ(run_.TableRows("t"), Lines());
  EXPECT_EQ(run_.Log().statements, Lines({"BEGIN", "ROLLBACK"}));
}

TEST_F(TransactionTest, RollsBackAtOnceWhenAskedTo) {
  Transaction transaction(*Recorded());
  run_.Execute("INSERT INTO t VALUES (1)");
  transaction.Rollback();
  EXPECT_EQ(run_.TableRows("t"), Lines());
  EXPECT_FALSE(run_.InTransaction());
}

TEST_F(TransactionTest, RollsBackWhenCommittingFails) {
  run_.Log().FailAt(2, Error(13, "here", "no commit"));
  const Error error = Raised([this] {
    Transaction transaction(*Recorded());
    run_.Execute("INSERT INTO t VALUES (1)");
    transaction.Commit();
  });
  EXPECT_EQ(error.Description(), "no commit");
  EXPECT_EQ(run_.Log().statements, Lines({"BEGIN", "COMMIT", "ROLLBACK"}));
  EXPECT_EQ(run_.TableRows("t"), Lines());
  EXPECT_FALSE(run_.InTransaction());
}

TEST_F(TransactionTest, DoesNotRollBackWhatDidNotBegin) {
  run_.Log().FailAt(1, Error(5, "", "no begin"));
  EXPECT_EQ(Raised([this] { Transaction transaction(*Recorded()); }).Description(), "no begin");
  EXPECT_EQ(run_.Log().statements, Lines({"BEGIN"}));
}

TEST_F(TransactionTest, TheFirstErrorPassesWhenRollingBackFailsToo) {
  run_.Log().FailAt(2, Error(10, "", "disk I/O error"));
  const Error error = Raised([this] {
    Transaction transaction(*Recorded());
    throw Error(41011, "first", "the cause");
  });
  EXPECT_EQ(error.Number(), 41011);
  EXPECT_EQ(error.Description(), "the cause");
  EXPECT_TRUE(run_.InTransaction());  // ends the one that the fake left open
}

TEST_F(TransactionTest, ANestedOneEndsOnItsOwn) {
  {
    Transaction outer(*Recorded());
    run_.Execute("INSERT INTO t VALUES (1)");
    {
      Transaction inner(*Recorded());
      run_.Execute("INSERT INTO t VALUES (2)");
    }
    outer.Commit();
  }
  EXPECT_EQ(run_.TableRows("t"), Lines({"1"}));
}

TEST_F(TransactionTest, NobodyElseEndsIt) {
  const Ref<IConnection> connection = run_.Connection();
  for (const bool commits : {true, false}) {
    const Error error = Raised([&] {
      Transaction transaction(*connection);
      run_.Execute("INSERT INTO t VALUES (1)");
      EXPECT_EQ(
          RaisedNumber([&] { commits ? connection->CommitTrans() : connection->RollbackTrans(); }),
          error_number::kInvalidCall);
      transaction.Commit();
    });
    EXPECT_EQ(error.Number(), error_number::kInvalidCall);
    EXPECT_EQ(error.Description(),
              "The transaction of a running operation was to be ended by somebody else, an event"
              " handler for instance; the operation's changes are undone.");
    EXPECT_EQ(run_.TableRows("t"), Lines());
    EXPECT_FALSE(run_.InTransaction());
  }
}

TEST_F(TransactionTest, OneLeftOpenInsideUndoesBoth) {
  const Ref<IConnection> connection = run_.Connection();
  const Error error = Raised([&] {
    Transaction transaction(*connection);
    run_.Execute("INSERT INTO t VALUES (1)");
    connection->BeginTrans();
    run_.Execute("INSERT INTO t VALUES (2)");
    transaction.Commit();
  });
  EXPECT_EQ(error.Number(), error_number::kInvalidCall);
  EXPECT_EQ(run_.TableRows("t"), Lines());
  EXPECT_FALSE(run_.InTransaction());
}

TEST_F(TransactionTest, AnyFailureToRollBackIsSwallowed) {
  run_.Log().before = [](std::string_view statement) {
    if (statement == "ROLLBACK") throw std::bad_alloc();
  };
  const Error error = Raised([this] {
    Transaction transaction(*Recorded());
    throw Error(41011, "first", "the cause");
  });
  EXPECT_EQ(error.Description(), "the cause");
  EXPECT_TRUE(run_.InTransaction());  // ends the one that the fake left open
}

TEST_F(TransactionTest, HasMemoryFollowOnlyWhatIsStored) {
  bool has_followed = false;
  const auto commit = [&](const Ref<IConnection>& connection) {
    has_followed = false;
    Transaction transaction(*connection);
    transaction.Commit([&has_followed] { has_followed = true; });
  };
  commit(Recorded());
  EXPECT_TRUE(has_followed);
  run_.Log().FailAt(2, Error(10, "", "disk I/O error"));
  EXPECT_EQ(RaisedNumber([&] { commit(Recorded()); }), 10);
  EXPECT_FALSE(has_followed);
  const Ref<UnsyncedRun> unsynced = MakeObject<UnsyncedRun>(run_.Connection());
  EXPECT_EQ(RaisedNumber([&] { commit(unsynced->GetConnection().ToObject().As<IConnection>()); }),
            error_number::kStoredUnsynced);
  EXPECT_TRUE(has_followed);
  EXPECT_FALSE(run_.InTransaction());
}

}  // namespace
}  // namespace tslm5
