#ifndef TSLM5_RUN_RUN_HISTORY_H_
#define TSLM5_RUN_RUN_HISTORY_H_

#include <cstdint>
#include <vector>

#include "tslm5/platform/unknown.h"
#include "tslm5/run/run_records.h"

namespace tslm5 {

/// What was done to a run, a face of the class `RunCatalog`.
class IRunHistory : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000037ULL, 0x8a1f4c0b6d2e7337ULL};

  /// Every step, the first one first.
  virtual void ReadSteps(std::vector<HistoryStep>& pSteps) = 0;
  /// Appends a step; a run without a history gets one.
  virtual void AppendStep(const HistoryStep& pStep) = 0;
  /// The last step "load" of a set, or of both sets; false, and `pStep` is untouched, when the run
  /// does not tell.
  virtual bool ReadLastLoad(std::int32_t pType, HistoryStep& pStep) = 0;

 protected:
  ~IRunHistory() = default;
};

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_HISTORY_H_
