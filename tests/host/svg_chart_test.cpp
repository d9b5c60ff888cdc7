#include "host/charts/svg_chart.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "host/charts/class_split.h"

namespace tslm5::host {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::string Bars(const ValueSketch& sketch, const std::vector<std::size_t>& slots) {
  const DisplayBins bins = ChooseBins({&sketch});
  return HistogramSvg(bins, CountsIn(bins, sketch), slots, 4, {"h", "Title", "Text"});
}

std::string Line(const std::vector<double>& values) {
  SeriesSketch series(static_cast<std::int64_t>(values.size()));
  for (std::size_t i = 0; i < values.size(); ++i) {
    series.Add(static_cast<std::int64_t>(i), values[i]);
  }
  return LineSvg(series, ChooseTicks(0, 10), {"l", "Title", "Text"});
}

std::string PathOf(const std::string& svg) {
  const std::string mark = "class=\"series\" d=\"";
  const std::size_t from = svg.find(mark) + mark.size();
  return svg.substr(from, svg.find('"', from) - from);
}

TEST(HistogramSvg, StacksClassesInTheirOrder) {
  ValueSketch sketch;
  for (const std::size_t slot : {0U, 1U, 1U, 1U}) sketch.Add(7, slot);
  const std::string svg = Bars(sketch, {1, 0});
  EXPECT_THAT(svg, HasSubstr("<title>7: 4</title>"
                             "<rect class=\"c0\" x=\"432.00\" y=\"60.00\" width=\"96.00\" "
                             "height=\"180.00\" data-count=\"3\"/>"
                             "<rect class=\"c1\" x=\"432.00\" y=\"0.00\" width=\"96.00\" "
                             "height=\"60.00\" data-count=\"1\"/>"));
}

TEST(HistogramSvg, ShowsASingleRecordAmongMany) {
  ValueSketch sketch;
  sketch.Add(1, 0);
  const DisplayBins bins = ChooseBins({&sketch});
  const std::string svg =
      HistogramSvg(bins, CountsIn(bins, sketch), {0}, 1000000, {"h", "Title", "Text"});
  EXPECT_THAT(svg, HasSubstr("height=\"2.50\""));
}

TEST(HistogramSvg, TellsItselfToThoseWhoDoNotSee) {
  const std::string svg = HistogramSvg({}, {}, {0}, 1, {"a\"b", "x < y", "<script>"});
  EXPECT_THAT(svg, HasSubstr("role=\"img\""));
  EXPECT_THAT(svg, HasSubstr("aria-labelledby=\"a&quot;b-t a&quot;b-d\""));
  EXPECT_THAT(svg, HasSubstr("<title id=\"a&quot;b-t\">x &lt; y</title>"));
  EXPECT_THAT(svg, HasSubstr("<desc id=\"a&quot;b-d\">&lt;script&gt;</desc>"));
  EXPECT_THAT(svg, Not(HasSubstr("<script")));
}

TEST(BinText, NamesAValueOrARange) {
  ValueSketch whole;
  whole.Add(-3, 0);
  EXPECT_EQ(BinText(ChooseBins({&whole}), 0), "\u22123");
  ValueSketch broken;
  for (const double value : {0.0, 0.5, 3.0}) broken.Add(value, 0);
  EXPECT_EQ(BinText(ChooseBins({&broken}), 1), "0.1 to 0.2");
}

TEST(LineSvg, DrawsEveryRecordOfAShortSeries) {
  EXPECT_EQ(PathOf(Line({0, 10, 5})), "M160.00 240.00L160.00 240.00L480.00 0.00L800.00 120.00");
}

TEST(LineSvg, HasGapsAndDots) {
  EXPECT_EQ(PathOf(Line({5, kNaN, 10, kNaN})),
            "M120.00 120.00L120.00 120.00M600.00 0.00L600.00 0.00");
}

TEST(LineSvg, KeepsThePeaksOfALongSeries) {
  std::vector<double> values(100000, 5.0);
  values[50001] = 10;
  values[70003] = 0;
  const std::string path = PathOf(Line(values));
  EXPECT_THAT(path, HasSubstr(" 0.00L"));
  EXPECT_THAT(path, HasSubstr(" 240.00L"));
  EXPECT_LT(path.size(), 40000U);
}

TEST(ChooseTicks, AreRoundAndHoldTheRange) {
  const AxisTicks ticks = ChooseTicks(104, 622);
  EXPECT_THAT(ticks.at, testing::ElementsAre(100, 200, 300, 400, 500, 600, 700));
  EXPECT_EQ(ticks.Place(100), 0.0);
  EXPECT_EQ(ticks.Place(700), 1.0);
  for (const auto& [low, high] :
       {std::pair(5.0, 5.0), {0.0, 0.0}, {-1.7e308, 1.7e308}, {-3e-9, 2e-9}, {1e15, 1e15 + 4}}) {
    const AxisTicks others = ChooseTicks(low, high);
    EXPECT_LE(others.low, low);
    EXPECT_GE(others.high, high);
    EXPECT_LT(others.low, others.high);
    EXPECT_LE(others.at.size(), 12U);
  }
}

TEST(ClassSplit, EndsWhereThereAreTooMany) {
  ClassSplit split;
  EXPECT_EQ(split.SlotOf(3), 0U);
  EXPECT_EQ(split.SlotOf(kNaN), 1U);
  EXPECT_EQ(split.SlotOf(1), 2U);
  EXPECT_EQ(split.SlotOf(kNaN), 1U);
  EXPECT_EQ(split.SlotsInOrder(), (std::vector<std::size_t>{2, 0, 1}));
  EXPECT_TRUE(split.IsUseful(true));
  EXPECT_FALSE(split.IsUseful(false)) << "too few records of each";
  for (const double value : {4, 5, 6}) split.SlotOf(value);
  EXPECT_FALSE(split.HasTooMany());
  EXPECT_EQ(split.SlotOf(7), 0U);
  EXPECT_TRUE(split.HasTooMany());
  EXPECT_FALSE(split.IsUseful(true));
}

}  // namespace
}  // namespace tslm5::host
