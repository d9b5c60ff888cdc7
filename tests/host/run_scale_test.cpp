#include "host/preparation/run_scale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "host/program/failure.h"

namespace tslm5::host {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(RunScale, ReadsWhatItWrites) {
  for (const char* text : {"none", "zscore", "minmax", "range:-1.5:2"}) {
    EXPECT_EQ(ScaleText(ParseScale(text)), text);
  }
  const RunScale range = ParseScale("range:-1.5:2");
  EXPECT_EQ(range.type, 3);
  EXPECT_EQ(range.new_minimum, -1.5);
  EXPECT_EQ(range.new_maximum, 2.0);
}

TEST(RunScale, RefusesEmptyAndBoundlessRanges) {
  for (const char* text : {"", "range:", "range:2:2", "range:3:2", "range:-1.7e308:1.7e308"}) {
    EXPECT_THROW(ParseScale(text), Failure) << text;
  }
}

TEST(RunScale, ComputesTheFiguresOfNumbersAlone) {
  const ScaleFigures figures = ComputeFigures({2.0, kNaN, 4.0, 9.0});
  EXPECT_DOUBLE_EQ(figures.average.value(), 5.0);
  EXPECT_DOUBLE_EQ(figures.deviation.value(), std::sqrt(13.0));
  EXPECT_EQ(figures.minimum, 2.0);
  EXPECT_EQ(figures.maximum, 9.0);
}

TEST(RunScale, HasNoFiguresWithoutNumbers) {
  EXPECT_FALSE(ComputeFigures({kNaN}).average.has_value());
  const ScaleFigures one = ComputeFigures({3.0});
  EXPECT_EQ(one.average, 3.0);
  EXPECT_FALSE(one.deviation.has_value());
}

TEST(RunScale, ScalesByTheFigures) {
  const ScaleFigures figures{4.0, 2.0, 1.0, 11.0};
  EXPECT_DOUBLE_EQ(Scaled(6.0, ParseScale("zscore"), figures), 1.0);
  EXPECT_DOUBLE_EQ(Scaled(6.0, ParseScale("minmax"), figures), 0.5);
  EXPECT_DOUBLE_EQ(Scaled(6.0, ParseScale("range:-1:3"), figures), 1.0);
  EXPECT_DOUBLE_EQ(Scaled(6.0, ParseScale("none"), figures), 6.0);
  EXPECT_TRUE(std::isnan(Scaled(kNaN, ParseScale("minmax"), figures)));
}

TEST(RunScale, LeavesAValueExactlyAsItIsByTheFiguresOfIdentity) {
  for (const char* text : {"none", "zscore", "minmax", "range:0.1:0.3"}) {
    const RunScale scale = ParseScale(text);
    EXPECT_EQ(Scaled(0.7, scale, IdentityFigures(scale)), 0.7) << text;
  }
}

TEST(RunScale, CannotScaleAConstantNorWhatIsTooLarge) {
  const RunScale minmax = ParseScale("minmax");
  EXPECT_TRUE(CanScale(minmax, ComputeFigures({1.0, 2.0})));
  EXPECT_FALSE(CanScale(minmax, ComputeFigures({2.0, 2.0})));
  EXPECT_FALSE(CanScale(minmax, ComputeFigures({2.0})));
  EXPECT_FALSE(CanScale(minmax, ComputeFigures({})));
  EXPECT_FALSE(CanScale(minmax, ComputeFigures({-1.5e308, 1.5e308})));
  EXPECT_FALSE(CanScale(ParseScale("zscore"), ComputeFigures({-1.5e308, 1.5e308})));
}

}  // namespace
}  // namespace tslm5::host
