#include "delimited/byte_source.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

#include "delimited/gzip_source.h"
#include "tslm5/platform/error.h"

namespace tslm5::delimited {
namespace {

[[noreturn]] void RaiseUnreadable(const std::string& name, int code) {
  const bool is_absent = code == ENOENT || code == ENOTDIR;
  throw Error(is_absent ? error_number::kFileNotFound : error_number::kFileAccess, "OpenSource",
              name + ": " + (is_absent ? "no such file" : std::generic_category().message(code)));
}

class DescriptorSource : public ByteSource {
 public:
  DescriptorSource(int descriptor, std::string name, bool is_owned)
      : ByteSource(std::move(name)), descriptor_(descriptor), is_owned_(is_owned) {}
  ~DescriptorSource() override {
    if (is_owned_) ::close(descriptor_);
  }

  std::size_t Read(char* to, std::size_t room) override {
    for (;;) {
      const ::ssize_t count = ::read(descriptor_, to, room);
      if (count >= 0) return static_cast<std::size_t>(count);
      if (errno != EINTR) RaiseUnreadable(Name(), errno);
    }
  }

 private:
  int descriptor_;
  bool is_owned_;
};

class TextSource : public ByteSource {
 public:
  TextSource(std::string_view bytes, std::string name)
      : ByteSource(std::move(name)), rest_(bytes) {}

  std::size_t Read(char* to, std::size_t room) override {
    const std::size_t count = std::min(room, rest_.size());
    std::copy_n(rest_.data(), count, to);
    rest_.remove_prefix(count);
    return count;
  }

 private:
  std::string_view rest_;
};

}  // namespace

std::unique_ptr<ByteSource> OpenSource(const std::string& path) {
  if (path == "-") return OpenSource(STDIN_FILENO, "standard input");
  if (path.find('\0') != std::string::npos) RaiseUnreadable(path, ENOENT);
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) RaiseUnreadable(path, errno);
  return Decompressed(std::make_unique<DescriptorSource>(descriptor, path, true));
}

std::unique_ptr<ByteSource> OpenSource(int descriptor, std::string name) {
  return Decompressed(std::make_unique<DescriptorSource>(descriptor, std::move(name), false));
}

std::unique_ptr<ByteSource> MemorySource(std::string_view bytes, std::string name) {
  return std::make_unique<TextSource>(bytes, std::move(name));
}

}  // namespace tslm5::delimited
