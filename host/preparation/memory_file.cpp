#include "host/preparation/memory_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace tslm5::host {
namespace {

[[noreturn]] void Fail() {
  throw std::system_error(errno, std::generic_category());
}

}  // namespace

MemoryFile::MemoryFile()
    : descriptor_(::memfd_create("tslm5 text", MFD_CLOEXEC | MFD_ALLOW_SEALING)) {
  if (descriptor_ < 0) Fail();
}

MemoryFile::~MemoryFile() {
  if (bytes_ != nullptr) ::munmap(const_cast<char*>(bytes_), size_);
  ::close(descriptor_);
}

void MemoryFile::Append(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) Fail();
    if (written < 0) continue;
    bytes.remove_prefix(static_cast<std::size_t>(written));
    size_ += static_cast<std::size_t>(written);
  }
}

void MemoryFile::Seal() {
  constexpr int kSeals = F_SEAL_WRITE | F_SEAL_GROW | F_SEAL_SHRINK | F_SEAL_SEAL;
  if (::fcntl(descriptor_, F_ADD_SEALS, kSeals) != 0) Fail();
  if (size_ == 0) return;
  void* mapped = ::mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, descriptor_, 0);
  if (mapped == MAP_FAILED) Fail();
  bytes_ = static_cast<const char*>(mapped);
}

std::string MemoryFile::Path() const {
  return fmt::format("/proc/self/fd/{}", descriptor_);
}

}  // namespace tslm5::host
