#ifndef TSLM5_PLATFORM_UNKNOWN_H_
#define TSLM5_PLATFORM_UNKNOWN_H_

#include <cstdint>
#include <string_view>

#include "tslm5/platform/uuid.h"

/// The contract: interfaces, the values that they pass, and what makes objects. Text is UTF-8,
/// failures are raised as `Error`, and nothing starts a thread.
namespace tslm5 {

/// The base of every interface: identity, reference count and the name of the object's type.
/// Objects are made with a count of one and let go of with `Release`. Caller's thread only.
class IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000001ULL, 0x8a1f4c0b6d2e7301ULL};

  /// Puts the object's face for `pId` into `*pObject`, counted, and returns true; or puts nullptr
  /// there and returns false. The face for `IUnknown::kId` is one and the same pointer from every
  /// face of an object: compare it to learn whether two faces belong to one object.
  virtual bool QueryInterface(const Uuid& pId, void** pObject) = 0;

  /// Adds one to the count and returns the new count.
  virtual std::uint32_t AddRef() = 0;

  /// Takes one from the count and returns what is left; at 0 the object is gone.
  virtual std::uint32_t Release() noexcept = 0;

  /// The class name, such as "DataSetLite" or "Run". The view lives as long as the object.
  virtual std::string_view TypeName() = 0;

 protected:
  ~IUnknown() = default;
};

}  // namespace tslm5

#endif  // TSLM5_PLATFORM_UNKNOWN_H_
