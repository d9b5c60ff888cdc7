#ifndef TSLM5_ENGINE_RUN_RECOVERY_H_
#define TSLM5_ENGINE_RUN_RECOVERY_H_

#include <cstdint>

#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// A face of the run object: what opening the run had to repair. A program that is killed, or a
/// power loss, in the middle of a change leaves the journal of that change beside the run. The next
/// `OpenRun`, in whatever mode, undoes the change with it, so that the run is as it was before the
/// change began; nothing that was committed is touched. The answers hold for the life of the run
/// object and belong to this opening alone: the next one finds nothing to undo. Caller's thread
/// only.
class IRunRecovery : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000047ULL, 0x8a1f4c0b6d2e7347ULL};

  /// Whether opening the run undid an interrupted change.
  virtual bool WasRecovered() = 0;
  /// When the interrupted change last wrote its journal, in seconds since 1970-01-01 00:00 UTC: the
  /// time of the interruption, or shortly before it. 0 when nothing was undone.
  virtual std::int64_t InterruptedAt() = 0;

 protected:
  ~IRunRecovery() = default;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_RUN_RECOVERY_H_
