#include "fuzz_input.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "tslm5/contracts/codes.h"

namespace tslm5::fuzz {

Input::Input(const std::uint8_t* data, std::size_t size) {
  const std::uint8_t first = size > 0 ? data[0] : 0;
  const std::uint8_t second = size > 1 ? data[1] : 0;
  separator = first % 6 - 1;
  has_labels = (second & 1) != 0;
  layout = (second & 2) != 0 ? layout_code::kRecordsInColumns : layout_code::kRecordsInRows;
  decimal = (second & 4) != 0 ? ',' : '.';
  problem = (second >> 3) % 4;
  if (size > 2) text.assign(reinterpret_cast<const char*>(data) + 2, size - 2);
}

MemoryFile::MemoryFile(std::string_view text)
    : descriptor_(::memfd_create("fuzz", MFD_CLOEXEC)),
      path_("/proc/self/fd/" + std::to_string(descriptor_)) {
  const auto written = ::write(descriptor_, text.data(), text.size());
  Require(written == static_cast<::ssize_t>(text.size()), "no file in memory");
}

MemoryFile::~MemoryFile() {
  ::close(descriptor_);
}

void Require(bool holds, std::string_view what) {
  if (holds) return;
  std::fprintf(stderr, "finding: %.*s\n", static_cast<int>(what.size()), what.data());
  std::abort();
}

}  // namespace tslm5::fuzz
