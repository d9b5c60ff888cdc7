#ifndef TSLM5_RUN_RUN_COLUMNS_FACET_H_
#define TSLM5_RUN_RUN_COLUMNS_FACET_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "run/run_catalog_state.h"
#include "tslm5/platform/object.h"
#include "tslm5/run/run_columns.h"

namespace tslm5 {

/// `IRunColumns` of a `RunCatalog`.
class RunColumnsFacet final : public Facet<IRunColumns> {
 public:
  RunColumnsFacet(IUnknown& owner, RunCatalogState& state) : Facet(owner), state_(state) {}

  void ReadColumns(std::vector<RunColumn>& pColumns) override;
  void WriteColumns(const std::vector<RunColumn>& pColumns, bool pHasLabels) override;
  void WriteMissingCounts(const std::vector<std::int32_t>& pCounts) override;
  void ReadOriginalLabels(std::vector<std::string>& pLabels) override;
  void WriteOriginalLabels(const std::vector<std::string>& pLabels) override;
  bool HasLabels(std::int32_t pType) override;
  void DropLabels(std::int32_t pType) override;
  void WriteSeriesLabel(std::string_view pLabel) override;

 private:
  RunCatalogState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_COLUMNS_FACET_H_
