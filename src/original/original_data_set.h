#ifndef TSLM5_ORIGINAL_ORIGINAL_DATA_SET_H_
#define TSLM5_ORIGINAL_ORIGINAL_DATA_SET_H_

#include "original/original_data_set_facet.h"
#include "original/original_data_state.h"
#include "original/original_facets.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// A read-only view, in memory, of a run's original data: one facet an interface, over one state.
/// Made by `MakeOriginalDataSet`. Caller's thread only. Not for numbers: those are a
/// `DataSetLite`'s.
class OriginalDataSet final : public FacetOwner {
 public:
  std::string_view TypeName() override { return "OriginalDataSet"; }

 private:
  ~OriginalDataSet() override = default;
  void* FindFacet(const Uuid& pId) override;

  OriginalDataState state_;
  OriginalDeploymentFacet deployment_{*this, state_};
  OriginalDataSetFacet data_set_{*this, state_};
  OriginalPersistableFacet persistable_{*this, state_};
};

/// A new, empty `OriginalDataSet`.
Ref<IUnknown> MakeOriginalDataSet();

}  // namespace tslm5

#endif  // TSLM5_ORIGINAL_ORIGINAL_DATA_SET_H_
