#include "trust/disk_log.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace tslm5::trust {
namespace {

constexpr int kLogFile = 900;  // out of the way of the program's own descriptors
bool is_open = false;

void Put(const void* bytes, std::size_t count) {
  const char* next = static_cast<const char*>(bytes);
  while (count > 0) {
    const long written = ::syscall(SYS_write, kLogFile, next, count);
    if (written <= 0) ::_exit(98);
    next += written;
    count -= static_cast<std::size_t>(written);
  }
}

/// One line, put together on the stack.
class Line {
 public:
  explicit Line(const char* word) { Add(word); }
  Line& operator<<(const char* word) {
    Add("\t");
    Add(word);
    return *this;
  }
  Line& operator<<(long number) {
    char digits[24];
    std::snprintf(digits, sizeof digits, "%ld", number);
    return *this << digits;
  }
  void Put() {
    const int saved = errno;
    Add("\n");
    trust::Put(text_, length_);
    errno = saved;
  }

 private:
  void Add(const char* word) {
    const std::size_t count = std::strlen(word);
    if (length_ + count > sizeof text_) ::_exit(98);
    std::memcpy(text_ + length_, word, count);
    length_ += count;
  }

  char text_[16384];
  std::size_t length_ = 0;
};

}  // namespace

void DiskLog::Open() {
  const char* const path = std::getenv("TRUST_LOG");
  if (path == nullptr) return;
  const long file =
      ::syscall(SYS_openat, AT_FDCWD, path, O_CREAT | O_WRONLY | O_TRUNC | O_CLOEXEC, 0600);
  if (file < 0 || ::dup3(static_cast<int>(file), kLogFile, O_CLOEXEC) < 0) ::_exit(98);
  ::syscall(SYS_close, file);
  is_open = true;
}

bool DiskLog::IsOpen() {
  return is_open;
}

bool DiskLog::Exists(int folder, const char* path) {
  const int saved = errno;
  const bool exists = ::syscall(SYS_faccessat, folder, path, F_OK) == 0;
  errno = saved;
  return exists;
}

void DiskLog::Opened(int file, int folder, const char* path, int flags, bool was_there) {
  if (!is_open) return;
  if (folder != AT_FDCWD && path[0] != '/') return Unknown("openat of a folder");
  if ((flags & O_TMPFILE) == O_TMPFILE) return Unknown("O_TMPFILE");
  const bool is_made = (flags & O_CREAT) != 0 && !was_there;
  const bool is_emptied = (flags & O_TRUNC) != 0 && (flags & O_ACCMODE) != O_RDONLY;
  (Line("open") << file << path << (is_made ? "made" : "there")
                << (is_emptied ? "emptied" : "kept"))
      .Put();
}

void DiskLog::Closed(int file) {
  if (is_open) (Line("close") << file).Put();
}

void DiskLog::Written(int file, off_t offset, const void* bytes, std::size_t count) {
  if (!is_open || count == 0) return;
  (Line("write") << file << offset << static_cast<long>(count)).Put();
  const int saved = errno;
  Put(bytes, count);
  errno = saved;
}

void DiskLog::Truncated(int file, off_t size) {
  if (is_open) (Line("truncate") << file << size).Put();
}

void DiskLog::Synced(int file) {
  if (is_open) (Line("sync") << file).Put();
}

void DiskLog::Unlinked(const char* path) {
  if (is_open) (Line("unlink") << path).Put();
}

void DiskLog::Renamed(const char* from, const char* to) {
  if (is_open) (Line("rename") << from << to).Put();
}

void DiskLog::Linked(const char* from, const char* to) {
  if (is_open) (Line("link") << from << to).Put();
}

void DiskLog::Unknown(const char* call) {
  if (is_open) (Line("unknown") << call).Put();
}

}  // namespace tslm5::trust
