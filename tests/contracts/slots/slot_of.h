#ifndef TSLM5_TESTS_CONTRACTS_SLOTS_SLOT_OF_H_
#define TSLM5_TESTS_CONTRACTS_SLOTS_SLOT_OF_H_

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// QueryInterface, AddRef, Release, TypeName.
inline constexpr std::ptrdiff_t kSlotsOfUnknown = 4;

/// The slot of a virtual operation in its interface's table, from 0; -1 when it is not virtual.
/// Reads the pointer to member as the Itanium C++ ABI lays it out: two words, the first the slot's
/// offset in bytes plus 1; where functions may have odd addresses (ARM), the first is the plain
/// offset and the lowest bit of the second says that the operation is virtual.
template <class Operation>
std::ptrdiff_t SlotOf(Operation operation) {
  static_assert(std::is_member_function_pointer_v<Operation>);
  constexpr auto kSlotBytes = static_cast<std::ptrdiff_t>(sizeof(void*));
  const auto words = std::bit_cast<std::array<std::ptrdiff_t, 2>>(operation);
#if defined(__aarch64__) || defined(__arm__)
  return (words[1] & 1) != 0 ? words[0] / kSlotBytes : -1;
#else
  return (words[0] & 1) != 0 ? (words[0] - 1) / kSlotBytes : -1;
#endif
}

template <class Operation>
struct InterfaceOf;
template <class I, class Result, class... Arguments>
struct InterfaceOf<Result (I::*)(Arguments...)> {
  using Type = I;
};

/// An interface that adds one operation to `I`: its slot is the number of slots of `I`.
template <class I>
class OneMore : public I {
 public:
  virtual void More() = 0;

 protected:
  ~OneMore() = default;
};

/// Expects that `operations` are all the operations of interface `I` beyond the root's, in order.
template <class I, class... Operations>
void ExpectSlots(Operations... operations) {
  static_assert((std::is_same_v<typename InterfaceOf<Operations>::Type, I> && ...));
  const std::array slots{SlotOf(operations)...};
  for (std::size_t i = 0; i < slots.size(); ++i) {
    EXPECT_EQ(slots[i], kSlotsOfUnknown + static_cast<std::ptrdiff_t>(i)) << "operation " << i + 1;
  }
  EXPECT_EQ(SlotOf(&OneMore<I>::More), kSlotsOfUnknown + std::ptrdiff_t{sizeof...(operations)})
      << "slots in all";
}

}  // namespace tslm5

#endif  // TSLM5_TESTS_CONTRACTS_SLOTS_SLOT_OF_H_
