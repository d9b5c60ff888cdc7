#include "tslm5/engine/guarded_transactions.h"

#include <gmock/gmock.h>

#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

using testing::StartsWith;

class GuardedTransactions : public FileEngineTest {
 protected:
  GuardedTransactions() { Execute("CREATE TABLE t (a INTEGER)"); }

  void Insert(int value) { Execute("INSERT INTO t VALUES (" + std::to_string(value) + ")"); }
  std::string StoredValues() { return tslm5::Listed(OpenSecond(), "SELECT a FROM t ORDER BY a"); }

  Ref<IGuardedTransactions> guarded_ = Query<IGuardedTransactions>(connection_.get());
};

TEST_F(GuardedTransactions, EndByTheirToken) {
  const std::int64_t first = guarded_->BeginGuarded();
  Insert(1);
  guarded_->CommitGuarded(first);
  const std::int64_t second = guarded_->BeginGuarded();
  Insert(2);
  guarded_->RollbackGuarded(second);
  EXPECT_EQ(StoredValues(), "1");
  EXPECT_NE(first, 0);
  EXPECT_NE(first, second);
}

TEST_F(GuardedTransactions, NestLikeAnyOther) {
  connection_->BeginTrans();
  Insert(1);
  const std::int64_t outer = guarded_->BeginGuarded();
  Insert(2);
  const std::int64_t inner = guarded_->BeginGuarded();
  Insert(3);
  guarded_->RollbackGuarded(inner);
  connection_->BeginTrans();
  Insert(4);
  connection_->CommitTrans();
  guarded_->CommitGuarded(outer);
  connection_->CommitTrans();
  EXPECT_EQ(StoredValues(), "1 2 4");
}

TEST_F(GuardedTransactions, OfAnotherAreNotEnded) {
  struct Case {
    const char* source;
    std::function<void()> end;
  };
  const Case cases[] = {{"CommitTrans", [&] { connection_->CommitTrans(); }},
                        {"RollbackTrans", [&] { connection_->RollbackTrans(); }},
                        {"Execute", [&] { Execute("COMMIT"); }},
                        {"Execute", [&] { Execute(" end transaction;"); }},
                        {"Execute", [&] { Execute("ROLLBACK"); }},
                        {"Execute", [&] { Execute("ROLLBACK TO nested1"); }},
                        {"Execute", [&] { Execute("RELEASE nested1"); }}};
  for (const Case& one : cases) {
    connection_->BeginTrans();
    const std::int64_t token = guarded_->BeginGuarded();
    Insert(1);
    const Error error = Raised(one.end);
    EXPECT_EQ(error.Number(), error_number::kInvalidCall);
    EXPECT_EQ(error.Source(), one.source);
    EXPECT_EQ(error.Description(),
              "The innermost transaction belongs to an operation that is still running, and only"
              " that ends it.");
    guarded_->RollbackGuarded(token);
    connection_->CommitTrans();
    EXPECT_EQ(StoredValues(), "");
  }
}

TEST_F(GuardedTransactions, ThatSomebodyTriedToEndCannotGoOn) {
  const std::int64_t token = guarded_->BeginGuarded();
  Insert(1);
  EXPECT_EQ(RaisedNumber([&] { connection_->RollbackTrans(); }), error_number::kInvalidCall);
  const std::string expected =
      "The transaction of a running operation was to be ended by somebody else, an event handler"
      " for instance; the operation's changes are undone.";
  EXPECT_EQ(Raised([&] { Insert(2); }).Description(), expected);
  EXPECT_EQ(Raised([&] { Listed("SELECT 1"); }).Number(), error_number::kInvalidCall);
  EXPECT_EQ(Raised([&] { guarded_->CommitGuarded(token); }).Description(), expected);
  guarded_->RollbackGuarded(token);
  Insert(3);
  EXPECT_EQ(StoredValues(), "3");
}

TEST_F(GuardedTransactions, WithSomethingLeftOpenInsideCannotBeCommitted) {
  const std::int64_t token = guarded_->BeginGuarded();
  Insert(1);
  connection_->BeginTrans();
  Insert(2);
  const Error error = Raised([&] { guarded_->CommitGuarded(token); });
  EXPECT_EQ(error.Number(), error_number::kInvalidCall);
  EXPECT_THAT(error.Description(), StartsWith("A transaction that was begun inside this one"));
  guarded_->RollbackGuarded(token);
  EXPECT_EQ(StoredValues(), "");
  EXPECT_EQ(RaisedNumber([&] { connection_->RollbackTrans(); }), error_number::kInvalidCall);
}

TEST_F(GuardedTransactions, ThatHaveEndedAreRolledBackInVain) {
  const std::int64_t token = guarded_->BeginGuarded();
  guarded_->CommitGuarded(token);
  connection_->BeginTrans();
  Insert(1);
  guarded_->RollbackGuarded(token);
  connection_->CommitTrans();
  EXPECT_EQ(StoredValues(), "1");
}

TEST_F(GuardedTransactions, OnesBegunByTheApplicationAreNotEndedByStatements) {
  connection_->BeginTrans();
  Insert(1);
  for (const char* sql : {"COMMIT", "ROLLBACK", "BEGIN", "SAVEPOINT s"}) {
    const Error error = Raised([&] { Execute(sql); });
    EXPECT_EQ(error.Number(), error_number::kInvalidCall) << sql;
    EXPECT_EQ(error.Description(),
              "A transaction that BeginTrans began is ended by CommitTrans or RollbackTrans, not by"
              " a statement.");
  }
  connection_->CommitTrans();
  EXPECT_EQ(StoredValues(), "1");
}

TEST_F(GuardedTransactions, RolledBackDropWhatIsPendingInThem) {
  Insert(1);
  const auto records = connection_->OpenRecordSet("SELECT * FROM t");
  const std::int64_t token = guarded_->BeginGuarded();
  records->SetField(0, 9.0);
  guarded_->RollbackGuarded(token);
  EXPECT_EQ(records->GetField(0), Variant(1));
  EXPECT_EQ(StoredValues(), "1");
}

TEST_F(GuardedTransactions, AreAFaceOfTheConnection) {
  EXPECT_EQ(Query<IConnection>(guarded_.get()).get(), connection_.get());
}

}  // namespace
}  // namespace tslm5
