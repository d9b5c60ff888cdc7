#ifndef TSLM5_RUN_RUN_CATALOG_OBJECT_H_
#define TSLM5_RUN_RUN_CATALOG_OBJECT_H_

#include "run/run_catalog_state.h"
#include "run/run_categories_facet.h"
#include "run/run_columns_facet.h"
#include "run/run_figures_facet.h"
#include "run/run_history_facet.h"
#include "run/run_missing_facet.h"
#include "run/run_originals_facet.h"
#include "run/run_parameters_facet.h"
#include "run/run_sets_facet.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// The catalogue of a run: one facet an interface, over one connection. Made by `MakeRunCatalog`.
/// Caller's thread only.
class RunCatalog final : public FacetOwner {
 public:
  std::string_view TypeName() override { return "RunCatalog"; }

 private:
  ~RunCatalog() override = default;
  void* FindFacet(const Uuid& pId) override;

  RunCatalogState state_;
  RunSetsFacet sets_{*this, state_};
  RunColumnsFacet columns_{*this, state_};
  RunCategoriesFacet categories_{*this, state_};
  RunMissingFacet missing_{*this, state_};
  RunParametersFacet parameters_{*this, state_};
  RunFiguresFacet figures_{*this, state_};
  RunHistoryFacet history_{*this, state_};
  RunOriginalsFacet originals_{*this, state_};
};

/// A new `RunCatalog` without a run.
Ref<IUnknown> MakeRunCatalog();

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_CATALOG_OBJECT_H_
