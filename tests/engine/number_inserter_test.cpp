// Rows of numbers that are ready must be stored just as their text would be.
#include "tslm5/engine/number_inserter.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "engine/engine_fixture.h"
#include "tslm5/platform/number_text.h"

namespace tslm5 {
namespace {

constexpr std::string_view kHead = "INSERT INTO t VALUES (";

class NumberInserter : public EngineTest {
 protected:
  NumberInserter() { connection_->BeginTrans(); }

  bool Insert(const std::vector<double>& numbers, std::int32_t row) {
    return connection_.As<INumberInserter>()->InsertNumbers(kHead, numbers, row);
  }
};

TEST_F(NumberInserter, StoresWhatTheTextWouldStore) {
  Execute("CREATE TABLE t (a FLOAT, b FLOAT, row INTEGER PRIMARY KEY)");
  Execute("CREATE TABLE u (a FLOAT, b FLOAT, row INTEGER PRIMARY KEY)");
  std::mt19937_64 random(3);
  for (std::int32_t row = 1; row <= 2000; ++row) {
    double a = std::bit_cast<double>(random());
    if (!std::isfinite(a)) a = -0.0;
    const double b = static_cast<double>(random() % 100) - 50;
    ASSERT_TRUE(Insert({a, b}, row));
    Execute("INSERT INTO u VALUES (" + NumberText(a) + "," + NumberText(b) + ", " +
            std::to_string(row) + ");");
  }
  EXPECT_EQ(Listed("SELECT COUNT(*) FROM t JOIN u USING (row) WHERE t.a = u.a AND t.b = u.b AND"
                   " typeof(t.a) = typeof(u.a)"),
            "2000");
}

TEST_F(NumberInserter, StoresNaNAsNull) {
  Execute("CREATE TABLE t (a FLOAT, row INTEGER PRIMARY KEY)");
  ASSERT_TRUE(Insert({std::nan("")}, 1));
  EXPECT_EQ(Listed("SELECT typeof(a) FROM t"), "null");
}

TEST_F(NumberInserter, LeavesToTheTextWhatOnlyItCanDecide) {
  Execute("CREATE TABLE t (a FLOAT, row INTEGER PRIMARY KEY)");
  EXPECT_FALSE(Insert({std::numeric_limits<double>::infinity()}, 1));
  EXPECT_FALSE(Insert({1, 2}, 1));
  EXPECT_FALSE(Insert({}, 1));
  Execute("DROP TABLE t");
  EXPECT_FALSE(Insert({1}, 1));
  Execute("CREATE TABLE t (a TEXT, row INTEGER PRIMARY KEY)");
  EXPECT_FALSE(Insert({1}, 1));
  Execute("DROP TABLE t");
  Execute("CREATE TABLE t (a FLOAT, row INTEGER PRIMARY KEY)");
  EXPECT_FALSE(connection_.As<INumberInserter>()->InsertNumbers("DELETE FROM t", {}, 1));
  connection_->CommitTrans();
  EXPECT_FALSE(Insert({1}, 1)) << "outside a transaction";
  EXPECT_EQ(Listed("SELECT COUNT(*) FROM t"), "0");
}

TEST_F(NumberInserter, RaisesWhatTheStatementRaises) {
  Execute("CREATE TABLE t (a FLOAT, row INTEGER PRIMARY KEY)");
  ASSERT_TRUE(Insert({1}, 7));
  EXPECT_EQ(RaisedNumber([this] { Insert({2}, 7); }), 1555);
  EXPECT_TRUE(Insert({3}, 8));
  EXPECT_EQ(Listed("SELECT a FROM t"), "1 3");
}

TEST_F(NumberInserter, IsSeenByAnOpenRecordSet) {
  Execute("CREATE TABLE t (a FLOAT, row INTEGER PRIMARY KEY)");
  const Ref<IRecordSet> records = Open("SELECT * FROM t");
  EXPECT_EQ(records->RecordCount(), 0);
  ASSERT_TRUE(Insert({4}, 1));
  EXPECT_EQ(records->RecordCount(), 1);
}

}  // namespace
}  // namespace tslm5
