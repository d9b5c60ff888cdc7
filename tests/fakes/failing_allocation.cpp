#include "fakes/failing_allocation.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <exception>
#include <new>
#include <string>

namespace {

long allocations_left = 0;  // until one fails; 0: none does
bool fails_for_good = false;
bool has_failed = false;

bool FailsNow() {
  if (fails_for_good && has_failed) return true;
  if (allocations_left == 0 || --allocations_left > 0) return false;
  has_failed = true;
  return true;
}

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return FailsNow() ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void* operator new(std::size_t size) {
  void* const block = operator new(size, std::nothrow);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void operator delete(void* block) noexcept {
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}

namespace tslm5 {

FailingAllocation::FailingAllocation(long n, bool for_good) {
  allocations_left = n;
  fails_for_good = for_good;
  has_failed = false;
}

void FailingAllocation::Disarm() {
  allocations_left = 0;
  fails_for_good = false;
}

bool FailingAllocation::HasFailed() {
  return has_failed;
}

long FailInTurn(bool for_good, const std::function<void()>& action,
                const std::function<void()>& expect_usable) {
  for (long n = 1;; ++n) {
    SCOPED_TRACE("allocation " + std::to_string(n));
    {
      const FailingAllocation failing(n, for_good);
      try {
        action();
      } catch (const std::exception&) {  // of any kind: what counts is what is left
        FailingAllocation::Disarm();
        if (!has_failed) throw;
      }
    }
    if (!FailingAllocation::HasFailed()) return n - 1;
    expect_usable();
    if (testing::Test::HasFailure()) return n;
  }
}

}  // namespace tslm5
