#ifndef TSLM5_PLATFORM_ARRAY_H_
#define TSLM5_PLATFORM_ARRAY_H_

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "tslm5/platform/error.h"

namespace tslm5 {

/// A one-dimensional array whose first index is `LowerBound()`, 0 unless said otherwise.
/// An index outside [LowerBound(), UpperBound()] raises 9 "Subscript out of range".
template <class T>
class Array {
 public:
  /// Without elements, the lower bound 0.
  Array() = default;
  /// Takes `elements` over; the first one has the index `lower_bound`.
  explicit Array(std::vector<T> elements, std::int32_t lower_bound = 0)
      : lower_bound_(lower_bound), elements_(std::move(elements)) {}

  /// Makes the array run from `lower_bound` to `upper_bound`, all elements empty (`T{}`).
  /// An upper bound below `lower_bound` - 1 raises 9 and changes nothing.
  void Redim(std::int32_t lower_bound, std::int32_t upper_bound) {
    const std::int64_t size = std::int64_t{upper_bound} - lower_bound + 1;
    if (size < 0) RaiseSubscriptOutOfRange();
    elements_.assign(static_cast<std::size_t>(size), T{});
    lower_bound_ = lower_bound;
  }

  /// Index of the first element.
  std::int32_t LowerBound() const { return lower_bound_; }
  /// `LowerBound()` - 1 when the array is empty.
  std::int32_t UpperBound() const {
    return static_cast<std::int32_t>(lower_bound_ + static_cast<std::int64_t>(elements_.size()) -
                                     1);
  }
  /// Number of elements.
  std::size_t Size() const { return elements_.size(); }

  ///@{
  /// The element at `index`, counted from the lower bound; good until the array is next resized.
  T& operator[](std::int32_t index) { return elements_[Offset(index)]; }
  const T& operator[](std::int32_t index) const { return elements_[Offset(index)]; }
  ///@}

  ///@{
  /// The elements in order, the first one at offset 0 whatever the lower bound. The vector is the
  /// array's own and lives as long.
  const std::vector<T>& Elements() const { return elements_; }
  std::vector<T>& Elements() { return elements_; }
  ///@}

  /// The same lower bound and equal elements.
  friend bool operator==(const Array&, const Array&) = default;

 private:
  std::size_t Offset(std::int32_t index) const {
    const std::int64_t offset = std::int64_t{index} - lower_bound_;
    if (offset < 0 || offset >= static_cast<std::int64_t>(elements_.size())) {
      RaiseSubscriptOutOfRange();
    }
    return static_cast<std::size_t>(offset);
  }

  std::int32_t lower_bound_ = 0;
  std::vector<T> elements_;
};

}  // namespace tslm5

#endif  // TSLM5_PLATFORM_ARRAY_H_
