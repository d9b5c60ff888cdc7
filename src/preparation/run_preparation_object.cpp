#include "preparation/run_preparation_object.h"

#include "platform/only_errors.h"

namespace tslm5 {

void RunOpeningFacet::Open(IUnknown* pRun) {
  OnlyErrors([&] { run_.Open(pRun); });
}

void* RunPreparation::FindFacet(const Uuid& pId) {
  if (pId == IRunPreparation::kId) return static_cast<IRunPreparation*>(&opening_);
  if (pId == IRunReset::kId) return static_cast<IRunReset*>(&reset_);
  if (pId == IRunEmbedding::kId) return static_cast<IRunEmbedding*>(&embedding_);
  return nullptr;
}

Ref<IUnknown> MakeRunPreparation() {
  return MakeObject<RunPreparation>();
}

}  // namespace tslm5
