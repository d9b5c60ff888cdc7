#include "engine/sqlite_error.h"

#include <gtest/gtest.h>

#include "engine/bare_database.h"
#include "platform/raised.h"

namespace tslm5 {
namespace {

class SqliteErrorTest : public testing::Test {
 protected:
  Error Reported(sqlite3* handle, int code) {
    return Raised([&] { RaiseSqliteError(handle, code, "SELECT 1"); });
  }

  BareDatabase database_{":memory:"};
};

TEST_F(SqliteErrorTest, HasTheConnectionsOwnWordsForTheSameCode) {
  ASSERT_EQ(sqlite3_exec(database_.Handle(), "SELECT absent", nullptr, nullptr, nullptr),
            SQLITE_ERROR);
  const Error error = Reported(database_.Handle(), SQLITE_ERROR);
  EXPECT_EQ(error.Number(), SQLITE_ERROR);
  EXPECT_EQ(error.Description(), "no such column: absent [SELECT 1]");
}

TEST_F(SqliteErrorTest, HasTheWordsOfItsCodeWhereTheConnectionLastFailedAtAnother) {
  ASSERT_EQ(sqlite3_exec(database_.Handle(), "SELECT absent", nullptr, nullptr, nullptr),
            SQLITE_ERROR);
  const Error error = Reported(database_.Handle(), SQLITE_FULL);
  EXPECT_EQ(error.Number(), SQLITE_FULL);
  EXPECT_EQ(error.Description(), "database or disk is full [SELECT 1]");
}

TEST_F(SqliteErrorTest, HasTheWordsOfItsCodeWithoutAConnection) {
  EXPECT_EQ(Reported(nullptr, SQLITE_NOMEM).Description(), "out of memory [SELECT 1]");
}

}  // namespace
}  // namespace tslm5
