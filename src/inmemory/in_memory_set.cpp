#include "inmemory/in_memory_set.h"

#include <memory>

namespace tslm5 {

void* InMemorySet::FindFacet(const Uuid& pId) {
  if (pId == IDataSet::kId) return static_cast<IDataSet*>(&data_set_);
  if (pId == INominalDataSet::kId) return static_cast<INominalDataSet*>(&nominal_data_set_);
  if (pId == IInMemorySet::kId) return static_cast<IInMemorySet*>(&in_memory_set_);
  if (pId == IIterator::kId) return static_cast<IIterator*>(&iterator_);
  if (pId == IIsDirty::kId) return static_cast<IIsDirty*>(&is_dirty_);
  if (pId == IPersistable::kId) return static_cast<IPersistable*>(&persistable_);
  if (pId == IExtraSet::kId) return static_cast<IExtraSet*>(&extra_set_);
  if (pId == IVectorize::kId) return static_cast<IVectorize*>(&vectorize_);
  if (pId == IConnectionPoint::kId) return static_cast<IConnectionPoint*>(&connection_point_);
  if (pId == IPropertySource::kId) return static_cast<IPropertySource*>(&property_source_);
  return nullptr;
}

Ref<IUnknown> MakeInMemorySet() {
  return MakeObject<InMemorySet>();
}

Ref<IUnknown> CloneInMemorySet(const InMemoryState& original) {
  const Ref<InMemorySet> clone = MakeObject<InMemorySet>();
  InMemoryState& state = clone->State();
  static_cast<InMemoryContent&>(state) = original;
  if (original.data) state.data = std::make_shared<CellArray>(*original.data);
  return clone;
}

}  // namespace tslm5
