#ifndef TSLM5_INMEMORY_IN_MEMORY_FACETS_H_
#define TSLM5_INMEMORY_IN_MEMORY_FACETS_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "contracts/property_source.h"
#include "inmemory/in_memory_state.h"
#include "platform/only_errors.h"
#include "tslm5/contracts/in_memory_set.h"
#include "tslm5/contracts/is_dirty.h"
#include "tslm5/contracts/iterator.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/platform/connection_point.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// `IInMemorySet`: what the class offers beyond the dataset interfaces.
class InMemorySetFacet final : public Facet<IInMemorySet> {
 public:
  InMemorySetFacet(IUnknown& owner, InMemoryState& state) : Facet(owner), state_(state) {}
  Ref<IDataSet> Clone() override;
  void SetDataSetType(std::int32_t pDataSetType) override {
    OnlyErrors([&] { state_.SetType(pDataSetType); });
  }
  std::string RemoveEmptyLinesAtEnd(std::string& pData) override;
  void ParseWithEvents(std::string_view pFileName, std::int32_t pSeparator, bool pHasLabels,
                       std::int32_t pDataSetType, std::int32_t pLayout,
                       IParseEventArgs* pEvArgs) override;

 private:
  InMemoryState& state_;
};

/// `IIterator` of an `InMemorySet`. The sample's cells are read with row and column crossed
/// (meant): element j is the cell at column = position, row = j, but the end is where the rows end.
/// So a table that is not square raises 9 at the cell that it lacks, and the position stays.
class InMemoryIteratorFacet final : public Facet<IIterator> {
 public:
  InMemoryIteratorFacet(IUnknown& owner, InMemoryState& state) : Facet(owner), state_(state) {}
  bool GetCurrentSample(Array<double>& pArray) override;
  std::int32_t CurrentRow() override { return state_.iterator_position; }
  void ResetIterator() override { state_.iterator_position = 0; }

 private:
  InMemoryState& state_;
};

/// `IPersistable` of an `InMemorySet`, which lives in no run: `Load` does nothing, `Save` raises
/// -10000.
class InMemoryPersistableFacet final : public Facet<IPersistable> {
 public:
  explicit InMemoryPersistableFacet(IUnknown& owner) : Facet(owner) {}
  bool Save(const Variant& pRunPath, const Variant& pParams) override;
  bool Load(const Variant&, const Variant&) override { return false; }
};

/// `IIsDirty` of an `InMemorySet`.
class InMemoryIsDirtyFacet final : public Facet<IIsDirty> {
 public:
  InMemoryIsDirtyFacet(IUnknown& owner, InMemoryState& state) : Facet(owner), state_(state) {}
  bool IsDirty() override { return state_.is_dirty; }
  void put_IsDirty(bool pIsDirty) override { state_.is_dirty = pIsDirty; }

 private:
  InMemoryState& state_;
};

/// Where listeners attach to an `InMemorySet`.
class InMemoryConnectionPointFacet final : public Facet<IConnectionPoint> {
 public:
  InMemoryConnectionPointFacet(IUnknown& owner, InMemoryState& state)
      : Facet(owner), state_(state) {}
  std::int32_t Advise(IUnknown* pSink) override {
    return OnlyErrors([&] { return state_.sinks.Advise(pSink); });
  }
  void Unadvise(std::int32_t pCookie) override {
    OnlyErrors([&] { state_.sinks.Unadvise(pCookie); });
  }

 private:
  InMemoryState& state_;
};

/// The set's properties, for the dataset that takes over its data.
class InMemoryPropertySourceFacet final : public Facet<IPropertySource> {
 public:
  InMemoryPropertySourceFacet(IUnknown& owner, InMemoryState& state)
      : Facet(owner), state_(state) {}
  const PropertyBag& Properties() override { return state_.properties; }

 private:
  InMemoryState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_IN_MEMORY_FACETS_H_
