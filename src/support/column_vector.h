#ifndef TSLM5_SUPPORT_COLUMN_VECTOR_H_
#define TSLM5_SUPPORT_COLUMN_VECTOR_H_

#include <cstdint>

#include "tslm5/platform/variant.h"

namespace tslm5 {

/// The part of a table that a caller wants as a vector.
struct ColumnRange {
  std::int32_t column;
  std::int32_t start;
  std::int32_t count;  // -1: to the end
};

/// Sizes `array` for the rows of `range`, indexed by row, and tests the column after that; see
/// `IVectorize::Vectorize`. Returns the row behind the last one to be read. A count below -1 raises
/// 9, more than 2^30 elements 7, a column above `columns` 12125, a negative one 12126, both with
/// the given source.
std::int32_t SizeColumnVector(VariantArray& array, const ColumnRange& range, std::int32_t rows,
                              std::int32_t columns, const char* source);

}  // namespace tslm5

#endif  // TSLM5_SUPPORT_COLUMN_VECTOR_H_
