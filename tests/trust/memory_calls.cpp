// The allocations of the process, counted. glibc's own ones stand behind them.
#include <cerrno>
#include <cstddef>

#include "trust/fault_plan.h"

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);

#define TRUST_EXPORT __attribute__((visibility("default")))

namespace {

bool Fails() {
  using tslm5::trust::Call;
  using tslm5::trust::Fate;
  return tslm5::trust::FaultPlan::Count(Call::kMemory) != Fate::kProceeds;
}

}  // namespace

TRUST_EXPORT void* malloc(std::size_t size) {
  return Fails() ? nullptr : __libc_malloc(size);
}

TRUST_EXPORT void* calloc(std::size_t count, std::size_t size) {
  return Fails() ? nullptr : __libc_calloc(count, size);
}

TRUST_EXPORT void* realloc(void* memory, std::size_t size) {
  return size > 0 && Fails() ? nullptr : __libc_realloc(memory, size);
}

TRUST_EXPORT void* aligned_alloc(std::size_t alignment, std::size_t size) {
  return Fails() ? nullptr : __libc_memalign(alignment, size);
}

TRUST_EXPORT int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
  if (Fails()) return ENOMEM;
  *memory = __libc_memalign(alignment, size);
  return *memory == nullptr ? ENOMEM : 0;
}

}  // extern "C"
