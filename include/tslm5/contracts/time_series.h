#ifndef TSLM5_CONTRACTS_TIME_SERIES_H_
#define TSLM5_CONTRACTS_TIME_SERIES_H_

#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// Labels of a time series and of its embedding. Caller's thread only.
class ITimeSeriesDataSet : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d3500001fULL, 0x8a1f4c0b6d2e731fULL};

  /// Makes the label that the run keeps for the series itself (set id 2) the set's only label.
  /// Without one nothing changes.
  virtual void LoadTimeSeriesLabel() = 0;
  /// Replaces the run's column records, and the labels of set id 1, by those of the embedding that
  /// the properties "EmbeddingDimension" and "DelayTime" describe, and reads the labels anew.
  /// Column i is "t_" and its lag; the response is "t_0" in the column records and "t" among the
  /// labels (meant). A property that is missing or no number raises 13, a lag beyond 32 bits 6, a
  /// negative property 41001; nothing has been written then. It opens no transaction: a failure of
  /// the run midway leaves part of the work, unless the caller's transaction takes it back.
  virtual void RenameTrainingLabels() = 0;

 protected:
  ~ITimeSeriesDataSet() = default;
};

/// Folding the testing records into the training table, with one level of undo. Each operation is
/// all or nothing. They work on a set of the training table; of any other set they do nothing.
/// Caller's thread only.
class ITimeSeriesChanges : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000020ULL, 0x8a1f4c0b6d2e7320ULL};

  /// Makes the records of the testing table, row keys included, the training table, and keeps the
  /// training records of before in its backup table in place of an older backup. False, and
  /// everything as it was, when there is no testing table, no backup table, or anything fails.
  virtual bool ResetTimeSeries() = 0;
  /// Brings the training records of the backup back, and empties the backup. Without any it does
  /// nothing. Raises what the engine raises; everything is as it was then.
  virtual void UndoReset() = 0;
  /// Empties the backup: the reset is final. Raises what the engine raises, also when there is no
  /// backup table.
  virtual void ClearReset() = 0;

 protected:
  ~ITimeSeriesChanges() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_TIME_SERIES_H_
