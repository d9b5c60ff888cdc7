#ifndef TSLM5_PREPARATION_RUN_RESET_H_
#define TSLM5_PREPARATION_RUN_RESET_H_

#include <cstdint>
#include <string>
#include <vector>

#include "tslm5/contracts/feedback.h"
#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// What a run holds after a reset, an undo or a keep.
struct ResetResult {
  std::int32_t rows = 0;                ///< of the training set
  std::int32_t columns = 0;             ///< of the training set
  std::int32_t backup_rows = 0;         ///< training records that can be restored now
  std::int32_t former_backup_rows = 0;  ///< those of before
};

/// The testing records as the training set, a face of the class `RunPreparation`. `pFeedback` is
/// told of the statistics and may stop them; it may be null.
class IRunReset : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000052ULL, 0x8a1f4c0b6d2e7352ULL};

  /// Makes the testing records the training set and keeps the former one. Raises 41028 without a
  /// training or a testing set.
  virtual void Reset(const std::vector<std::string>& pWords, IFeedback* pFeedback,
                     ResetResult& pResult) = 0;
  /// Restores the training set of before the last reset. Raises 41028 when no reset is pending.
  virtual void Undo(const std::vector<std::string>& pWords, IFeedback* pFeedback,
                    ResetResult& pResult) = 0;
  /// Makes the last reset final. Raises 41028 when none is pending. There are no statistics to
  /// compute.
  virtual void Keep(const std::vector<std::string>& pWords, ResetResult& pResult) = 0;

 protected:
  ~IRunReset() = default;
};

}  // namespace tslm5

#endif  // TSLM5_PREPARATION_RUN_RESET_H_
