#include "run/run_catalog_object.h"

namespace tslm5 {

void* RunCatalog::FindFacet(const Uuid& pId) {
  if (pId == IRunCatalog::kId) return static_cast<IRunCatalog*>(&sets_);
  if (pId == IRunColumns::kId) return static_cast<IRunColumns*>(&columns_);
  if (pId == IRunCategories::kId) return static_cast<IRunCategories*>(&categories_);
  if (pId == IRunMissingValues::kId) return static_cast<IRunMissingValues*>(&missing_);
  if (pId == IRunParameters::kId) return static_cast<IRunParameters*>(&parameters_);
  if (pId == IRunFigures::kId) return static_cast<IRunFigures*>(&figures_);
  if (pId == IRunHistory::kId) return static_cast<IRunHistory*>(&history_);
  if (pId == IRunOriginals::kId) return static_cast<IRunOriginals*>(&originals_);
  return nullptr;
}

Ref<IUnknown> MakeRunCatalog() {
  return MakeObject<RunCatalog>();
}

}  // namespace tslm5
