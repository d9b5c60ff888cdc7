#include "host/charts/series_picture.h"

#include <fmt/format.h>

#include <cmath>
#include <string_view>

#include "host/charts/html_text.h"
#include "host/charts/value_range.h"

namespace tslm5::host {
namespace {

constexpr double kWidth = 800;
constexpr double kHeight = 400;
constexpr double kLeft = 90;
constexpr double kRight = 780;
constexpr double kTop = 50;
constexpr double kBottom = 360;
constexpr int kTicks = 4;  // parts of an axis

constexpr std::string_view kStyle =
    "<style>\n"
    "  .ground { fill: #ffffff } .ink { fill: #1f2328 } .line { stroke: #0a66c2; fill: none; "
    "stroke-width: 1.5; stroke-linejoin: round; stroke-linecap: round }\n"
    "  .grid { stroke: #d5d9de } text { font: 13px sans-serif }\n"
    "  @media (prefers-color-scheme: dark) {\n"
    "    .ground { fill: #14181d } .ink { fill: #e3e7ec } .line { stroke: #6cb2ff } .grid { "
    "stroke: "
    "#39414a }\n"
    "  }\n"
    "</style>\n";

double Across(std::size_t i, std::size_t count) {
  if (count < 2) return (kLeft + kRight) / 2;
  return kLeft + (kRight - kLeft) * static_cast<double>(i) / static_cast<double>(count - 1);
}

double Down(double value, const ValueRange& range) {
  return kBottom - (kBottom - kTop) * range.Place(value);
}

/// The rows to draw: all of them, or of each point across the ones that stand out.
std::vector<std::size_t> RowsToDraw(const std::vector<double>& values) {
  constexpr auto kPoints = static_cast<std::size_t>(kRight - kLeft);
  std::vector<std::size_t> rows;
  const std::size_t step = values.size() > 4 * kPoints ? values.size() / kPoints : 1;
  for (std::size_t start = 0; start < values.size(); start += step) {
    const std::size_t end = std::min(start + step, values.size());
    std::size_t low = start;
    std::size_t high = start;
    bool has_value = false;
    for (std::size_t i = start; i < end; ++i) {
      if (!std::isfinite(values[i])) continue;
      if (!has_value || values[i] < values[low]) low = i;
      if (!has_value || values[i] > values[high]) high = i;
      has_value = true;
    }
    rows.push_back(std::min(low, high));
    if (low != high) rows.push_back(std::max(low, high));
  }
  return rows;
}

/// The lines between the gaps. A value between two gaps is a line of no length, which its round
/// ends make a dot.
std::string Path(const std::vector<double>& values, const ValueRange& range) {
  std::string path;
  bool is_joined = false;
  for (const std::size_t i : RowsToDraw(values)) {
    if (!std::isfinite(values[i])) {
      is_joined = false;
      continue;
    }
    const std::string place =
        fmt::format("{:.2f} {:.2f}", Across(i, values.size()), Down(values[i], range));
    path += is_joined ? fmt::format("L{}", place) : fmt::format("M{0}L{0}", place);
    is_joined = true;
  }
  return path;
}

std::string Grid(const ValueRange& range, std::size_t count) {
  std::string grid;
  const int value_ticks = range.low == range.high ? 0 : kTicks;
  for (int tick = 0; tick <= value_ticks; ++tick) {
    const double part = static_cast<double>(tick) / kTicks;
    const double value = range.low * (1 - part) + range.high * part;
    const double y = Down(value, range);
    grid += fmt::format(
        "<line class=\"grid\" x1=\"{}\" x2=\"{}\" y1=\"{:.2f}\" y2=\"{:.2f}\"/>\n"
        "<text class=\"ink\" x=\"{}\" y=\"{:.2f}\" text-anchor=\"end\">{:.6g}</text>\n",
        kLeft, kRight, y, y, kLeft - 8, y + 4, value);
  }
  std::size_t former = count;
  for (std::size_t tick = 0; tick <= kTicks; ++tick) {
    const std::size_t row = (count - 1) * tick / kTicks;
    if (row == former) continue;
    former = row;
    grid +=
        fmt::format("<text class=\"ink\" x=\"{:.2f}\" y=\"{}\" text-anchor=\"middle\">{}</text>\n",
                    Across(row, count), kBottom + 22, row + 1);
  }
  return grid;
}

}  // namespace

std::string SeriesPicture(const std::string& title, const std::vector<double>& values) {
  const ValueRange range = ValueRange::Of(values);
  return fmt::format(
      "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 {0} {1}\" width=\"{0}\" "
      "height=\"{1}\" role=\"img\">\n{7}\n<title>{2}</title>\n{3}"
      "<rect class=\"ground\" width=\"{0}\" height=\"{1}\"/>\n"
      "<text class=\"ink\" x=\"{4}\" y=\"28\">{2}</text>\n{5}"
      "<path class=\"line\" d=\"{6}\"/>\n</svg>\n",
      kWidth, kHeight, HtmlText(title), kStyle, kLeft, Grid(range, values.size()),
      Path(values, range), kPictureMark);
}

}  // namespace tslm5::host
