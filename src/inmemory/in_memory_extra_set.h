#ifndef TSLM5_INMEMORY_IN_MEMORY_EXTRA_SET_H_
#define TSLM5_INMEMORY_IN_MEMORY_EXTRA_SET_H_

#include "inmemory/in_memory_state.h"
#include "platform/only_errors.h"
#include "tslm5/contracts/extra_set.h"
#include "tslm5/contracts/vectorize.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// `IExtraSet` of an `InMemorySet`. An absent cell raises 9.
class InMemoryExtraSetFacet final : public Facet<IExtraSet> {
 public:
  InMemoryExtraSetFacet(IUnknown& owner, InMemoryState& state) : Facet(owner), state_(state) {}
  std::int32_t Rows() override { return state_.extra_set.Rows(); }
  /// The columns of the main data (meant), whatever the extra set has.
  std::int32_t Columns() override { return state_.Columns(); }
  bool Exists() override { return state_.extra_set_exists; }
  double GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) override {
    return OnlyErrors([&] { return state_.extra_set.Get(pRowIndex, pColumnIndex); });
  }
  void SetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex, double pValue) override {
    OnlyErrors([&] { state_.extra_set.Put(pRowIndex, pColumnIndex, pValue); });
  }
  void Vectorize(std::int32_t pColumnIndex, VariantArray& pArray, std::int32_t pStart,
                 std::int32_t pCount) override;

 private:
  InMemoryState& state_;
};

/// `IVectorize` of an `InMemorySet`: its main data. A row or column outside them raises 9.
class InMemoryVectorizeFacet final : public Facet<IVectorize> {
 public:
  InMemoryVectorizeFacet(IUnknown& owner, InMemoryState& state) : Facet(owner), state_(state) {}
  void Vectorize(std::int32_t pColumnIndex, VariantArray& pArray, std::int32_t pStart,
                 std::int32_t pCount) override;

 private:
  InMemoryState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_IN_MEMORY_EXTRA_SET_H_
