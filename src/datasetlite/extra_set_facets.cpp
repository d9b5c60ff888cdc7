#include "datasetlite/extra_set_facets.h"

#include <algorithm>
#include <cmath>

#include "platform/only_errors.h"
#include "support/column_vector.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

/// Copies a part of a table's column into `array`; see `IVectorize::Vectorize`. Column = columns
/// gives the row numbers.
void VectorizeColumn(TableLite* table, const ColumnRange& range, VariantArray& array,
                     const char* source) {
  const std::int32_t rows = table != nullptr ? table->Rows() : 0;
  const std::int32_t columns = table != nullptr ? table->Columns() : 0;
  const std::int32_t end = SizeColumnVector(array, range, rows, columns, source);
  for (std::int32_t row = std::max(range.start, 0); row < end; ++row) {  // none without a table
    double value = 0.0;
    if (table->GetValue(range.column, row, value) && !std::isnan(value)) array[row] = value;
  }
}

}  // namespace

std::int32_t ExtraSetFacet::Rows() {
  return OrEmpty([&] { return state_.extra_table ? state_.extra_table->Rows() : 0; });
}

std::int32_t ExtraSetFacet::Columns() {
  return OrEmpty([&] { return state_.extra_table ? state_.extra_table->Columns() : 0; });
}

double ExtraSetFacet::GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) try {
  double value = 0.0;
  if (!state_.extra_table || !state_.extra_table->GetValue(pColumnIndex, pRowIndex, value)) {
    throw Error(error_number::kInvalidArgument);
  }
  return value;
} catch (...) {
  RaiseAsError();
}

void ExtraSetFacet::SetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex, double pValue) {
  OnlyErrors([&] {
    if (!state_.extra_table || !state_.extra_table->PutValue(pColumnIndex, pRowIndex, pValue)) {
      throw Error(error_number::kInvalidArgument);
    }
    state_.is_dirty = true;
  });
}

void ExtraSetFacet::Vectorize(std::int32_t pColumnIndex, VariantArray& pArray, std::int32_t pStart,
                              std::int32_t pCount) {
  OnlyErrors([&] {
    VectorizeColumn(state_.extra_table.get(), {pColumnIndex, pStart, pCount}, pArray,
                    "IExtraSet_Vectorize");
  });
}

void VectorizeFacet::Vectorize(std::int32_t pColumnIndex, VariantArray& pArray, std::int32_t pStart,
                               std::int32_t pCount) {
  OnlyErrors([&] {
    VectorizeColumn(state_.table.get(), {pColumnIndex, pStart, pCount}, pArray,
                    "IDataSet_Vectorize");
  });
}

}  // namespace tslm5
