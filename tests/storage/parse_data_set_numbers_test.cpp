// Numbers on their way through a data table: not a bit is lost.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "fakes/fake_data_set.h"
#include "storage/table_lite.h"
#include "storage/test_run.h"
#include "tslm5/platform/number_text.h"

namespace tslm5 {
namespace {

using Limits = std::numeric_limits<double>;

/// `values` as they read back from a one-column table that a dataset filled.
std::vector<double> ThroughATable(const std::vector<double>& values) {
  const TestRun run;
  std::vector<std::vector<double>> rows;
  for (const double value : values) rows.push_back({value});
  const Ref<TableLite> table = run.Table(1);
  table->ParseDataSet(*MakeObject<FakeDataSet>(rows));
  std::vector<double> read(values.size(), -1);
  for (std::size_t row = 0; row < values.size(); ++row) {
    EXPECT_TRUE(table->GetValue(0, static_cast<std::int32_t>(row), read[row]));
  }
  return read;
}

void ExpectTheSameBits(const std::vector<double>& values) {
  const std::vector<double> read = ThroughATable(values);
  for (std::size_t row = 0; row < values.size(); ++row) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(read[row]), std::bit_cast<std::uint64_t>(values[row]))
        << NumberText(values[row]);
  }
}

TEST(TableLiteNumbers, KeepEveryBit) {
  ExpectTheSameBits({0.0,
                     1.0 / 3.0,
                     1e300,
                     0.1 + 0.2,
                     -0.1,
                     5e-324,
                     -5e-324,
                     2.2250738585072011e-308,
                     Limits::min(),
                     Limits::max(),
                     Limits::lowest(),
                     Limits::epsilon(),
                     9007199254740993.0,
                     123456789012345678.0,
                     1e15,
                     1e14,
                     1e-5,
                     9.9999e-6,
                     9.2233720368547758e18,
                     1e22,
                     1e23,
                     8.98846567431158e307});
}

TEST(TableLiteNumbers, OfAnyPatternOfBitsKeepEveryBit) {
  std::mt19937_64 random(20240607);
  std::vector<double> values;
  while (values.size() < 5000) {
    const double value = std::bit_cast<double>(random());
    if (std::isfinite(value)) values.push_back(value);
  }
  ExpectTheSameBits(values);
}

TEST(TableLiteNumbers, NegativeZeroReadsAsZeroWithoutItsSign) {
  const double read = ThroughATable({-0.0}).front();
  EXPECT_EQ(read, 0.0);
  EXPECT_FALSE(std::signbit(read));
}

TEST(TableLiteNumbers, NotANumberIsNullAndReadsAsNotANumber) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(3);
  const double nan = Limits::quiet_NaN();
  EXPECT_TRUE(table->ParseDataSet(
      *MakeObject<FakeDataSet>(std::vector<std::vector<double>>{{1, nan, 3}, {-nan, 5, nan}})));
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"1|NULL|3|1", "NULL|5|NULL|2"}));
  double value = 0;
  EXPECT_TRUE(table->GetValue(1, 0, value));
  EXPECT_TRUE(std::isnan(value));
}

TEST(TableLiteNumbers, OfALineOfTextAreReadCorrectlyRounded) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(
      1, {"0.1", "1e23", "8.5e-324", "9007199254740993", "123456789012345678901234567890"});
  const std::vector<double> expected = {0.1, 1e23, 1e-323, 9007199254740992.0,
                                        1.2345678901234568e29};
  for (std::size_t row = 0; row < expected.size(); ++row) {
    double value = 0;
    ASSERT_TRUE(table->GetValue(0, static_cast<std::int32_t>(row), value));
    EXPECT_EQ(value, expected[row]) << NumberText(value);
  }
}

TEST(TableLiteNumbers, PutIntoACellKeepEveryBit) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"1"});
  for (const double number : {1.0 / 3.0, 1e300, 5e-324, 0.1 + 0.2, Limits::max()}) {
    ASSERT_TRUE(table->PutValue(0, 0, number));
    ASSERT_TRUE(table->Save());
    ASSERT_TRUE(table->LoadRecordSet());
    double value = 0;
    ASSERT_TRUE(table->GetValue(0, 0, value));
    EXPECT_EQ(value, number);
  }
}

}  // namespace
}  // namespace tslm5
