#ifndef TSLM5_HOST_CHARTS_SVG_CHART_H_
#define TSLM5_HOST_CHARTS_SVG_CHART_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "host/charts/display_bins.h"
#include "host/charts/series_sketch.h"

namespace tslm5::host {

// Drawings that fill the box they stand in, whatever its shape; their words stand around them. All
// colours are classes of the page's style: "c0", "c1", ... for the classes of a response.

/// What a drawing is called and tells to those who do not see it. Plain text.
struct ChartWords {
  std::string id;  ///< of the drawing on its page
  std::string title;
  std::string description;
};

/// A bar a bin, in one colour or stacked by class: `slots` are the classes from below, in the order
/// of their colours. `highest` is the count at the top of the box; a bar of any count is seen.
std::string HistogramSvg(const DisplayBins& bins, const std::vector<ClassCounts>& counts,
                         const std::vector<std::size_t>& slots, std::int64_t highest,
                         const ChartWords& words);

/// What a bin holds, for a reader: "3" or "4.2 to 4.4".
std::string BinText(const DisplayBins& bins, std::size_t i);

/// Marks of an axis at round numbers.
struct AxisTicks {
  std::vector<double> at;
  double low = 0.0;   ///< of the axis
  double high = 0.0;  ///< above `low`

  /// How far up the axis a value stands, from 0 to 1.
  double Place(double value) const;
};

/// An axis from at most `low` to at least `high`.
AxisTicks ChooseTicks(double low, double high);

/// A line with a gap where values are missing, and a faint line at every tick.
std::string LineSvg(const SeriesSketch& series, const AxisTicks& ticks, const ChartWords& words);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_CHARTS_SVG_CHART_H_
