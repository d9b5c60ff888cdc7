#ifndef TSLM5_PREPARATION_RUN_EMBEDDING_FACET_H_
#define TSLM5_PREPARATION_RUN_EMBEDDING_FACET_H_

#include <string>
#include <vector>

#include "preparation/run_access.h"
#include "tslm5/platform/object.h"
#include "tslm5/preparation/run_embedding.h"

namespace tslm5 {

/// `IRunEmbedding` of a `RunPreparation`.
class RunEmbeddingFacet final : public Facet<IRunEmbedding> {
 public:
  RunEmbeddingFacet(IUnknown& owner, RunAccess& run) : Facet(owner), run_(run) {}

  void Embed(const EmbeddingOptions& pOptions, const std::vector<std::string>& pWords,
             IFeedback* pFeedback, EmbeddingResult& pResult) override;

 private:
  RunAccess& run_;
};

}  // namespace tslm5

#endif  // TSLM5_PREPARATION_RUN_EMBEDDING_FACET_H_
