#include "support/file_helpers.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <new>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "support/large_pages.h"
#include "support/text_decoding.h"
#include "tslm5/platform/error.h"

namespace tslm5::FileHelpers {
namespace {

/// Read in steps that stay in the processor's cache between being cleared and being filled.
constexpr std::size_t kStepBytes = std::size_t{256} * 1024;
constexpr const char* kSource = "ReadAllText";

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

[[noreturn]] void RaiseUnreadable(std::string_view path, std::string_view reason) {
  throw Error(
      error_number::kFileAccess, kSource,
      "The file \"" + std::string(path) + "\" cannot be read: " + std::string(reason) + ".");
}

[[noreturn]] void RaiseNoText(std::string_view path, std::string_view reason) {
  throw Error(
      error_number::kInvalidData, kSource,
      "The file \"" + std::string(path) + "\" is not delimited text: " + std::string(reason) + ".");
}

bool HasUtf16Mark(std::string_view bytes) {
  return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

/// Refuses what would be one line without end, as soon as that can be seen: such a file may be
/// larger than the memory.
class LineLengths {
 public:
  LineLengths(std::string_view path, std::size_t longest) : path_(path), longest_(longest) {}

  /// Looks at the bytes that were read last, the first ones included.
  void Take(std::string_view bytes) {
    const bool is_first = read_ == 0;
    const std::size_t feed = bytes.rfind('\n');
    read_ += bytes.size();
    if (feed != std::string_view::npos) {
      line_start_ = read_ - bytes.size() + feed + 1;
    } else if (is_first && bytes.size() == kStepBytes && !HasUtf16Mark(bytes) &&
               bytes.find('\0') != std::string_view::npos) {
      RaiseNoText(path_, "its first line holds a NUL character and does not end within 256 KiB");
    } else if (read_ - line_start_ > longest_) {
      RaiseNoText(path_, "it has a line of more than " + std::to_string(longest_) + " bytes");
    }
  }

 private:
  std::string_view path_;
  std::size_t longest_;
  std::size_t read_ = 0;
  std::size_t line_start_ = 0;
};

/// Fills [to, to + size), unless the file ends before that; how much was read.
std::size_t ReadStep(int descriptor, char* to, std::size_t size, std::string_view path) {
  std::size_t used = 0;
  while (used < size) {
    const ::ssize_t count = ::read(descriptor, to + used, size - used);
    if (count == 0) break;
    if (count > 0) {
      used += static_cast<std::size_t>(count);
    } else if (errno != EINTR) {
      RaiseUnreadable(path, SystemReason(errno));
    }
  }
  return used;
}

/// Looks at the first line of a file that may be one line alone, before any of it is kept.
void CheckFirstLine(int descriptor, LineLengths lines) {
  std::string block(kStepBytes, '\0');
  for (::off_t at = 0;;) {
    const ::ssize_t count = ::pread(descriptor, block.data(), block.size(), at);
    if (count <= 0) return;  // the reading itself will tell
    const std::string_view bytes(block.data(), static_cast<std::size_t>(count));
    if (bytes.find('\n') != std::string_view::npos) return;
    lines.Take(bytes);
    at += count;
  }
}

/// Reads to the end, however far that is from `expected_size`. The room beyond the expected size
/// costs no memory until it is used; decoding may use it instead of a second buffer.
std::string ReadToEnd(int descriptor, std::size_t expected_size, std::string_view path,
                      LineLengths lines) {
  std::string bytes;
  bytes.reserve(expected_size + expected_size / 8 + kStepBytes);
  AdviseLargePages(bytes.data(), expected_size + kStepBytes);
  for (;;) {
    const std::size_t used = bytes.size();
    if (bytes.capacity() - used < kStepBytes) bytes.reserve(2 * used);
    bytes.resize(used + kStepBytes);
    const std::size_t count = ReadStep(descriptor, bytes.data() + used, kStepBytes, path);
    bytes.resize(used + count);
    lines.Take(std::string_view(bytes).substr(used));
    if (count < kStepBytes) return bytes;
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

TextFile ReadFile(std::string_view path, std::size_t longest_line) {
  using Kind = TextFile::Kind;
  if (!CanName(path)) return {};
  const FileDescriptor file{std::string(path)};
  if (file.Number() < 0) {
    const int code = errno;
    if (code == ENOENT || code == ENOTDIR) return {};
    if (code == EACCES || code == EPERM) return {Kind::kForbidden, {}};
    RaiseUnreadable(path, SystemReason(code));
  }
  struct stat status {};
  if (::fstat(file.Number(), &status) != 0) RaiseUnreadable(path, SystemReason(errno));
  if (S_ISDIR(status.st_mode)) return {Kind::kFolder, {}};
  const auto size = static_cast<std::size_t>(status.st_size);
  const LineLengths lines(path, longest_line);
  if (size > longest_line) CheckFirstLine(file.Number(), lines);
  try {
    return {Kind::kRead, TextDecoding::ToUtf8(ReadToEnd(file.Number(), size, path, lines))};
  } catch (const std::bad_alloc&) {
    RaiseUnreadable(path, "it does not fit into memory");
  } catch (const std::length_error&) {
    RaiseUnreadable(path, "it does not fit into memory");
  }
}

void RaiseForbidden(std::string_view path) {
  RaiseUnreadable(path, SystemReason(EACCES));
}

std::string ReadAllText(std::string_view path) {
  TextFile file = ReadFile(path);
  if (file.kind == TextFile::Kind::kForbidden) RaiseForbidden(path);
  return std::move(file.text);
}

}  // namespace tslm5::FileHelpers
