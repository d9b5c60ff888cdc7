#ifndef TSLM5_HOST_CHARTS_VALUE_RANGE_H_
#define TSLM5_HOST_CHARTS_VALUE_RANGE_H_

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace tslm5::host {

/// The smallest and the largest finite value of some.
struct ValueRange {
  double low = std::numeric_limits<double>::infinity();
  double high = -std::numeric_limits<double>::infinity();

  static ValueRange Of(const std::vector<double>& values) {
    ValueRange range;
    for (const double value : values) {
      if (!std::isfinite(value)) continue;
      range.low = std::min(range.low, value);
      range.high = std::max(range.high, value);
    }
    return range;
  }

  bool IsEmpty() const { return low > high; }
  double Middle() const { return low / 2 + high / 2; }
  /// Where a value lies, 0 the smallest and 1 the largest; the middle where all are the same.
  double Place(double value) const {
    const double half_span = high / 2 - low / 2;  // the span itself may be too large
    return half_span > 0 ? (value / 2 - low / 2) / half_span : 0.5;
  }
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_CHARTS_VALUE_RANGE_H_
