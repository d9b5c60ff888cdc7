#ifndef TSLM5_CONTRACTS_DATA_SET_LITE_H_
#define TSLM5_CONTRACTS_DATA_SET_LITE_H_

#include <cstdint>
#include <string_view>

#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// What a `DataSetLite` offers beyond the dataset interfaces.
class IDataSetLite : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000026ULL, 0x8a1f4c0b6d2e7326ULL};

  /// The same as `ITimeSeriesChanges::ResetTimeSeries`.
  virtual bool CopyTimeSeries() = 0;
  /// The same as `ITimeSeriesChanges::ClearReset`.
  virtual void ClearUndo() = 0;
  /// The same as `ITimeSeriesChanges::UndoReset`.
  virtual void UndoCopy() = 0;
  /// Adds a column record for every label that the run keeps under set id 1, to those that are
  /// there, and marks the record with the highest key as the response. Records that this object's
  /// `Save` made of the same labels are replaced, not doubled. The argument is not used.
  virtual void SaveTimeSeriesDataSetColumnData(std::int32_t pTimeSeriesMissingCount) = 0;
  /// One of "Average", "StandardDeviation", "Minimum", "Maximum" of a column.
  virtual double GetMissingStatisticsValue(std::int32_t pColumnIndex, std::string_view pType) = 0;

 protected:
  ~IDataSetLite() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_DATA_SET_LITE_H_
