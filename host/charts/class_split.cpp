#include "host/charts/class_split.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "host/charts/value_sketch.h"

namespace tslm5::host {
namespace {

constexpr std::int64_t kRecordsOfAClass = 5;

}  // namespace

std::size_t ClassSplit::SlotOf(double value) {
  ++records_;
  if (has_too_many_) return 0;
  const auto is_same = [value](double other) {
    return value == other || (std::isnan(value) && std::isnan(other));
  };
  const auto found = std::find_if(values_.begin(), values_.end(), is_same);
  const auto slot = static_cast<std::size_t>(found - values_.begin());
  if (found != values_.end()) return slot;
  if (slot == kSketchClasses) {
    has_too_many_ = true;
    return 0;
  }
  values_.push_back(value);
  return slot;
}

bool ClassSplit::IsUseful(bool is_classified) const {
  const auto classes = static_cast<std::int64_t>(values_.size());
  if (has_too_many_ || classes < 2) return false;
  return is_classified || records_ >= classes * kRecordsOfAClass;
}

std::vector<std::size_t> ClassSplit::SlotsInOrder() const {
  std::vector<std::size_t> slots(values_.size());
  std::iota(slots.begin(), slots.end(), std::size_t{0});
  std::sort(slots.begin(), slots.end(), [this](std::size_t left, std::size_t right) {
    if (std::isnan(values_[left])) return false;
    return std::isnan(values_[right]) || values_[left] < values_[right];
  });
  return slots;
}

}  // namespace tslm5::host
