#ifndef TSLM5_CONTRACTS_LR_SERVICES_H_
#define TSLM5_CONTRACTS_LR_SERVICES_H_

#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// Facts about the response for two-class models.
class ILRServices : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d3500001eULL, 0x8a1f4c0b6d2e731eULL};

  /// The response column holds exactly two distinct values.
  virtual bool IsBinary() = 0;

 protected:
  ~ILRServices() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_LR_SERVICES_H_
