// Allocation of the program when memory is short: small blocks come from a reserve, so that what a
// command holds can be released and its failure told in words. Some destructors (of JSON values)
// need memory themselves, and could not raise the lack of it.
#include <cstddef>
#include <cstdlib>
#include <functional>
#include <new>

namespace {

constexpr std::size_t kReserveBytes = std::size_t{256} << 10;
constexpr std::size_t kWayOutBytes = kReserveBytes / 2;  // kept for when a failure is on its way
constexpr std::size_t kLargestBlock = std::size_t{4} << 10;

alignas(std::max_align_t) char reserve[kReserveBytes];
std::size_t used_bytes = 0;
bool has_raised = false;

/// A block of the reserve, which is never given back; null when it is used up, or the block large.
void* TakeReserved(std::size_t size) noexcept {
  constexpr std::size_t kAlignment = alignof(std::max_align_t);
  if (size > kLargestBlock) return nullptr;
  const std::size_t bytes = (size + kAlignment) / kAlignment * kAlignment;
  const std::size_t most = has_raised ? kReserveBytes : kReserveBytes - kWayOutBytes;
  if (used_bytes + bytes > most) return nullptr;
  void* const block = reserve + used_bytes;
  used_bytes += bytes;
  return block;
}

bool IsReserved(const void* block) noexcept {
  const auto* const byte = static_cast<const char*>(block);
  return std::less_equal<const char*>()(reserve, byte) &&
         std::less<const char*>()(byte, reserve + kReserveBytes);
}

}  // namespace

void* operator new(std::size_t size) {
  if (void* const block = std::malloc(size == 0 ? 1 : size)) return block;
  if (void* const block = TakeReserved(size)) return block;
  has_raised = true;
  throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
  if (!IsReserved(block)) std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
  operator delete(block);
}
