#include "support/file_helpers.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <new>
#include <stdexcept>
#include <system_error>

#include "support/text_decoding.h"
#include "tslm5/platform/error.h"

namespace tslm5::FileHelpers {
namespace {

/// Read in steps that stay in the processor's cache between being cleared and being filled.
constexpr std::size_t kStepBytes = std::size_t{256} * 1024;
constexpr std::size_t kSmallestBuffer = 4096;

class FileDescriptor {
 public:
  explicit FileDescriptor(const std::string& path)
      : number_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}
  ~FileDescriptor() {
    if (number_ >= 0) ::close(number_);
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;

  int Number() const { return number_; }

 private:
  int number_;
};

[[noreturn]] void RaiseUnreadable(const std::string& path, const std::string& reason) {
  throw Error(error_number::kFileAccess, "ReadAllText",
              "The file \"" + path + "\" cannot be read: " + reason + ".");
}

std::string SystemReason(int code) {
  return std::generic_category().message(code);
}

std::size_t BeyondLastBackslash(std::string_view path) {
  const std::size_t place = path.rfind('\\');
  return place == std::string_view::npos ? 0 : place + 1;
}

/// A name with a zero byte names nothing; the system would take it for a shorter one.
bool CanName(std::string_view path) {
  return !path.empty() && path.find('\0') == std::string_view::npos;
}

/// Reads to the end, however far that is from `expected_size`. The room beyond the expected size
/// costs no memory until it is used; decoding may use it instead of a second buffer.
std::string ReadToEnd(int descriptor, std::size_t expected_size, const std::string& path) {
  std::string bytes;
  bytes.reserve(expected_size + expected_size / 8 + kSmallestBuffer);
  for (;;) {
    const std::size_t used = bytes.size();
    if (used == bytes.capacity()) bytes.reserve(2 * used);
    bytes.resize(used + std::min(bytes.capacity() - used, kStepBytes));
    const ::ssize_t count = ::read(descriptor, bytes.data() + used, bytes.size() - used);
    const int code = errno;
    bytes.resize(used + (count > 0 ? static_cast<std::size_t>(count) : 0));
    if (count == 0) return bytes;
    if (count < 0 && code != EINTR) RaiseUnreadable(path, SystemReason(code));
  }
}

}  // namespace

std::string GetDirectory(std::string_view path) {
  return std::string(path.substr(0, BeyondLastBackslash(path)));
}

std::string GetFileName(std::string_view path) {
  return std::string(path.substr(BeyondLastBackslash(path)));
}

bool FileExists(std::string_view path) {
  struct stat status {};
  return CanName(path) && ::stat(std::string(path).c_str(), &status) == 0 &&
         !S_ISDIR(status.st_mode);
}

std::string ReadAllText(std::string_view path) {
  if (!CanName(path)) return {};
  const std::string name(path);
  const FileDescriptor file(name);
  if (file.Number() < 0) {
    if (errno == ENOENT || errno == ENOTDIR) return {};
    RaiseUnreadable(name, SystemReason(errno));
  }
  struct stat status {};
  if (::fstat(file.Number(), &status) != 0) RaiseUnreadable(name, SystemReason(errno));
  if (S_ISDIR(status.st_mode)) return {};
  try {
    return TextDecoding::ToUtf8(
        ReadToEnd(file.Number(), static_cast<std::size_t>(status.st_size), name));
  } catch (const std::bad_alloc&) {
    RaiseUnreadable(name, "it does not fit into memory");
  } catch (const std::length_error&) {
    RaiseUnreadable(name, "it does not fit into memory");
  }
}

}  // namespace tslm5::FileHelpers
