#ifndef TSLM5_DATASETLITE_EXTRA_SET_FACETS_H_
#define TSLM5_DATASETLITE_EXTRA_SET_FACETS_H_

#include "datasetlite/data_set_lite_state.h"
#include "tslm5/contracts/extra_set.h"
#include "tslm5/contracts/vectorize.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// `IExtraSet` of a `DataSetLite`: its extra table.
class ExtraSetFacet final : public Facet<IExtraSet> {
 public:
  ExtraSetFacet(IUnknown& owner, DataSetLiteState& state) : Facet(owner), state_(state) {}
  std::int32_t Rows() override;
  std::int32_t Columns() override;
  bool Exists() override { return static_cast<bool>(state_.extra_table); }
  /// An absent cell raises 41001.
  double GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) override;
  /// An absent cell raises 41001.
  void SetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex, double pValue) override;
  void Vectorize(std::int32_t pColumnIndex, VariantArray& pArray, std::int32_t pStart,
                 std::int32_t pCount) override;

 private:
  DataSetLiteState& state_;
};

/// `IVectorize` of a `DataSetLite`: its own data table.
class VectorizeFacet final : public Facet<IVectorize> {
 public:
  VectorizeFacet(IUnknown& owner, DataSetLiteState& state) : Facet(owner), state_(state) {}
  void Vectorize(std::int32_t pColumnIndex, VariantArray& pArray, std::int32_t pStart,
                 std::int32_t pCount) override;

 private:
  DataSetLiteState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_EXTRA_SET_FACETS_H_
