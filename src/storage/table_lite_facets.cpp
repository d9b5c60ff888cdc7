// The interfaces of a data table.
#include <memory>

#include "platform/only_errors.h"
#include "storage/table_lite.h"

namespace tslm5 {

class TableLite::PersistableFacet final : public Facet<IPersistable> {
 public:
  explicit PersistableFacet(TableLite& table) : Facet(table), table_(table) {}
  /// The arguments are ignored.
  bool Save(const Variant&, const Variant&) override {
    return OnlyErrors([&] { return table_.Save(); });
  }
  bool Load(const Variant& pRunPath, const Variant& pParams) override {
    return OnlyErrors([&] { return table_.Load(pRunPath, pParams); });
  }

 private:
  TableLite& table_;
};

class TableLite::CloneableFacet final : public Facet<ICloneableEx> {
 public:
  explicit CloneableFacet(TableLite& table) : Facet(table), table_(table) {}
  Ref<IUnknown> Clone(const Variant& pParams) override {
    return OnlyErrors([&] { return table_.Clone(pParams.ToInteger()); });
  }

 private:
  TableLite& table_;
};

class TableLite::DisposableFacet final : public Facet<IDisposable> {
 public:
  explicit DisposableFacet(TableLite& table) : Facet(table), table_(table) {}
  void Dispose(bool pIsDisposing) override {
    OnlyErrors([&] { table_.Dispose(pIsDisposing); });
  }

 private:
  TableLite& table_;
};

struct TableLite::Facets {
  explicit Facets(TableLite& table) : persistable(table), cloneable(table), disposable(table) {}
  PersistableFacet persistable;
  CloneableFacet cloneable;
  DisposableFacet disposable;
};

TableLite::TableLite() = default;
TableLite::~TableLite() = default;

void* TableLite::FindFacet(const Uuid& pId) {
  if (facets_ == nullptr) OnlyErrors([&] { facets_ = std::make_unique<Facets>(*this); });
  if (pId == IPersistable::kId) return static_cast<IPersistable*>(&facets_->persistable);
  if (pId == ICloneableEx::kId) return static_cast<ICloneableEx*>(&facets_->cloneable);
  if (pId == IDisposable::kId) return static_cast<IDisposable*>(&facets_->disposable);
  return nullptr;
}

}  // namespace tslm5
