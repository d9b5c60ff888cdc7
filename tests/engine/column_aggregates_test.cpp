#include "engine/column_aggregates.h"

#include <cmath>
#include <limits>

#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargest = std::numeric_limits<double>::max();

double MedianOf(std::vector<double> values) {
  return Median(values).value();
}

double DeviationOf(const std::vector<double>& values) {
  return SampleDeviation(values).value();
}

TEST(MedianTest, IsTheMiddleValueOrTheMeanOfTheMiddleTwo) {
  EXPECT_EQ(MedianOf({1, 2, 3, 10}), 2.5);
  EXPECT_EQ(MedianOf({10, 3, 1, 2}), 2.5);
  EXPECT_EQ(MedianOf({7}), 7.0);
  EXPECT_EQ(MedianOf({9, -5, 4}), 4.0);
  EXPECT_EQ(MedianOf({2, 2, 2, 5}), 2.0);
  EXPECT_EQ(MedianOf({-1, 1}), 0.0);
}

TEST(MedianTest, OfNothingIsNothing) {
  std::vector<double> none;
  EXPECT_EQ(Median(none), std::nullopt);
}

TEST(MedianTest, OfManyValues) {
  std::vector<double> values;
  for (int i = 0; i < 10001; ++i) values.push_back((i * 7919) % 10001);
  EXPECT_EQ(MedianOf(values), 5000.0);
  values.push_back(1e9);
  EXPECT_EQ(MedianOf(values), 5000.5);
}

TEST(MedianTest, DoesNotOverflow) {
  EXPECT_EQ(MedianOf({kLargest, kLargest}), kLargest);
  EXPECT_EQ(MedianOf({-kLargest, -kLargest}), -kLargest);
  EXPECT_EQ(MedianOf({5e-324, 5e-324}), 5e-324);
}

TEST(MedianTest, TakesInfinities) {
  EXPECT_EQ(MedianOf({kInfinity, 1, 2}), 2.0);
  EXPECT_EQ(MedianOf({kInfinity, kInfinity}), kInfinity);
  EXPECT_EQ(MedianOf({kInfinity, 1}), kInfinity);
  EXPECT_TRUE(std::isnan(MedianOf({kInfinity, -kInfinity})));
}

TEST(SampleDeviationTest, DividesByOneLessThanTheCount) {
  EXPECT_DOUBLE_EQ(DeviationOf({2, 4, 4, 4, 5, 5, 7, 9}), 2.138089935299395);
  EXPECT_DOUBLE_EQ(DeviationOf({1, 2}), std::sqrt(0.5));
  EXPECT_EQ(DeviationOf({3, 3, 3}), 0.0);
}

TEST(SampleDeviationTest, OfFewerThanTwoValuesIsNothing) {
  EXPECT_EQ(SampleDeviation({}), std::nullopt);
  EXPECT_EQ(SampleDeviation({5}), std::nullopt);
}

TEST(SampleDeviationTest, IsStableFarFromZero) {
  EXPECT_EQ(DeviationOf({1e9 + 1, 1e9 + 2, 1e9 + 3}), 1.0);
  EXPECT_EQ(DeviationOf({1e15 + 1, 1e15 + 2, 1e15 + 3}), 1.0);
  EXPECT_EQ(DeviationOf({-1e15 - 4, -1e15, -1e15 + 4}), 4.0);
  std::vector<double> alternating;
  for (int i = 0; i < 100000; ++i) alternating.push_back(1e15 + (i % 2 == 0 ? -1 : 1));
  EXPECT_DOUBLE_EQ(DeviationOf(alternating), std::sqrt(100000.0 / 99999));
}

TEST(SampleDeviationTest, IsNoNumberWithInfinities) {
  EXPECT_TRUE(std::isnan(DeviationOf({kInfinity, 1})));
  EXPECT_TRUE(std::isnan(DeviationOf({1, -kInfinity, 2})));
  EXPECT_TRUE(std::isnan(DeviationOf({kInfinity, kInfinity})));
}

TEST(SampleDeviationTest, KeepsSmallDifferences) {
  EXPECT_DOUBLE_EQ(DeviationOf({1e-300, 3e-300}), std::sqrt(2.0) * 1e-300);
}

using ColumnAggregates = EngineTest;

TEST_F(ColumnAggregates, AreKnownToSql) {
  Execute("CREATE TABLE t (a FLOAT)");
  Execute("INSERT INTO t VALUES (2), (4), (4), (4), (5), (5), (7), (9)");
  const auto reader = connection_->ExecuteReader("SELECT median(a), stdev(a) FROM t");
  ASSERT_TRUE(reader->Read());
  EXPECT_EQ(reader->GetDouble(0), 4.5);
  EXPECT_DOUBLE_EQ(reader->GetDouble(1), 2.138089935299395);
}

TEST_F(ColumnAggregates, SkipNullTextAndBytes) {
  EXPECT_EQ(Listed("SELECT median(column1) || ' ' || stdev(column1) FROM"
                   " (VALUES (NULL), (3), ('100'), (x'35'), ('word'), (1), (NULL))"),
            "2.0 1.4142135623731");
}

TEST_F(ColumnAggregates, AreNullWithoutEnoughValues) {
  Execute("CREATE TABLE t (a FLOAT)");
  EXPECT_EQ(Listed("SELECT median(a) FROM t"), "NULL");
  EXPECT_EQ(Listed("SELECT stdev(a) FROM t"), "NULL");
  Execute("INSERT INTO t VALUES (NULL), ('x')");
  EXPECT_EQ(Listed("SELECT median(a) FROM t"), "NULL");
  Execute("INSERT INTO t VALUES (5)");
  EXPECT_EQ(Listed("SELECT median(a) FROM t"), "5");
  EXPECT_EQ(Listed("SELECT stdev(a) FROM t"), "NULL");
}

TEST_F(ColumnAggregates, ANumberThatIsNoneBecomesNull) {
  EXPECT_EQ(Listed("SELECT stdev(column1) FROM (VALUES (1), (9e999))"), "NULL");
  EXPECT_EQ(Listed("SELECT median(column1) FROM (VALUES (-9e999), (9e999))"), "NULL");
}

TEST_F(ColumnAggregates, KeepGroupsApart) {
  Execute("CREATE TABLE t (g TEXT, a FLOAT)");
  Execute("INSERT INTO t VALUES ('x', 1), ('y', NULL), ('z', 10), ('x', 5), ('z', 20), ('z', 90)");
  EXPECT_EQ(Listed("SELECT median(a) FROM t GROUP BY g ORDER BY g"), "3 NULL 20");
  EXPECT_EQ(Listed("SELECT median(DISTINCT a > 5) FROM t WHERE g <> 'y'"), "0.5");
}

TEST_F(ColumnAggregates, LetGoOfAGroupThatIsNeverFinished) {
  Execute("CREATE TABLE t (a INTEGER)");
  Execute("INSERT INTO t VALUES (1), (2), (-9223372036854775807 - 1)");
  EXPECT_EQ(RaisedNumber([&] { Listed("SELECT median(abs(a)), stdev(abs(a)) FROM t"); }), 1);
  const auto reader = connection_->ExecuteReader("SELECT median(a) FROM t GROUP BY a");
  EXPECT_TRUE(reader->Read());
  reader->Close();
  EXPECT_EQ(Listed("SELECT median(a) FROM t WHERE a > 0"), "1.5");
}

TEST_F(ColumnAggregates, TakeOneArgument) {
  EXPECT_EQ(RaisedNumber([&] { Listed("SELECT median()"); }), 1);
  EXPECT_EQ(RaisedNumber([&] { Listed("SELECT stdev(1, 2)"); }), 1);
}

}  // namespace
}  // namespace tslm5
