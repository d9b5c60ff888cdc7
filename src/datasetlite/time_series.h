#ifndef TSLM5_DATASETLITE_TIME_SERIES_H_
#define TSLM5_DATASETLITE_TIME_SERIES_H_

#include "datasetlite/data_set_lite_state.h"

namespace tslm5 {

/// What a time series adds to a `DataSetLite`: labels and column records of its embedding, and the
/// testing records folded into the training table, with one level of undo.
namespace TimeSeries {

/// See `ITimeSeriesDataSet`.
void LoadLabel(DataSetLiteState& state);
void RenameTrainingLabels(DataSetLiteState& state);
/// See `IDataSetLite::SaveTimeSeriesDataSetColumnData`.
void SaveColumnData(DataSetLiteState& state);

/// See `ITimeSeriesChanges`. Each is one transaction; of a set whose table is not the training
/// table, none of them does anything.
bool Reset(DataSetLiteState& state);
void UndoReset(DataSetLiteState& state);
void ClearReset(DataSetLiteState& state);

}  // namespace TimeSeries

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_TIME_SERIES_H_
