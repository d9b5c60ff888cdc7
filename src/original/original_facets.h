#ifndef TSLM5_ORIGINAL_ORIGINAL_FACETS_H_
#define TSLM5_ORIGINAL_ORIGINAL_FACETS_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "original/original_data_state.h"
#include "tslm5/contracts/deployment_data_set.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// `IDeploymentDataSet` of an `OriginalDataSet`, its main interface. An index outside the loaded
/// data raises 9, except that an unknown column has no missing values.
class OriginalDeploymentFacet final : public Facet<IDeploymentDataSet> {
 public:
  OriginalDeploymentFacet(IUnknown& owner, OriginalDataState& state)
      : Facet(owner), state_(state) {}

  void Open(const Variant& pConnection, std::int32_t pSetType, bool pBinarise) override;
  bool HasLabels() override;
  std::int32_t Rows() override;
  std::int32_t Columns() override;
  std::int32_t TerminalCount() override;
  std::string GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) override;
  std::string GetLabel(std::int32_t pColumnIndex) override;
  double GetTargetMax() override;
  /// The record's key in the original data, unlike `IDataSet`'s operation of this name (meant).
  std::int32_t GetRowOriginalIndex(std::int32_t pRowIndex) override;
  bool IsColumnCategorical(std::int32_t pColumnIndex) override;
  bool HasMissingValues(std::int32_t pColumnIndex) override;
  std::int32_t GetDataSetRows(std::int32_t pSetType) override;
  void OpenFromFile(std::string_view pDataFilePath, std::int32_t pSetType, bool pBinarise) override;

 private:
  OriginalDataState& state_;
};

/// `IPersistable` of an `OriginalDataSet`: `Load` opens all records, `Save` does nothing.
class OriginalPersistableFacet final : public Facet<IPersistable> {
 public:
  OriginalPersistableFacet(IUnknown& owner, OriginalDataState& state)
      : Facet(owner), state_(state) {}
  bool Save(const Variant&, const Variant&) override { return false; }
  bool Load(const Variant& pRunPath, const Variant& pParams) override;

 private:
  OriginalDataState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_ORIGINAL_ORIGINAL_FACETS_H_
