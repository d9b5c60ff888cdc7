#ifndef TSLM5_CONTRACTS_TIME_SERIES_H_
#define TSLM5_CONTRACTS_TIME_SERIES_H_

#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// Labels of a time series and of its embedding.
class ITimeSeriesDataSet : public IUnknown {
 public:
  static constexpr Uuid kId{0x54534c4d3500001fULL, 0x8a1f4c0b6d2e731fULL};

  virtual void LoadTimeSeriesLabel() = 0;
  virtual void RenameTrainingLabels() = 0;

 protected:
  ~ITimeSeriesDataSet() = default;
};

/// Folding the testing records into the training table, with one level of undo.
class ITimeSeriesChanges : public IUnknown {
 public:
  static constexpr Uuid kId{0x54534c4d35000020ULL, 0x8a1f4c0b6d2e7320ULL};

  virtual bool ResetTimeSeries() = 0;
  virtual void UndoReset() = 0;
  virtual void ClearReset() = 0;

 protected:
  ~ITimeSeriesChanges() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_TIME_SERIES_H_
