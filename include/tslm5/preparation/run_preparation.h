#ifndef TSLM5_PREPARATION_RUN_PREPARATION_H_
#define TSLM5_PREPARATION_RUN_PREPARATION_H_

#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// What is done to a run after it was loaded. Made by the class `RunPreparation`, whose other faces
/// are `IRunReset` and `IRunEmbedding`. Each operation of those is atomic: it is done, with its
/// statistics and its step of the history, or the run is as it was. They raise 41001 before `Open`,
/// 41028 when the run is not in a state for the operation, 41029 when the caller's feedback stopped
/// it, and what the engine and the datasets raise. A step's `pWords` are the application's own way
/// to repeat it, stored with it under "words". Caller's thread only.
class IRunPreparation : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000051ULL, 0x8a1f4c0b6d2e7351ULL};

  /// Names the run, a connection service, which is held from then on. Raises 41001 when `pRun` is
  /// no run. REQUIRES: no set of the run is open while an operation runs.
  virtual void Open(IUnknown* pRun) = 0;

 protected:
  ~IRunPreparation() = default;
};

}  // namespace tslm5

#endif  // TSLM5_PREPARATION_RUN_PREPARATION_H_
