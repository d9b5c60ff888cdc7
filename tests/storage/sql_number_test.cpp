#include "storage/sql_number.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/raised.h"

namespace tslm5 {
namespace {

TEST(SqlNumber, IsTheShortestTextOfTheNumber) {
  EXPECT_EQ(SqlNumber(1.0), "1");
  EXPECT_EQ(SqlNumber(-1.5), "-1.5");
  EXPECT_EQ(SqlNumber(0.1 + 0.2), "0.30000000000000004");
  EXPECT_EQ(SqlNumber(1e300), "1E+300");
}

TEST(SqlNumber, RefusesWhatNoStatementCanHold) {
  using Limits = std::numeric_limits<double>;
  EXPECT_EQ(RaisedNumber([] { SqlNumber(Limits::quiet_NaN()); }), error_number::kTypeMismatch);
  EXPECT_EQ(RaisedNumber([] { SqlNumber(Limits::infinity()); }), error_number::kOverflow);
  EXPECT_EQ(RaisedNumber([] { SqlNumber(-Limits::infinity()); }), error_number::kOverflow);
}

}  // namespace
}  // namespace tslm5
