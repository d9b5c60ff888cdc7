#ifndef TSLM5_PREPARATION_RUN_PREPARATION_OBJECT_H_
#define TSLM5_PREPARATION_RUN_PREPARATION_OBJECT_H_

#include "preparation/run_access.h"
#include "preparation/run_embedding_facet.h"
#include "preparation/run_reset_facet.h"
#include "tslm5/platform/object.h"
#include "tslm5/preparation/run_preparation.h"

namespace tslm5 {

/// `IRunPreparation` of a `RunPreparation`, its main interface.
class RunOpeningFacet final : public Facet<IRunPreparation> {
 public:
  RunOpeningFacet(IUnknown& owner, RunAccess& run) : Facet(owner), run_(run) {}
  void Open(IUnknown* pRun) override;

 private:
  RunAccess& run_;
};

/// What is done to a run after it was loaded: one facet an interface, over one run. Made by
/// `MakeRunPreparation`. Caller's thread only.
class RunPreparation final : public FacetOwner {
 public:
  std::string_view TypeName() override { return "RunPreparation"; }

 private:
  ~RunPreparation() override = default;
  void* FindFacet(const Uuid& pId) override;

  RunAccess run_;
  RunOpeningFacet opening_{*this, run_};
  RunResetFacet reset_{*this, run_};
  RunEmbeddingFacet embedding_{*this, run_};
};

/// A new `RunPreparation` without a run.
Ref<IUnknown> MakeRunPreparation();

}  // namespace tslm5

#endif  // TSLM5_PREPARATION_RUN_PREPARATION_OBJECT_H_
