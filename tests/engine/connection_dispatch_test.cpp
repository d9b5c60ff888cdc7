#include "tslm5/platform/dispatch.h"

#include <vector>

#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

class ConnectionDispatchTest : public EngineTest {
 protected:
  Variant Invoke(std::string_view name, const std::vector<Variant>& arguments = {}) {
    return Query<IDispatch>(connection_)->Invoke(name, arguments);
  }
};

TEST_F(ConnectionDispatchTest, CallsExecute) {
  EXPECT_TRUE(Invoke("Execute", {"CREATE TABLE t (a FLOAT)"}).IsEmpty());
  EXPECT_TRUE(connection_->TableExists("t"));
}

TEST_F(ConnectionDispatchTest, CallsExecuteReader) {
  const auto reader = Invoke("ExecuteReader", {"SELECT 7"}).ToObject().As<IDataReader>();
  ASSERT_TRUE(reader);
  EXPECT_TRUE(reader->Read());
  EXPECT_EQ(reader->GetInteger(0), 7);
}

TEST_F(ConnectionDispatchTest, CallsTheTransactionOperations) {
  Execute("CREATE TABLE t (a FLOAT)");
  EXPECT_TRUE(Invoke("BeginTrans").IsEmpty());
  Execute("INSERT INTO t VALUES (1)");
  EXPECT_TRUE(Invoke("CommitTrans").IsEmpty());
  EXPECT_TRUE(Invoke("BeginTrans").IsEmpty());
  Execute("INSERT INTO t VALUES (2)");
  EXPECT_TRUE(Invoke("RollbackTrans").IsEmpty());
  EXPECT_EQ(Listed("SELECT a FROM t"), "1");
}

TEST_F(ConnectionDispatchTest, CallsTableExists) {
  Execute("CREATE TABLE t (a FLOAT)");
  EXPECT_EQ(Invoke("TableExists", {"T"}), Variant(true));
  EXPECT_EQ(Invoke("TableExists", {"u"}), Variant(false));
}

TEST_F(ConnectionDispatchTest, ComparesNamesWithoutRegardToCase) {
  EXPECT_EQ(Invoke("tableEXISTS", {"t"}), Variant(false));
}

TEST_F(ConnectionDispatchTest, Raises438ForAnUnknownName) {
  for (const char* name : {"OpenRecordSet", "Exec", "Executes", "", "Execute "}) {
    const Error error = Raised([&] { Invoke(name, {"SELECT 1"}); });
    EXPECT_EQ(error.Number(), error_number::kUnknownMember) << name;
    EXPECT_EQ(error.Description(),
              "The connection has no operation \"" + std::string(name) + "\".");
  }
}

TEST_F(ConnectionDispatchTest, Raises450ForAWrongNumberOfArguments) {
  for (const char* name : {"Execute", "ExecuteReader", "TableExists"}) {
    EXPECT_EQ(RaisedNumber([&] { Invoke(name); }), error_number::kArgumentCount) << name;
    EXPECT_EQ(RaisedNumber([&] { Invoke(name, {"SELECT 1", 1}); }), error_number::kArgumentCount);
  }
  for (const char* name : {"BeginTrans", "CommitTrans", "RollbackTrans"}) {
    const Error error = Raised([&] { Invoke(name, {"x"}); });
    EXPECT_EQ(error.Number(), error_number::kArgumentCount) << name;
    EXPECT_EQ(error.Source(), name);
    EXPECT_EQ(error.Description(), "Wrong number of arguments: 1 given, 0 expected.");
  }
}

TEST_F(ConnectionDispatchTest, Raises13ForAnArgumentThatIsNoText) {
  EXPECT_EQ(RaisedNumber([&] { Invoke("Execute", {Variant(connection_)}); }),
            error_number::kTypeMismatch);
}

TEST_F(ConnectionDispatchTest, PassesTheOperationsOwnErrorOn) {
  EXPECT_EQ(RaisedNumber([&] { Invoke("Execute", {"SELEC"}); }), 1);
  EXPECT_EQ(RaisedNumber([&] { Invoke("CommitTrans"); }), error_number::kInvalidCall);
}

TEST_F(ConnectionDispatchTest, IsAFaceOfTheConnection) {
  const auto dispatch = Query<IDispatch>(connection_);
  EXPECT_EQ(dispatch.As<IUnknown>(), connection_.As<IUnknown>());
  EXPECT_EQ(dispatch.As<IConnection>(), connection_);
  EXPECT_EQ(dispatch->TypeName(), "Connection");
  EXPECT_FALSE(connection_.As<IDataReader>());
}

}  // namespace
}  // namespace tslm5
