#ifndef TSLM5_DATASETLITE_LIFECYCLE_FACETS_H_
#define TSLM5_DATASETLITE_LIFECYCLE_FACETS_H_

#include <functional>

#include "datasetlite/data_set_lite_state.h"
#include "platform/only_errors.h"
#include "tslm5/contracts/is_dirty.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/contracts/lr_services.h"
#include "tslm5/platform/connection_point.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// `IPersistable` of a `DataSetLite`: attaches it to a run, and saves it there.
class PersistableFacet final : public Facet<IPersistable> {
 public:
  PersistableFacet(IUnknown& owner, DataSetLiteState& state) : Facet(owner), state_(state) {}
  bool Save(const Variant& pRunPath, const Variant& pParams) override;
  bool Load(const Variant& pRunPath, const Variant& pParams) override;

 private:
  DataSetLiteState& state_;
};

/// `ICloneableEx` of a `DataSetLite`: a copy under another type code, with a table of its own.
class CloneableFacet final : public Facet<ICloneableEx> {
 public:
  CloneableFacet(IUnknown& owner, DataSetLiteState& state) : Facet(owner), state_(state) {}
  Ref<IUnknown> Clone(const Variant& pParams) override;

 private:
  DataSetLiteState& state_;
};

/// `IConstructor` of a `DataSetLite`: takes the run object and the type code; makes no table.
class ConstructorFacet final : public Facet<IConstructor> {
 public:
  ConstructorFacet(IUnknown& owner, DataSetLiteState& state) : Facet(owner), state_(state) {}
  Variant Init(const VariantArray& pParams) override;

 private:
  DataSetLiteState& state_;
};

/// `IDisposable` of a `DataSetLite`: closes both tables.
class DisposableFacet final : public Facet<IDisposable> {
 public:
  DisposableFacet(IUnknown& owner, DataSetLiteState& state) : Facet(owner), state_(state) {}
  void Dispose(bool pIsDisposing) override;

 private:
  DataSetLiteState& state_;
};

/// `ILRServices` of a `DataSetLite`.
class LRServicesFacet final : public Facet<ILRServices> {
 public:
  LRServicesFacet(IUnknown& owner, DataSetLiteState& state) : Facet(owner), state_(state) {}
  bool IsBinary() override {
    return OrEmpty([&] { return state_.table && state_.table->IsBinary(); });
  }

 private:
  DataSetLiteState& state_;
};

/// `IIsDirty` of a `DataSetLite`.
class IsDirtyFacet final : public Facet<IIsDirty> {
 public:
  IsDirtyFacet(IUnknown& owner, DataSetLiteState& state) : Facet(owner), state_(state) {}
  bool IsDirty() override { return state_.is_dirty; }
  void put_IsDirty(bool pIsDirty) override { state_.is_dirty = pIsDirty; }

 private:
  DataSetLiteState& state_;
};

/// Where listeners attach to a `DataSetLite`.
class ConnectionPointFacet final : public Facet<IConnectionPoint> {
 public:
  ConnectionPointFacet(IUnknown& owner, DataSetLiteState& state) : Facet(owner), state_(state) {}
  std::int32_t Advise(IUnknown* pSink) override {
    return OnlyErrors([&] { return state_.sinks.Advise(pSink); });
  }
  void Unadvise(std::int32_t pCookie) override {
    OnlyErrors([&] { state_.sinks.Unadvise(pCookie); });
  }

 private:
  DataSetLiteState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_LIFECYCLE_FACETS_H_
