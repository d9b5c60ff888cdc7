#include "inmemory/in_memory_extra_set.h"

#include <cmath>

#include "platform/only_errors.h"
#include "support/column_vector.h"

namespace tslm5 {
namespace {

/// Copies a part of a column of `cells` into `array`; see `IVectorize::Vectorize`. `columns` is the
/// column number that still passes the test.
void VectorizeColumn(const CellArray& cells, std::int32_t columns, const ColumnRange& range,
                     VariantArray& array, const char* source) {
  const std::int32_t end = SizeColumnVector(array, range, cells.Rows(), columns, source);
  for (std::int32_t row = range.start; row < end; ++row) {
    const double value = cells.Get(row, range.column);
    if (!std::isnan(value)) array[row] = value;
  }
}

}  // namespace

void InMemoryExtraSetFacet::Vectorize(std::int32_t pColumnIndex, VariantArray& pArray,
                                      std::int32_t pStart, std::int32_t pCount) {
  OnlyErrors([&] {
    VectorizeColumn(state_.extra_set, state_.Columns(), {pColumnIndex, pStart, pCount}, pArray,
                    "IExtraSet_Vectorize");
  });
}

void InMemoryVectorizeFacet::Vectorize(std::int32_t pColumnIndex, VariantArray& pArray,
                                       std::int32_t pStart, std::int32_t pCount) try {
  static const CellArray kNoData;
  VectorizeColumn(state_.data ? *state_.data : kNoData, state_.Columns(),
                  {pColumnIndex, pStart, pCount}, pArray, "IDataSet_Vectorize");
} catch (...) {
  RaiseAsError();
}

}  // namespace tslm5
