#ifndef TSLM5_HOST_CHARTS_DISPLAY_BINS_H_
#define TSLM5_HOST_CHARTS_DISPLAY_BINS_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "host/charts/value_sketch.h"

namespace tslm5::host {

/// Bins for the eye, their width 1, 2 or 5 times a power of ten, which several sketches share.
struct DisplayBins {
  static constexpr std::int64_t kMost = 32;

  std::int64_t first = 0;  ///< the first bin begins at `first` widths
  std::size_t count = 0;   ///< 0 where there are no values
  std::int64_t digit = 1;  ///< the width is digit * 10^power
  int power = 0;
  bool is_discrete = false;  ///< each bin holds one value, its begin

  /// Where bin i begins; `Edge(count)` is the end of the last.
  double Edge(std::size_t i) const;
};

/// The narrowest bins over all values of the sketches of which there are at most `kMost`.
DisplayBins ChooseBins(const std::vector<const ValueSketch*>& sketches);

/// The counts of a sketch in bins that were chosen for it.
std::vector<ClassCounts> CountsIn(const DisplayBins& bins, const ValueSketch& sketch);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_CHARTS_DISPLAY_BINS_H_
