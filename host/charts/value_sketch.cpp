#include "host/charts/value_sketch.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace tslm5::host {
namespace {

constexpr int kLeastPower = -290;  // so that 10^-power is a double
constexpr int kWholeDigits = 14;   // of a place that a double tells from its neighbours
constexpr int kInt64Digits = 18;

/// The narrowest bins that can hold `value`: their numbers stay exact whole numbers.
int NarrowestPower(double value) {
  if (value == 0.0) return -kWholeDigits;
  return std::max(kLeastPower,
                  static_cast<int>(std::floor(std::log10(std::abs(value)))) - kWholeDigits);
}

/// The bin of `value`. A value that differs from a bin's begin by rounding alone belongs to it:
/// 0.29 is 29 times 0.01.
std::int64_t BinOf(double value, int power) {
  const double place = TimesPowerOfTen(value, -power);
  const double nearest = std::nearbyint(place);
  constexpr double kRounding = 4 * std::numeric_limits<double>::epsilon();
  if (std::abs(place - nearest) <= kRounding * std::abs(place)) {
    return static_cast<std::int64_t>(nearest);
  }
  return static_cast<std::int64_t>(std::floor(place));
}

std::int64_t WholePower(int power) {
  std::int64_t result = 1;
  for (int i = 0; i < std::min(power, kInt64Digits); ++i) result *= 10;
  return result;
}

}  // namespace

double TimesPowerOfTen(double number, int power) {
  return power < 0 ? number / std::pow(10.0, -power) : number * std::pow(10.0, power);
}

std::int64_t FloorDivide(std::int64_t number, std::int64_t divisor) {
  const std::int64_t quotient = number / divisor;
  return number % divisor < 0 ? quotient - 1 : quotient;
}

void ValueSketch::Add(double value, std::size_t slot) {
  if (std::isnan(value)) {
    ++missing_;
    return;
  }
  minimum_ = values_ == 0 ? value : std::min(minimum_, value);
  maximum_ = values_ == 0 ? value : std::max(maximum_, value);
  ++values_;
  const double distance = value - mean_;
  mean_ += distance / static_cast<double>(values_);
  squares_ += distance * (value - mean_);
  if (!std::isfinite(value)) return;
  is_whole_ = is_whole_ && value == std::floor(value);
  Count(value, slot);
}

void ValueSketch::Count(double value, std::size_t slot) {
  const int narrowest = NarrowestPower(value);
  if (bins_.empty()) {
    power_ = narrowest;
    first_bin_ = BinOf(value, power_);
  }
  WidenTo(narrowest);
  std::int64_t bin = BinOf(value, power_);
  const auto is_too_far = [&] {
    const std::int64_t last = first_bin_ + static_cast<std::int64_t>(bins_.size()) - 1;
    return std::max(bin, last) - std::min(bin, first_bin_) >= kMostBins;
  };
  while (is_too_far()) {
    WidenTo(power_ + 1);
    bin = BinOf(value, power_);
  }
  if (bin < first_bin_) {
    bins_.insert(bins_.begin(), static_cast<std::size_t>(first_bin_ - bin), ClassCounts{});
    first_bin_ = bin;
  }
  const auto place = static_cast<std::size_t>(bin - first_bin_);
  if (place >= bins_.size()) bins_.resize(place + 1);
  ++bins_[place][slot];
}

void ValueSketch::WidenTo(int power) {
  if (power <= power_) return;
  const std::int64_t times = WholePower(power - power_);
  const std::int64_t first = FloorDivide(first_bin_, times);
  std::vector<ClassCounts> wider;
  for (std::size_t i = 0; i < bins_.size(); ++i) {
    const std::int64_t bin = FloorDivide(first_bin_ + static_cast<std::int64_t>(i), times);
    const auto place = static_cast<std::size_t>(bin - first);
    if (place >= wider.size()) wider.resize(place + 1);
    for (std::size_t slot = 0; slot < kSketchClasses; ++slot) wider[place][slot] += bins_[i][slot];
  }
  bins_ = std::move(wider);
  first_bin_ = first;
  power_ = power;
}

void ValueSketch::MergeClasses() {
  for (ClassCounts& counts : bins_) {
    for (std::size_t slot = 1; slot < kSketchClasses; ++slot) {
      counts[0] += std::exchange(counts[slot], 0);
    }
  }
}

std::optional<double> ValueSketch::Mean() const {
  return values_ > 0 ? std::optional(mean_) : std::nullopt;
}

std::optional<double> ValueSketch::Minimum() const {
  return values_ > 0 ? std::optional(minimum_) : std::nullopt;
}

std::optional<double> ValueSketch::Maximum() const {
  return values_ > 0 ? std::optional(maximum_) : std::nullopt;
}

std::optional<double> ValueSketch::Deviation() const {
  if (values_ < 2) return std::nullopt;
  return std::sqrt(squares_ / static_cast<double>(values_ - 1));
}

}  // namespace tslm5::host
