#ifndef TSLM5_DATASETLITE_DEPLOYMENT_VIEW_H_
#define TSLM5_DATASETLITE_DEPLOYMENT_VIEW_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "datasetlite/data_set_lite_state.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/deployment_data_set.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// `IDeploymentDataSet` of a `DataSetLite`. It forwards to the set's `IDataSet` and looks the flags
/// of a column up; an unknown column has none. A `DataSetLite` is opened through its own lifecycle:
/// here `Open` and `OpenFromFile` do nothing, and `GetDataSetRows` is 0 (meant).
class DeploymentViewFacet final : public Facet<IDeploymentDataSet> {
 public:
  DeploymentViewFacet(IUnknown& owner, const DataSetLiteState& state, IDataSet& data_set)
      : Facet(owner), state_(state), data_set_(data_set) {}

  void Open(const Variant&, std::int32_t, bool) override {}
  bool HasLabels() override { return data_set_.HasLabels(); }
  std::int32_t Rows() override { return data_set_.Rows(); }
  std::int32_t Columns() override { return data_set_.Columns(); }
  std::int32_t TerminalCount() override { return data_set_.TerminalCount(); }
  std::string GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) override;
  std::string GetLabel(std::int32_t pColumnIndex) override;
  double GetTargetMax() override;
  std::int32_t GetRowOriginalIndex(std::int32_t pRowIndex) override;
  bool IsColumnCategorical(std::int32_t pColumnIndex) override;
  bool HasMissingValues(std::int32_t pColumnIndex) override;
  std::int32_t GetDataSetRows(std::int32_t) override { return 0; }
  void OpenFromFile(std::string_view, std::int32_t, bool) override {}

 private:
  const DataSetLiteState& state_;
  IDataSet& data_set_;
};

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_DEPLOYMENT_VIEW_H_
