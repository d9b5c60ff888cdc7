#ifndef TSLM5_PLATFORM_UUID_H_
#define TSLM5_PLATFORM_UUID_H_

#include <cstdint>

namespace tslm5 {

/// A 128-bit identifier of an interface or a class. A plain value: safe to copy between modules.
struct Uuid {
  std::uint64_t high = 0;  ///< bits 64 to 127
  std::uint64_t low = 0;   ///< bits 0 to 63

  /// Equal bits.
  friend constexpr bool operator==(const Uuid& left, const Uuid& right) {
    return left.high == right.high && left.low == right.low;
  }
};

}  // namespace tslm5

#endif  // TSLM5_PLATFORM_UUID_H_
