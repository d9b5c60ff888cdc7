#include "inmemory/in_memory_extra_set.h"

#include <algorithm>
#include <cmath>

#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

/// Copies rows [start, start + count) of a column of `cells` (-1: to the end) into `array`, sized
/// first; see `IVectorize::Vectorize`. `columns` is the column number that still passes the test.
void VectorizeColumn(const CellArray& cells, std::int32_t columns, std::int32_t column,
                     VariantArray& array, std::int32_t start, std::int32_t count,
                     const char* source) {
  const std::int32_t rows = cells.Rows();
  const std::int64_t end = count == -1 ? rows : std::int64_t{start} + count;
  const std::int64_t upper = count == -1 ? std::max(end, std::int64_t{start} - 1) : end - 1;
  array.Redim(start, static_cast<std::int32_t>(upper));
  if (column > columns) {
    throw Error(error_number::kColumnTooLarge, source, "Column Index is too large.");
  }
  if (column < 0) {
    throw Error(error_number::kColumnBelowZero, source, "Column Index is less than zero.");
  }
  const auto last = static_cast<std::int32_t>(std::min<std::int64_t>(end, rows));
  for (std::int32_t row = start; row < last; ++row) {
    const double value = cells.Get(row, column);
    if (!std::isnan(value)) array[row] = value;
  }
}

}  // namespace

void InMemoryExtraSetFacet::Vectorize(std::int32_t pColumnIndex, VariantArray& pArray,
                                      std::int32_t pStart, std::int32_t pCount) {
  VectorizeColumn(state_.extra_set, state_.Columns(), pColumnIndex, pArray, pStart, pCount,
                  "IExtraSet_Vectorize");
}

void InMemoryVectorizeFacet::Vectorize(std::int32_t pColumnIndex, VariantArray& pArray,
                                       std::int32_t pStart, std::int32_t pCount) {
  static const CellArray kNoData;
  VectorizeColumn(state_.data ? *state_.data : kNoData, state_.Columns(), pColumnIndex, pArray,
                  pStart, pCount, "IDataSet_Vectorize");
}

}  // namespace tslm5
