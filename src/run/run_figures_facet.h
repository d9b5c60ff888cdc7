#ifndef TSLM5_RUN_RUN_FIGURES_FACET_H_
#define TSLM5_RUN_RUN_FIGURES_FACET_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "run/run_catalog_state.h"
#include "tslm5/platform/object.h"
#include "tslm5/run/run_figures.h"

namespace tslm5 {

/// `IRunFigures` of a `RunCatalog`.
class RunFiguresFacet final : public Facet<IRunFigures> {
 public:
  RunFiguresFacet(IUnknown& owner, RunCatalogState& state) : Facet(owner), state_(state) {}

  void ReadFigures(std::int32_t pType, std::vector<RunFigures>& pFigures) override;
  void ReadClassFigures(std::int32_t pType, std::vector<RunClassFigures>& pClasses) override;
  void DropFigures(std::int32_t pType) override;
  bool HasScaleFigures() override;
  void ReadScaleFigures(std::vector<ScaleFigures>& pFigures) override;
  void WriteScaleFigures(const std::vector<ScaleFigures>& pFigures) override;
  void ComputeScaleFigures(std::int32_t pColumns) override;
  void RenewScaleFigures(std::int32_t pColumn) override;
  void DropScaleFigures() override;

 private:
  RunCatalogState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_FIGURES_FACET_H_
