#ifndef TSLM5_DATASETLITE_DATA_SET_LITE_H_
#define TSLM5_DATASETLITE_DATA_SET_LITE_H_

#include <cstdint>

#include "datasetlite/data_set_facet.h"
#include "datasetlite/data_set_lite_state.h"
#include "datasetlite/deployment_view.h"
#include "datasetlite/extra_set_facets.h"
#include "datasetlite/lifecycle_facets.h"
#include "datasetlite/missing_metadata.h"
#include "datasetlite/nominal_metadata.h"
#include "datasetlite/record_access.h"
#include "datasetlite/time_series_facets.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// The dataset that lives in a run database: one facet an interface, over one state.
/// Made by `MakeDataSetLite`. Caller's thread only.
class DataSetLite final : public FacetOwner {
 public:
  DataSetLite() { state_.sender = &data_set_; }

  std::string_view TypeName() override { return "DataSetLite"; }
  DataSetLiteState& State() { return state_; }

 private:
  ~DataSetLite() override = default;
  void* FindFacet(const Uuid& pId) override;

  DataSetLiteState state_;
  DataSetFacet data_set_{*this, state_};
  IteratorFacet iterator_{*this, state_};
  IsDirtyFacet is_dirty_{*this, state_};
  PersistableFacet persistable_{*this, state_};
  CloneableFacet cloneable_{*this, state_};
  ConstructorFacet constructor_{*this, state_};
  DisposableFacet disposable_{*this, state_};
  LRServicesFacet lr_services_{*this, state_};
  ExtraSetFacet extra_set_{*this, state_};
  VectorizeFacet vectorize_{*this, state_};
  DeploymentViewFacet deployment_view_{*this, state_, data_set_};
  TimeSeriesDataSetFacet time_series_{*this, state_};
  TimeSeriesChangesFacet time_series_changes_{*this, state_};
  DataSetLiteFacet data_set_lite_{*this, state_};
  ConnectionPointFacet connection_point_{*this, state_};
  NominalMetadataFacet nominal_metadata_{*this, state_};
  MissingMetadataFacet missing_metadata_{*this, state_};
};

/// A new `DataSetLite` with its defaults.
Ref<IUnknown> MakeDataSetLite();

/// A `DataSetLite` with the state of `original` under the type code `type`, over `table` (may be
/// none). The extra table is shared, listeners are not taken along.
Ref<IUnknown> CloneDataSetLite(const DataSetLiteState& original, std::int32_t type,
                               Ref<TableLite> table);

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_DATA_SET_LITE_H_
