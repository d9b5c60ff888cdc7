#ifndef TSLM5_TESTS_FAKES_FAILING_ALLOCATION_H_
#define TSLM5_TESTS_FAKES_FAILING_ALLOCATION_H_

#include <functional>

namespace tslm5 {

/// While it stands, the n-th allocation by `operator new` (from 1) fails with `std::bad_alloc`:
/// that one alone, or with `for_good` every later one too. A program that uses it builds
/// failing_allocation.cpp, which replaces the operators. One at a time, on one thread.
class FailingAllocation {
 public:
  explicit FailingAllocation(long n, bool for_good = false);
  ~FailingAllocation() { Disarm(); }
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;

  /// Ends it before the scope does.
  static void Disarm();
  /// Whether an allocation has failed.
  static bool HasFailed();
};

/// Runs `action` with every allocation failing in turn, once or from there on, until none is left
/// to fail; what it raises is passed over. After each failure `expect_usable` runs with memory
/// enough. Stops at the first failed expectation. How many allocations `action` makes.
long FailInTurn(bool for_good, const std::function<void()>& action,
                const std::function<void()>& expect_usable);

}  // namespace tslm5

#endif  // TSLM5_TESTS_FAKES_FAILING_ALLOCATION_H_
