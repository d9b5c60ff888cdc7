#include "host/charts/value_sketch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

#include "host/charts/display_bins.h"

namespace tslm5::host {
namespace {

ValueSketch SketchOf(const std::vector<double>& values) {
  ValueSketch sketch;
  for (const double value : values) sketch.Add(value, 0);
  return sketch;
}

std::vector<std::int32_t> BarsOf(const ValueSketch& sketch) {
  std::vector<std::int32_t> bars;
  for (const ClassCounts& counts : CountsIn(ChooseBins({&sketch}), sketch)) {
    bars.push_back(std::accumulate(counts.begin(), counts.end(), 0));
  }
  return bars;
}

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(ValueSketch, KeepsFigures) {
  const ValueSketch sketch = SketchOf({1, kNaN, 2, 6});
  EXPECT_EQ(sketch.Values(), 3);
  EXPECT_EQ(sketch.Missing(), 1);
  EXPECT_DOUBLE_EQ(*sketch.Mean(), 3.0);
  EXPECT_DOUBLE_EQ(*sketch.Deviation(), std::sqrt(7.0));
  EXPECT_EQ(sketch.Minimum(), 1.0);
  EXPECT_EQ(sketch.Maximum(), 6.0);
}

TEST(ValueSketch, TakesItsExtremesFromTheFirstValueOn) {
  const ValueSketch falling = SketchOf({-3, -5});
  EXPECT_EQ(falling.Minimum(), -5.0);
  EXPECT_EQ(falling.Maximum(), -3.0);
  const ValueSketch rising = SketchOf({3, 5});
  EXPECT_EQ(rising.Minimum(), 3.0);
  EXPECT_EQ(rising.Maximum(), 5.0);
}

TEST(ValueSketch, HasADeviationOfTwoValues) {
  EXPECT_DOUBLE_EQ(*SketchOf({1, 3}).Deviation(), std::sqrt(2.0));
}

TEST(ValueSketch, HasNoFiguresOfNothing) {
  const ValueSketch sketch = SketchOf({kNaN});
  EXPECT_FALSE(sketch.Mean());
  EXPECT_FALSE(sketch.Maximum());
  EXPECT_FALSE(SketchOf({5}).Deviation());
  EXPECT_EQ(ChooseBins({&sketch}).count, 0U);
}

TEST(ValueSketch, StaysSmallAndLosesNoValue) {
  ValueSketch sketch;
  double value = 1e-250;
  for (int i = 0; i < 3000; ++i, value *= 1.4) sketch.Add(i % 2 == 0 ? value : -value, 0);
  EXPECT_LE(sketch.Bins().size(), static_cast<std::size_t>(ValueSketch::kMostBins));
  std::int64_t held = 0;
  for (const ClassCounts& counts : sketch.Bins()) held += counts[0];
  EXPECT_EQ(held, 3000);
}

TEST(ValueSketch, HasInfiniteValuesInNoBin) {
  const ValueSketch sketch = SketchOf({1, std::numeric_limits<double>::infinity()});
  EXPECT_EQ(sketch.Values(), 2);
  EXPECT_EQ(sketch.Bins().size(), 1U);
}

TEST(ValueSketch, MergesClasses) {
  ValueSketch sketch;
  sketch.Add(1, 0);
  sketch.Add(1, 3);
  EXPECT_EQ(sketch.Bins()[0][3], 1);
  sketch.MergeClasses();
  EXPECT_EQ(sketch.Bins()[0][0], 2);
  EXPECT_EQ(sketch.Bins()[0][3], 0);
}

TEST(DisplayBins, HaveABarForEachWholeNumber) {
  const ValueSketch sketch = SketchOf({3, 1, 3, 5});
  const DisplayBins bins = ChooseBins({&sketch});
  EXPECT_TRUE(bins.is_discrete);
  EXPECT_EQ(bins.Edge(0), 1.0);
  EXPECT_EQ(BarsOf(sketch), (std::vector<std::int32_t>{1, 0, 2, 0, 1}));
}

TEST(DisplayBins, CoverAllSketchesWhicheverBeginsLower) {
  const ValueSketch high = SketchOf({5, 6});
  const ValueSketch low = SketchOf({1, 2});
  for (const auto& sketches : {std::vector{&high, &low}, {&low, &high}}) {
    const DisplayBins bins = ChooseBins(sketches);
    EXPECT_EQ(bins.Edge(0), 1.0);
    EXPECT_EQ(bins.Edge(bins.count - 1), 6.0);
    for (const ValueSketch* sketch : sketches) {
      std::int32_t held = 0;
      for (const ClassCounts& counts : CountsIn(bins, *sketch)) held += counts[0];
      EXPECT_EQ(held, 2);
    }
  }
}

TEST(DisplayBins, HaveOneBarForAConstant) {
  const ValueSketch sketch = SketchOf({0.5, 0.5});
  const DisplayBins bins = ChooseBins({&sketch});
  EXPECT_TRUE(bins.is_discrete);
  EXPECT_EQ(bins.Edge(0), 0.5);
  EXPECT_EQ(BarsOf(sketch), std::vector<std::int32_t>{2});
}

TEST(DisplayBins, BeginAtRoundNumbersWhateverTheRounding) {
  std::vector<double> values;
  for (int i = 0; i < 30; ++i) values.push_back(i / 100.0);  // 0.29 * 100 is below 29
  const ValueSketch sketch = SketchOf(values);
  EXPECT_EQ(BarsOf(sketch), std::vector<std::int32_t>(30, 1));
  EXPECT_EQ(ChooseBins({&sketch}).Edge(29), 0.29);
}

TEST(DisplayBins, AreFewOverTheWholeRange) {
  for (const std::vector<double>& values : {std::vector<double>{-1.7e308, 1.7e308},
                                            {1e-300, 1e300},
                                            {0, 5e-324},
                                            {1e15, 1e15 + 2},
                                            {-0.001, 1234567}}) {
    const ValueSketch sketch = SketchOf(values);
    const DisplayBins bins = ChooseBins({&sketch});
    EXPECT_LE(bins.count, static_cast<std::size_t>(DisplayBins::kMost));
    const std::vector<std::int32_t> bars = BarsOf(sketch);
    EXPECT_EQ(std::accumulate(bars.begin(), bars.end(), 0), 2) << values[1];
  }
}

TEST(DisplayBins, AreSharedBySketches) {
  const ValueSketch wide = SketchOf({0, 1000});
  const ValueSketch narrow = SketchOf({10.25, 10.5, 700.5});
  const DisplayBins bins = ChooseBins({&wide, &narrow});
  EXPECT_EQ(bins.Edge(1) - bins.Edge(0), 50.0);
  EXPECT_EQ(CountsIn(bins, narrow)[0][0], 2);
  EXPECT_EQ(CountsIn(bins, narrow)[14][0], 1);
  EXPECT_EQ(CountsIn(bins, wide)[20][0], 1);
}

}  // namespace
}  // namespace tslm5::host
