#ifndef TSLM5_INMEMORY_IN_MEMORY_SET_H_
#define TSLM5_INMEMORY_IN_MEMORY_SET_H_

#include "inmemory/in_memory_data_set_facet.h"
#include "inmemory/in_memory_extra_set.h"
#include "inmemory/in_memory_facets.h"
#include "inmemory/in_memory_nominal_facet.h"
#include "inmemory/in_memory_state.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// The dataset that lives wholly in memory: one facet an interface, over one state.
/// Made by `MakeInMemorySet`. Caller's thread only.
class InMemorySet final : public FacetOwner {
 public:
  InMemorySet() { state_.sender = &data_set_; }

  std::string_view TypeName() override { return "InMemorySet"; }
  InMemoryState& State() { return state_; }

 private:
  ~InMemorySet() override = default;
  void* FindFacet(const Uuid& pId) override;

  InMemoryState state_;
  InMemoryDataSetFacet data_set_{*this, state_};
  InMemoryNominalFacet nominal_data_set_{*this, state_};
  InMemorySetFacet in_memory_set_{*this, state_};
  InMemoryIteratorFacet iterator_{*this, state_};
  InMemoryIsDirtyFacet is_dirty_{*this, state_};
  InMemoryPersistableFacet persistable_{*this};
  InMemoryExtraSetFacet extra_set_{*this, state_};
  InMemoryVectorizeFacet vectorize_{*this, state_};
  InMemoryConnectionPointFacet connection_point_{*this, state_};
  InMemoryPropertySourceFacet property_source_{*this, state_};
};

/// A new `InMemorySet` with its defaults.
Ref<IUnknown> MakeInMemorySet();

/// An `InMemorySet` with a deep copy of `original`; listeners are not taken along.
Ref<IUnknown> CloneInMemorySet(const InMemoryState& original);

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_IN_MEMORY_SET_H_
