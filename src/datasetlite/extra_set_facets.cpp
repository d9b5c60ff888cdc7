#include "datasetlite/extra_set_facets.h"

#include <algorithm>
#include <cmath>

#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

/// Copies rows [start, start + count) of a table's column (-1: to the end) into `array`, sized
/// first; see `IVectorize::Vectorize`. Column = columns gives the row numbers.
void VectorizeColumn(TableLite* table, std::int32_t column, VariantArray& array, std::int32_t start,
                     std::int32_t count, const char* source) {
  const std::int32_t rows = table != nullptr ? table->Rows() : 0;
  const std::int32_t columns = table != nullptr ? table->Columns() : 0;
  const std::int64_t end = count == -1 ? rows : std::int64_t{start} + count;
  array.Redim(start, static_cast<std::int32_t>(count == -1 ? end : end - 1));
  if (column > columns) {
    throw Error(error_number::kColumnTooLarge, source, "Column Index is too large.");
  }
  if (column < 0) {
    throw Error(error_number::kColumnBelowZero, source, "Column Index is less than zero.");
  }
  const auto last = static_cast<std::int32_t>(std::min<std::int64_t>(end, rows));
  for (std::int32_t row = std::max(start, 0); row < last; ++row) {  // none without a table
    double value = 0.0;
    if (table->GetValue(column, row, value) && !std::isnan(value)) array[row] = value;
  }
}

}  // namespace

std::int32_t ExtraSetFacet::Rows() {
  try {
    return state_.extra_table ? state_.extra_table->Rows() : 0;
  } catch (const Error&) {
    return 0;
  }
}

std::int32_t ExtraSetFacet::Columns() {
  try {
    return state_.extra_table ? state_.extra_table->Columns() : 0;
  } catch (const Error&) {
    return 0;
  }
}

double ExtraSetFacet::GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) {
  double value = 0.0;
  if (!state_.extra_table || !state_.extra_table->GetValue(pColumnIndex, pRowIndex, value)) {
    throw Error(error_number::kInvalidArgument);
  }
  return value;
}

void ExtraSetFacet::SetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex, double pValue) {
  if (!state_.extra_table || !state_.extra_table->PutValue(pColumnIndex, pRowIndex, pValue)) {
    throw Error(error_number::kInvalidArgument);
  }
}

void ExtraSetFacet::Vectorize(std::int32_t pColumnIndex, VariantArray& pArray, std::int32_t pStart,
                              std::int32_t pCount) {
  VectorizeColumn(state_.extra_table.get(), pColumnIndex, pArray, pStart, pCount,
                  "IExtraSet_Vectorize");
}

void VectorizeFacet::Vectorize(std::int32_t pColumnIndex, VariantArray& pArray, std::int32_t pStart,
                               std::int32_t pCount) {
  VectorizeColumn(state_.table.get(), pColumnIndex, pArray, pStart, pCount, "IDataSet_Vectorize");
}

}  // namespace tslm5
