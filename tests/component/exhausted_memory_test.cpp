// Nothing is thrown across the C boundary, whatever allocation fails within. The program has an
// operator new of its own, which fails when it is told to.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "component/registration_folder.h"
#include "tslm5/component/class_factory.h"
#include "tslm5/component/entry_points.h"

namespace {

/// How many allocations succeed before one fails; negative: none fails.
int allocations_left = -1;

void* Allocate(std::size_t size) {
  if (allocations_left == 0) {
    allocations_left = -1;
    throw std::bad_alloc();
  }
  if (allocations_left > 0) --allocations_left;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
  return Allocate(size);
}
void* operator new[](std::size_t size) {
  return Allocate(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace tslm5 {
namespace {

constexpr int kMostAllocations = 2000;

/// Calls `call` with the first allocation failing, then the second, until none fails any more.
/// Returns how many of the calls gave `failure`; every other one must give 0.
template <class Call>
int CountFailures(Call call, std::int32_t failure) {
  int failures = 0;
  for (int n = 0; n < kMostAllocations; ++n) {
    allocations_left = n;
    const std::int32_t code = call();
    const bool has_failed = allocations_left == -1;
    allocations_left = -1;
    if (!has_failed) return failures;
    if (code != TSLM5_OK) {
      EXPECT_EQ(code, failure) << "allocation " << n;
      ++failures;
    }
  }
  ADD_FAILURE() << "it allocates more than " << kMostAllocations << " times";
  return failures;
}

TEST(ExhaustedMemory, ReachesTheCallerOfDllGetClassObjectAsACode) {
  const auto call = [] {
    void* object = nullptr;
    const std::int32_t code =
        DllGetClassObject(&class_id::kDataSetLite, &IClassFactory::kId, &object);
    if (object != nullptr) static_cast<IUnknown*>(object)->Release();
    return code;
  };
  EXPECT_GT(CountFailures(call, TSLM5_FAILED), 0);
  EXPECT_EQ(DllCanUnloadNow(), TSLM5_OK) << "nothing is left behind";
}

TEST(ExhaustedMemory, ReachesTheCallerOfTheRegistrationAsACode) {
  const RegistrationsOfTheTest registrations;
  EXPECT_GT(CountFailures([] { return DllRegisterServer(); }, TSLM5_REGISTRATION_FAILED), 0);
  EXPECT_EQ(registrations.Text().find("component TSLM5DataManager\n"), 0U) << "the last one did";
  EXPECT_GT(CountFailures([] { return DllUnregisterServer(); }, TSLM5_REGISTRATION_FAILED), 0);
  EXPECT_EQ(CountFailures([] { return DllCanUnloadNow(); }, TSLM5_FAILED), 0);
}

}  // namespace
}  // namespace tslm5
