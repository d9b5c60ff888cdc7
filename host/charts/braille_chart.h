#ifndef TSLM5_HOST_CHARTS_BRAILLE_CHART_H_
#define TSLM5_HOST_CHARTS_BRAILLE_CHART_H_

#include <cstdint>
#include <string>
#include <vector>

namespace tslm5::host {

/// The size of a chart in characters, with its axes.
struct ChartSize {
  std::int32_t width = 80;
  std::int32_t height = 17;
};

/// The smallest chart that its axes leave room in.
inline constexpr ChartSize kSmallestChart = {30, 5};

/// Draws values in order, joined by lines, with braille characters: two dots wide and four high
/// each. Beside them stand the largest and the smallest value, below them the first and the last
/// row number, counted from 1. A value that is no finite number leaves a gap. "" without any value.
/// REQUIRES: at least `kSmallestChart`.
std::string BrailleChart(const std::vector<double>& values, ChartSize size);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_CHARTS_BRAILLE_CHART_H_
