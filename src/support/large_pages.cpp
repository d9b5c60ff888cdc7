#include "support/large_pages.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

namespace tslm5 {

void AdviseLargePages(void* block, std::size_t bytes) {
#ifdef MADV_HUGEPAGE
  constexpr std::size_t kLargeBytes = std::size_t{8} << 20;
  if (bytes < kLargeBytes) return;
  const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
  const std::size_t before = (page - reinterpret_cast<std::uintptr_t>(block) % page) % page;
  ::madvise(static_cast<char*>(block) + before, (bytes - before) / page * page, MADV_HUGEPAGE);
#endif
}

}  // namespace tslm5
