#include "support/column_vector.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace tslm5 {
namespace {

/// 40 GiB of elements: no set has as many rows, and a system that promises memory it does not have
/// would end the process.
constexpr std::int64_t kMostElements = std::int64_t{1} << 30;

/// The number of elements; one more than the rows when the end is asked for (meant).
std::int64_t ElementCount(const ColumnRange& range, std::int32_t rows) {
  if (range.count < -1) RaiseSubscriptOutOfRange();
  if (range.count == -1) return std::max(std::int64_t{rows} - range.start + 1, std::int64_t{0});
  return range.count;
}

}  // namespace

std::int32_t SizeColumnVector(VariantArray& array, const ColumnRange& range, std::int32_t rows,
                              std::int32_t columns, const char* source) {
  const std::int64_t count = ElementCount(range, rows);
  if (range.start + count - 1 > std::numeric_limits<std::int32_t>::max()) {
    RaiseSubscriptOutOfRange();
  }
  if (count > kMostElements) RaiseOutOfMemory();
  array = VariantArray(std::vector<Variant>(static_cast<std::size_t>(count)), range.start);
  if (range.column > columns) {
    throw Error(error_number::kColumnTooLarge, source, "Column Index is too large.");
  }
  if (range.column < 0) {
    throw Error(error_number::kColumnBelowZero, source, "Column Index is less than zero.");
  }
  return static_cast<std::int32_t>(std::min<std::int64_t>(range.start + count, rows));
}

}  // namespace tslm5
