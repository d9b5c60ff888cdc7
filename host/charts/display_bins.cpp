#include "host/charts/display_bins.h"

#include <algorithm>
#include <optional>

namespace tslm5::host {
namespace {

constexpr std::int64_t kDigits[] = {1, 2, 5};
constexpr std::int64_t kManyTimes = 100000000000000000;  // more than any bin's number

/// How many of a sketch's bins one bin for the eye takes.
std::int64_t Times(const DisplayBins& bins, const ValueSketch& sketch) {
  std::int64_t times = bins.digit;
  for (int power = sketch.Power(); power < bins.power && times < kManyTimes; ++power) times *= 10;
  return times;
}

/// Lays the bins over all sketches, whatever their number.
void Cover(const std::vector<const ValueSketch*>& sketches, DisplayBins& bins) {
  bool has_any = false;
  std::int64_t last = 0;
  for (const ValueSketch* sketch : sketches) {
    if (sketch->Bins().empty()) continue;
    const std::int64_t times = Times(bins, *sketch);
    const auto size = static_cast<std::int64_t>(sketch->Bins().size());
    const std::int64_t begin = FloorDivide(sketch->FirstBin(), times);
    const std::int64_t end = FloorDivide(sketch->FirstBin() + size - 1, times);
    bins.first = has_any ? std::min(bins.first, begin) : begin;
    last = has_any ? std::max(last, end) : end;
    has_any = true;
  }
  bins.count = has_any ? static_cast<std::size_t>(last - bins.first + 1) : 0;
}

}  // namespace

double DisplayBins::Edge(std::size_t i) const {
  const std::int64_t place = (first + static_cast<std::int64_t>(i)) * digit;
  return TimesPowerOfTen(static_cast<double>(place), power);
}

DisplayBins ChooseBins(const std::vector<const ValueSketch*>& sketches) {
  DisplayBins bins;
  bool is_whole = true;
  bool is_constant = true;
  bool has_any = false;
  std::optional<double> value;
  for (const ValueSketch* sketch : sketches) {
    if (sketch->Bins().empty()) continue;
    bins.power = has_any ? std::max(bins.power, sketch->Power()) : sketch->Power();
    is_whole = is_whole && sketch->IsWhole();
    if (!has_any) value = sketch->Minimum();
    is_constant = is_constant && sketch->Minimum() == value && sketch->Maximum() == value;
    has_any = true;
  }
  if (!has_any) return bins;
  if (is_whole) bins.power = std::max(bins.power, 0);
  for (;; ++bins.power) {
    for (const std::int64_t digit : kDigits) {
      bins.digit = digit;
      Cover(sketches, bins);
      bins.is_discrete = is_constant || (is_whole && bins.power == 0 && digit == 1);
      if (bins.count <= static_cast<std::size_t>(DisplayBins::kMost)) return bins;
    }
  }
}

std::vector<ClassCounts> CountsIn(const DisplayBins& bins, const ValueSketch& sketch) {
  std::vector<ClassCounts> counts(bins.count);
  if (sketch.Bins().empty()) return counts;
  const std::int64_t times = Times(bins, sketch);
  for (std::size_t i = 0; i < sketch.Bins().size(); ++i) {
    const std::int64_t bin =
        FloorDivide(sketch.FirstBin() + static_cast<std::int64_t>(i), times) - bins.first;
    for (std::size_t slot = 0; slot < kSketchClasses; ++slot) {
      counts[static_cast<std::size_t>(bin)][slot] += sketch.Bins()[i][slot];
    }
  }
  return counts;
}

}  // namespace tslm5::host
