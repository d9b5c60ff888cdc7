#include "host/charts/svg_chart.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "host/charts/html_text.h"

namespace tslm5::host {
namespace {

constexpr double kWidth = 960.0;
constexpr double kHeight = 240.0;
constexpr double kBarShare = 0.88;   // of a bin's width
constexpr double kLeastBar = 2.5;    // so that a bar of one record is seen
constexpr double kWidestBar = 96.0;  // of a column of few values
constexpr int kTickSteps = 5;
constexpr double kLeeway = 0.8;  // of a step that is as good as a longer one

std::string Opening(const ChartWords& words, std::string_view kind) {
  return fmt::format(
      "<svg class=\"{0}\" role=\"img\" viewBox=\"0 0 {1} {2}\" preserveAspectRatio=\"none\" "
      "aria-labelledby=\"{3}-t {3}-d\"><title id=\"{3}-t\">{4}</title><desc id=\"{3}-d\">{5}"
      "</desc>",
      kind, kWidth, kHeight, HtmlText(words.id), HtmlText(words.title),
      HtmlText(words.description));
}

std::int64_t Total(const ClassCounts& counts) {
  return std::accumulate(counts.begin(), counts.end(), std::int64_t{0});
}

/// A coordinate, to a hundredth.
std::string At(double value) {
  return fmt::format("{:.2f}", value);
}

}  // namespace

std::string BinText(const DisplayBins& bins, std::size_t i) {
  if (bins.is_discrete) return FigureText(bins.Edge(i));
  return FigureText(bins.Edge(i)) + " to " + FigureText(bins.Edge(i + 1));
}

std::string HistogramSvg(const DisplayBins& bins, const std::vector<ClassCounts>& counts,
                         const std::vector<std::size_t>& slots, std::int64_t highest,
                         const ChartWords& words) {
  std::string svg = Opening(words, "bars");
  const double step = kWidth / static_cast<double>(std::max<std::size_t>(bins.count, 1));
  const double width = std::min(step * kBarShare, kWidestBar);
  for (std::size_t i = 0; i < counts.size(); ++i) {
    const std::int64_t total = Total(counts[i]);
    if (total == 0) continue;
    const double left = step * (static_cast<double>(i) + 0.5) - width / 2;
    const double height =
        std::max(kLeastBar, kHeight * static_cast<double>(total) / static_cast<double>(highest));
    svg += fmt::format("<g><title>{}: {}</title>", BinText(bins, i), CountText(total));
    double bottom = kHeight;
    for (std::size_t colour = 0; colour < slots.size(); ++colour) {
      const std::int64_t count = counts[i][slots[colour]];
      if (count == 0) continue;
      const double part = height * static_cast<double>(count) / static_cast<double>(total);
      bottom -= part;
      svg += fmt::format(
          "<rect class=\"c{}\" x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\" data-count=\"{}\"/>",
          colour, At(left), At(bottom), At(width), At(part), count);
    }
    svg += "</g>";
  }
  return svg + "</svg>";
}

double AxisTicks::Place(double value) const {
  return (value / 2 - low / 2) / (high / 2 - low / 2);  // halves: the difference may be too large
}

AxisTicks ChooseTicks(double low, double high) {
  AxisTicks ticks;
  if (!(low < high)) {
    const double reach = low == 0.0 ? 1.0 : std::abs(low) / 2;
    low -= reach;
    high += reach;
  }
  const double rough = high / kTickSteps - low / kTickSteps;
  const int power = static_cast<int>(std::floor(std::log10(rough)));
  std::int64_t digit = 1;
  for (const std::int64_t one : {1, 2, 5, 10}) {
    digit = one;
    if (TimesPowerOfTen(static_cast<double>(one), power) >= kLeeway * rough) break;
  }
  const double step = TimesPowerOfTen(static_cast<double>(digit), power);
  const double first = std::floor(low / step);
  const double last = std::ceil(high / step);
  for (double place = first; place <= last; ++place) {
    ticks.at.push_back(TimesPowerOfTen(place * static_cast<double>(digit), power));
  }
  ticks.low = ticks.at.front();
  ticks.high = ticks.at.back();
  return ticks;
}

std::string LineSvg(const SeriesSketch& series, const AxisTicks& ticks, const ChartWords& words) {
  std::string svg = Opening(words, "line");
  for (const double tick : ticks.at) {
    const std::string y = At(kHeight * (1.0 - ticks.Place(tick)));
    svg += fmt::format("<path class=\"grid\" d=\"M0 {}H{}\"/>", y, kWidth);
  }
  const double step = kWidth / static_cast<double>(std::max<std::size_t>(series.Runs().size(), 1));
  std::string path;
  bool is_gap = true;
  for (std::size_t i = 0; i < series.Runs().size(); ++i) {
    const SeriesSketch::Run& run = series.Runs()[i];
    if (run.has_values) {
      const std::string x = At(step * (static_cast<double>(i) + 0.5));
      const auto add = [&](char command, double value) {
        path += command + x + " " + At(kHeight * (1.0 - ticks.Place(value)));
      };
      add(is_gap ? 'M' : 'L', run.has_low_first ? run.low : run.high);
      // A point alone is drawn as a dot: a line of no length with a round end.
      if (is_gap || run.low < run.high) add('L', run.has_low_first ? run.high : run.low);
    }
    is_gap = !run.has_values;
  }
  return svg + fmt::format("<path class=\"series\" d=\"{}\"/></svg>", path);
}

}  // namespace tslm5::host
