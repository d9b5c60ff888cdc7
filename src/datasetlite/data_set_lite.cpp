#include "datasetlite/data_set_lite.h"

namespace tslm5 {

void* DataSetLite::FindFacet(const Uuid& pId) {
  if (pId == IDataSet::kId) return static_cast<IDataSet*>(&data_set_);
  if (pId == IIterator::kId) return static_cast<IIterator*>(&iterator_);
  if (pId == IIsDirty::kId) return static_cast<IIsDirty*>(&is_dirty_);
  if (pId == IPersistable::kId) return static_cast<IPersistable*>(&persistable_);
  if (pId == ICloneableEx::kId) return static_cast<ICloneableEx*>(&cloneable_);
  if (pId == IConstructor::kId) return static_cast<IConstructor*>(&constructor_);
  if (pId == IDisposable::kId) return static_cast<IDisposable*>(&disposable_);
  if (pId == ILRServices::kId) return static_cast<ILRServices*>(&lr_services_);
  if (pId == IExtraSet::kId) return static_cast<IExtraSet*>(&extra_set_);
  if (pId == IVectorize::kId) return static_cast<IVectorize*>(&vectorize_);
  if (pId == IDeploymentDataSet::kId) return static_cast<IDeploymentDataSet*>(&deployment_view_);
  if (pId == ITimeSeriesDataSet::kId) return static_cast<ITimeSeriesDataSet*>(&time_series_);
  if (pId == ITimeSeriesChanges::kId) {
    return static_cast<ITimeSeriesChanges*>(&time_series_changes_);
  }
  if (pId == IDataSetLite::kId) return static_cast<IDataSetLite*>(&data_set_lite_);
  if (pId == IConnectionPoint::kId) return static_cast<IConnectionPoint*>(&connection_point_);
  if (pId == INominalDataSetMetadata::kId) {
    return static_cast<INominalDataSetMetadata*>(&nominal_metadata_);
  }
  if (pId == IMissingMetadata::kId) return static_cast<IMissingMetadata*>(&missing_metadata_);
  return nullptr;
}

Ref<IUnknown> MakeDataSetLite() {
  return MakeObject<DataSetLite>();
}

Ref<IUnknown> CloneDataSetLite(const DataSetLiteState& original, std::int32_t type,
                               Ref<TableLite> table) {
  const Ref<DataSetLite> clone = MakeObject<DataSetLite>();
  DataSetLiteState& state = clone->State();
  IDataSet* const sender = state.sender;
  state = original;
  state.sender = sender;
  state.sinks = {};
  state.data_set_type = type;
  state.table = std::move(table);
  state.cached_columns = -1;
  state.statistics.Empty();  // figures of the new type code are of older rows
  return clone;
}

}  // namespace tslm5
