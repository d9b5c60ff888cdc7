#ifndef TSLM5_PREPARATION_RUN_RESET_FACET_H_
#define TSLM5_PREPARATION_RUN_RESET_FACET_H_

#include <string>
#include <vector>

#include "preparation/run_access.h"
#include "tslm5/platform/object.h"
#include "tslm5/preparation/run_reset.h"

namespace tslm5 {

/// `IRunReset` of a `RunPreparation`.
class RunResetFacet final : public Facet<IRunReset> {
 public:
  RunResetFacet(IUnknown& owner, RunAccess& run) : Facet(owner), run_(run) {}

  void Reset(const std::vector<std::string>& pWords, IFeedback* pFeedback,
             ResetResult& pResult) override;
  void Undo(const std::vector<std::string>& pWords, IFeedback* pFeedback,
            ResetResult& pResult) override;
  void Keep(const std::vector<std::string>& pWords, ResetResult& pResult) override;

 private:
  RunAccess& run_;
};

}  // namespace tslm5

#endif  // TSLM5_PREPARATION_RUN_RESET_FACET_H_
