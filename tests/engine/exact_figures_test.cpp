// Median and deviation against figures computed without any rounding: the values are whole numbers
// of a small power of two, so that their sums and squares are whole numbers of 128 bits.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "engine/column_aggregates.h"
#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

__extension__ using Whole = __int128;

/// Whole numbers of 2^-`shift`. At most 4096 of them, each below 2^50.
struct Sample {
  std::string name;
  std::vector<std::int64_t> units;
  int shift = 0;

  std::vector<double> Values() const {
    std::vector<double> values;
    for (const std::int64_t unit : units) {
      values.push_back(std::ldexp(static_cast<double>(unit), -shift));
    }
    return values;
  }
};

/// Twice the median in units.
std::int64_t ExactTwoMedians(const Sample& sample) {
  std::vector<std::int64_t> units = sample.units;
  std::sort(units.begin(), units.end());
  const std::size_t middle = units.size() / 2;
  return units[middle] + units[units.size() % 2 == 1 ? middle : middle - 1];
}

/// The square root of (n * sum of squares - square of the sum) / (n * (n - 1)): the numerator is
/// exact, and only the last quotient and the root are rounded, to 64 bits.
double ExactDeviation(const Sample& sample) {
  Whole sum = 0;
  Whole squares = 0;
  for (const std::int64_t unit : sample.units) {
    sum += unit;
    squares += static_cast<Whole>(unit) * unit;
  }
  const auto count = static_cast<Whole>(sample.units.size());
  const auto numerator = static_cast<long double>(count * squares - sum * sum);
  const long double variance = numerator / static_cast<long double>(count * (count - 1));
  return static_cast<double>(std::ldexp(std::sqrt(variance), -sample.shift));
}

std::vector<Sample> NamedSamples() {
  constexpr std::int64_t kBillion = 1'000'000'000;
  constexpr std::int64_t kFar = 1'000'000'000'000'000;
  return {
      {"around a billion", {kBillion + 1, kBillion + 2, kBillion + 3}, 0},
      {"far from zero", {kFar + 1, kFar + 2, kFar + 3}, 0},
      {"far below zero", {-kFar, -kFar + 7, -kFar + 1, -kFar + 3}, 0},
      {"all equal", std::vector<std::int64_t>(1000, kFar + 1), 0},
      {"all zero", {0, 0, 0}, 0},
      {"both sides of zero", {-kFar, kFar}, 0},
      {"one far off", {1, 2, 3, 4, kFar}, 0},
      {"small fractions", {1, 3, 3, 8}, 40},
  };
}

Sample RandomSample(std::mt19937_64& random, int round) {
  Sample sample{"round " + std::to_string(round), {}, static_cast<int>(random() % 30)};
  const int width = 1 + static_cast<int>(random() % 48);  // bits of the spread
  const auto offset = static_cast<std::int64_t>(random() % (1ULL << (1 + random() % 49)));
  const std::size_t count = 2 + random() % (round % 8 == 0 ? 4000 : 60);
  for (std::size_t i = 0; i < count; ++i) {
    const auto spread = static_cast<std::int64_t>(random() % (1ULL << width));
    sample.units.push_back((random() % 3 == 0 ? -spread : spread) + offset);
  }
  for (std::int64_t& unit : sample.units)
    unit = std::clamp<std::int64_t>(unit, -(1LL << 49), 1LL << 49);
  return sample;
}

/// Equal to 1e-12 of the expected value.
void ExpectClose(double got, double expected, const std::string& what) {
  EXPECT_LE(std::fabs(got - expected), 1e-12 * std::fabs(expected))
      << what << ": " << got << " for " << expected;
}

class ExactFigures : public EngineTest {
 protected:
  /// The two figures by the functions, by one scan of a table, and by SQLite's calls (an alias
  /// makes the statement go that way).
  void Check(const Sample& sample) {
    std::vector<double> values = sample.Values();
    Execute("DROP TABLE IF EXISTS t");
    Execute("CREATE TABLE t (a FLOAT)");
    connection_->BeginTrans();
    for (const double value : values) Execute("INSERT INTO t VALUES (" + NumberText(value) + ");");
    connection_->CommitTrans();

    const double median =
        std::ldexp(static_cast<double>(ExactTwoMedians(sample)), -sample.shift - 1);
    const double deviation = ExactDeviation(sample);
    ExpectClose(SampleDeviation(values).value(), deviation, sample.name + ", deviation");
    ExpectClose(Median(values).value(), median, sample.name + ", median");
    for (const std::string alias : {"", " AS x"}) {
      const Ref<IDataReader> reader =
          connection_->ExecuteReader("SELECT median(a), stdev(a)" + alias + " FROM t");
      ASSERT_TRUE(reader->Read());
      ExpectClose(reader->GetDouble(0), median, sample.name + ", median in SQL" + alias);
      ExpectClose(reader->GetDouble(1), deviation, sample.name + ", deviation in SQL" + alias);
    }
  }
};

TEST_F(ExactFigures, AreMetByNamedSamples) {
  for (const Sample& sample : NamedSamples()) Check(sample);
}

TEST_F(ExactFigures, AreMetByRandomSamples) {
  std::mt19937_64 random(2026);
  for (int round = 0; round < 300; ++round) Check(RandomSample(random, round));
}

TEST_F(ExactFigures, OfOneValueAndOfNone) {
  Execute("CREATE TABLE t (a FLOAT)");
  EXPECT_EQ(Listed("SELECT median(a), stdev(a) FROM t"), "NULL");
  Execute("INSERT INTO t VALUES (1000000001.5);");
  EXPECT_EQ(Listed("SELECT median(a) FROM t"), "1000000001.5");
  EXPECT_EQ(Listed("SELECT stdev(a) FROM t"), "NULL");
}

}  // namespace
}  // namespace tslm5
