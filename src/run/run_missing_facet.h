#ifndef TSLM5_RUN_RUN_MISSING_FACET_H_
#define TSLM5_RUN_RUN_MISSING_FACET_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "run/run_catalog_state.h"
#include "tslm5/platform/object.h"
#include "tslm5/run/run_missing_values.h"

namespace tslm5 {

/// `IRunMissingValues` of a `RunCatalog`.
class RunMissingFacet final : public Facet<IRunMissingValues> {
 public:
  RunMissingFacet(IUnknown& owner, RunCatalogState& state) : Facet(owner), state_(state) {}

  void ReadTokens(std::vector<RunToken>& pTokens) override;
  void WriteTokens(const std::vector<RunToken>& pTokens) override;
  void CountTrainingTexts(std::int32_t pColumn, std::vector<RunTextCount>& pTexts) override;
  void CountOpenTexts(std::int32_t pType, std::int32_t pColumn,
                      std::vector<RunTextCount>& pTexts) override;

 private:
  RunCatalogState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_MISSING_FACET_H_
