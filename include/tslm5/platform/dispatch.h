#ifndef TSLM5_PLATFORM_DISPATCH_H_
#define TSLM5_PLATFORM_DISPATCH_H_

#include <span>
#include <string_view>

#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// Calls of an object's operations by name.
class IDispatch : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000002ULL, 0x8a1f4c0b6d2e7302ULL};

  /// Calls the operation `pName` (compared without regard to ASCII case) and returns its result,
  /// empty for one without a result. An unknown name raises 438, a wrong number of arguments 450,
  /// an argument of the wrong kind 13; what the operation raises passes on.
  virtual Variant Invoke(std::string_view pName, std::span<const Variant> pArguments) = 0;

 protected:
  ~IDispatch() = default;
};

}  // namespace tslm5

#endif  // TSLM5_PLATFORM_DISPATCH_H_
