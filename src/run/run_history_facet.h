#ifndef TSLM5_RUN_RUN_HISTORY_FACET_H_
#define TSLM5_RUN_RUN_HISTORY_FACET_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "run/run_catalog_state.h"
#include "tslm5/platform/object.h"
#include "tslm5/run/run_history.h"

namespace tslm5 {

/// `IRunHistory` of a `RunCatalog`.
class RunHistoryFacet final : public Facet<IRunHistory> {
 public:
  RunHistoryFacet(IUnknown& owner, RunCatalogState& state) : Facet(owner), state_(state) {}

  void ReadSteps(std::vector<HistoryStep>& pSteps) override;
  void AppendStep(const HistoryStep& pStep) override;
  bool ReadLastLoad(std::int32_t pType, HistoryStep& pStep) override;

 private:
  RunCatalogState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_HISTORY_FACET_H_
