#ifndef TSLM5_DATASETLITE_RECORD_ACCESS_H_
#define TSLM5_DATASETLITE_RECORD_ACCESS_H_

#include <cstdint>
#include <string>

#include "datasetlite/data_set_lite_state.h"
#include "tslm5/contracts/iterator.h"
#include "tslm5/platform/object.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// Single values of a `DataSetLite`, their way back to the original data, and column labels.
namespace RecordAccess {

/// Columns of the set's table; notes them as the cached column count.
std::int32_t Columns(DataSetLiteState& state);

[[noreturn]] void RaiseInvalidCell();

/// One cell; raises 41011, source "GetItem", when there is none.
inline double Item(DataSetLiteState& state, std::int32_t column, std::int32_t row) {
  double value = 0.0;
  if (!state.table || !state.table->GetValue(column, row, value)) RaiseInvalidCell();
  return value;
}

/// One cell with the user's decimal separator; "" when it is missing or absent.
std::string ItemText(DataSetLiteState& state, std::int32_t column, std::int32_t row);

/// The key of a row in the original data. An absent row, and one whose key is outside 32 bits,
/// raises 41011, source "GetRowNumber" (meant).
std::int32_t OriginalIndex(DataSetLiteState& state, std::int32_t row);

/// The original value of a column (-1: the response) in the record with key `record_id`; empty
/// when there is no such column or record.
Variant OriginalValueOfRecord(DataSetLiteState& state, std::int32_t record_id, std::int32_t column);

/// The same for a row of the set.
Variant OriginalValue(DataSetLiteState& state, std::int32_t row, std::int32_t column);

std::string Label(DataSetLiteState& state, std::int32_t column);
std::string LongLabel(DataSetLiteState& state, std::int32_t column);

/// Drops the set's table and forgets its labels; type and properties stay.
void Clear(DataSetLiteState& state);

}  // namespace RecordAccess

/// `IIterator` of a `DataSetLite`. The sample's cells are read with row and column crossed (meant).
class IteratorFacet final : public Facet<IIterator> {
 public:
  IteratorFacet(IUnknown& owner, DataSetLiteState& state) : Facet(owner), state_(state) {}
  bool GetCurrentSample(Array<double>& pArray) override;
  std::int32_t CurrentRow() override { return state_.current_row; }
  void ResetIterator() override { state_.current_row = 0; }

 private:
  DataSetLiteState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_RECORD_ACCESS_H_
