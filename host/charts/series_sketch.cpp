#include "host/charts/series_sketch.h"

#include <algorithm>
#include <cmath>

namespace tslm5::host {

SeriesSketch::SeriesSketch(std::int64_t records)
    : records_(records), runs_(static_cast<std::size_t>(std::min(records, kMostRuns))) {}

void SeriesSketch::Add(std::int64_t record, double value) {
  if (!std::isfinite(value)) return;
  const auto size = static_cast<std::int64_t>(runs_.size());
  Run& run = runs_[static_cast<std::size_t>(record * size / records_)];
  if (!run.has_values) {
    run = {true, value, value, true};
  } else if (value < run.low) {
    run.low = value;
    run.has_low_first = false;
  } else if (value > run.high) {
    run.high = value;
    run.has_low_first = true;
  }
  low_ = has_values_ ? std::min(low_, value) : value;
  high_ = has_values_ ? std::max(high_, value) : value;
  has_values_ = true;
}

}  // namespace tslm5::host
