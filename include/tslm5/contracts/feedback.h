#ifndef TSLM5_CONTRACTS_FEEDBACK_H_
#define TSLM5_CONTRACTS_FEEDBACK_H_

#include <cstdint>
#include <string_view>

#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// The caller's progress display for a long computation. Implemented by the application.
class IFeedback : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000013ULL, 0x8a1f4c0b6d2e7313ULL};

  /// Shows progress; false asks the computation to stop.
  virtual bool ReportProgress(std::int32_t pPosition, std::string_view pText) = 0;
  /// False asks the computation to stop.
  virtual bool ContinueFlag() = 0;
  /// A pass is through; of the statistics once for the columns and once for the classes. Not called
  /// after a stop.
  virtual void Finish() = 0;
  /// The computation begins; called once, before everything else.
  virtual void Start() = 0;
  /// The position at which the computation is done.
  virtual void SetMaximum(std::int32_t pMaximum) = 0;

 protected:
  ~IFeedback() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_FEEDBACK_H_
