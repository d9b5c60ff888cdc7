#ifndef TSLM5_DATASETLITE_TIME_SERIES_FACETS_H_
#define TSLM5_DATASETLITE_TIME_SERIES_FACETS_H_

#include <cstdint>
#include <string_view>

#include "datasetlite/data_set_lite_state.h"
#include "datasetlite/time_series.h"
#include "platform/only_errors.h"
#include "tslm5/contracts/data_set_lite.h"
#include "tslm5/contracts/time_series.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// `ITimeSeriesDataSet` of a `DataSetLite`.
class TimeSeriesDataSetFacet final : public Facet<ITimeSeriesDataSet> {
 public:
  TimeSeriesDataSetFacet(IUnknown& owner, DataSetLiteState& state) : Facet(owner), state_(state) {}
  void LoadTimeSeriesLabel() override {
    OnlyErrors([&] { TimeSeries::LoadLabel(state_); });
  }
  void RenameTrainingLabels() override {
    OnlyErrors([&] { TimeSeries::RenameTrainingLabels(state_); });
  }

 private:
  DataSetLiteState& state_;
};

/// `ITimeSeriesChanges` of a `DataSetLite`.
class TimeSeriesChangesFacet final : public Facet<ITimeSeriesChanges> {
 public:
  TimeSeriesChangesFacet(IUnknown& owner, DataSetLiteState& state) : Facet(owner), state_(state) {}
  bool ResetTimeSeries() override {
    return OnlyErrors([&] { return TimeSeries::Reset(state_); });
  }
  void UndoReset() override {
    OnlyErrors([&] { TimeSeries::UndoReset(state_); });
  }
  void ClearReset() override {
    OnlyErrors([&] { TimeSeries::ClearReset(state_); });
  }

 private:
  DataSetLiteState& state_;
};

/// `IDataSetLite`: the names of the class itself for operations of its other interfaces.
class DataSetLiteFacet final : public Facet<IDataSetLite> {
 public:
  DataSetLiteFacet(IUnknown& owner, DataSetLiteState& state) : Facet(owner), state_(state) {}
  bool CopyTimeSeries() override { return Query<ITimeSeriesChanges>(this)->ResetTimeSeries(); }
  void ClearUndo() override { Query<ITimeSeriesChanges>(this)->ClearReset(); }
  void UndoCopy() override { Query<ITimeSeriesChanges>(this)->UndoReset(); }
  void SaveTimeSeriesDataSetColumnData(std::int32_t) override {
    OnlyErrors([&] { TimeSeries::SaveColumnData(state_); });
  }
  double GetMissingStatisticsValue(std::int32_t pColumnIndex, std::string_view pType) override;

 private:
  DataSetLiteState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_TIME_SERIES_FACETS_H_
