#ifndef TSLM5_RUN_RUN_PARAMETERS_FACET_H_
#define TSLM5_RUN_RUN_PARAMETERS_FACET_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "run/run_catalog_state.h"
#include "tslm5/platform/object.h"
#include "tslm5/run/run_parameters.h"

namespace tslm5 {

/// `IRunParameters` of a `RunCatalog`.
class RunParametersFacet final : public Facet<IRunParameters> {
 public:
  RunParametersFacet(IUnknown& owner, RunCatalogState& state) : Facet(owner), state_(state) {}

  std::int32_t ReadWhole(std::string_view pSpace, std::string_view pName) override;
  double ReadNumber(std::string_view pSpace, std::string_view pName) override;
  void ReadNames(std::string_view pSpace, std::vector<std::string>& pNames) override;
  void WriteWhole(std::string_view pSpace, std::string_view pName, std::int32_t pValue) override;
  void WriteNumber(std::string_view pSpace, std::string_view pName, double pValue) override;
  void ReplaceWhole(std::string_view pSpace, std::string_view pName, std::int32_t pValue) override;
  void DropParameter(std::string_view pSpace, std::string_view pName) override;
  void DropSpace(std::string_view pSpace) override;

 private:
  RunCatalogState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_PARAMETERS_FACET_H_
