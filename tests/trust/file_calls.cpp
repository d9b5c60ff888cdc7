// The file operations of the process: each is counted, may fail as planned, and is logged.
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cstdarg>

#include "trust/disk_log.h"
#include "trust/fault_plan.h"
#include "trust/next_function.h"

#define TRUST_EXPORT __attribute__((visibility("default")))
/// The function of the same name and type that comes after the shim.
#define TRUST_NEXT(name) static auto* const next = tslm5::trust::NextFunction<decltype(name)>(#name)

using tslm5::trust::Call;
using tslm5::trust::DiskLog;
using tslm5::trust::Fate;
using tslm5::trust::FaultPlan;

namespace {

bool Fails(Call call) {
  return FaultPlan::Count(call) != Fate::kProceeds;
}

/// The words for people are not taken away: standard output and standard error are not counted.
bool IsCounted(int file) {
  return file > STDERR_FILENO;
}

mode_t ModeOf(int flags, va_list arguments) {
  return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

template <class Open>
int OpenAt(int folder, const char* path, int flags, Open open) {
  if (Fails(Call::kOpen)) return -1;
  const bool was_there = DiskLog::IsOpen() && DiskLog::Exists(folder, path);
  const int file = open();
  if (file >= 0) DiskLog::Opened(file, folder, path, flags, was_there);
  return file;
}

/// A stream's writes are logged as far as they pass here: the C library's own buffers do not.
template <class Open>
FILE* OpenStream(const char* path, const char* mode, Open open) {
  if (Fails(Call::kOpen)) return nullptr;
  const bool was_there = DiskLog::IsOpen() && DiskLog::Exists(AT_FDCWD, path);
  FILE* const file = open();
  if (file == nullptr) return nullptr;
  const int flags = mode[0] == 'r'   ? O_RDONLY
                    : mode[0] == 'w' ? O_WRONLY | O_CREAT | O_TRUNC
                                     : O_WRONLY | O_CREAT;
  DiskLog::Opened(::fileno(file), AT_FDCWD, path, flags, was_there);
  return file;
}

/// `write(count)` writes that many of the bytes.
template <class Write>
ssize_t WriteAs(int file, const void* bytes, std::size_t count, off_t offset, Write write) {
  const Fate fate = IsCounted(file) ? FaultPlan::Count(Call::kWrite) : Fate::kProceeds;
  if (fate == Fate::kFails) return -1;
  const bool is_whole = fate == Fate::kProceeds || count < 2;
  const ssize_t written = write(is_whole ? count : count / 2);
  if (fate == Fate::kIsTorn) FaultPlan::Die();
  if (written > 0 && IsCounted(file)) {
    DiskLog::Written(file, offset, bytes, static_cast<std::size_t>(written));
  }
  return written;
}

/// Where a write without an offset goes.
off_t PlaceOf(int file) {
  if (!DiskLog::IsOpen()) return 0;
  const int flags = ::fcntl(file, F_GETFL);
  const bool appends = flags >= 0 && (flags & O_APPEND) != 0;
  return ::lseek(file, 0, appends ? SEEK_END : SEEK_CUR);
}

}  // namespace

extern "C" {

TRUST_EXPORT int open(const char* path, int flags, ...) {
  TRUST_NEXT(open);
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(flags, arguments);
  va_end(arguments);
  return OpenAt(AT_FDCWD, path, flags, [&] { return next(path, flags, mode); });
}

TRUST_EXPORT int open64(const char* path, int flags, ...) {
  TRUST_NEXT(open64);
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(flags, arguments);
  va_end(arguments);
  return OpenAt(AT_FDCWD, path, flags, [&] { return next(path, flags, mode); });
}

TRUST_EXPORT int openat(int folder, const char* path, int flags, ...) {
  TRUST_NEXT(openat);
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(flags, arguments);
  va_end(arguments);
  return OpenAt(folder, path, flags, [&] { return next(folder, path, flags, mode); });
}

TRUST_EXPORT int openat64(int folder, const char* path, int flags, ...) {
  TRUST_NEXT(openat64);
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(flags, arguments);
  va_end(arguments);
  return OpenAt(folder, path, flags, [&] { return next(folder, path, flags, mode); });
}

TRUST_EXPORT FILE* fopen(const char* path, const char* mode) {
  TRUST_NEXT(fopen);
  return OpenStream(path, mode, [&] { return next(path, mode); });
}

TRUST_EXPORT FILE* fopen64(const char* path, const char* mode) {
  TRUST_NEXT(fopen64);
  return OpenStream(path, mode, [&] { return next(path, mode); });
}

TRUST_EXPORT int close(int file) {
  TRUST_NEXT(close);
  DiskLog::Closed(file);
  return next(file);
}

TRUST_EXPORT ssize_t read(int file, void* bytes, size_t count) {
  TRUST_NEXT(read);
  return Fails(Call::kRead) ? -1 : next(file, bytes, count);
}

TRUST_EXPORT ssize_t pread(int file, void* bytes, size_t count, off_t offset) {
  TRUST_NEXT(pread);
  return Fails(Call::kRead) ? -1 : next(file, bytes, count, offset);
}

TRUST_EXPORT ssize_t pread64(int file, void* bytes, size_t count, off64_t offset) {
  TRUST_NEXT(pread64);
  return Fails(Call::kRead) ? -1 : next(file, bytes, count, offset);
}

TRUST_EXPORT ssize_t write(int file, const void* bytes, size_t count) {
  TRUST_NEXT(write);
  return WriteAs(file, bytes, count, PlaceOf(file),
                 [&](size_t some) { return next(file, bytes, some); });
}

TRUST_EXPORT ssize_t pwrite(int file, const void* bytes, size_t count, off_t offset) {
  TRUST_NEXT(pwrite);
  return WriteAs(file, bytes, count, offset,
                 [&](size_t some) { return next(file, bytes, some, offset); });
}

TRUST_EXPORT ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t offset) {
  TRUST_NEXT(pwrite64);
  return WriteAs(file, bytes, count, offset,
                 [&](size_t some) { return next(file, bytes, some, offset); });
}

TRUST_EXPORT ssize_t writev(int file, const iovec* parts, int count) {
  TRUST_NEXT(writev);
  if (IsCounted(file) && Fails(Call::kWrite)) return -1;
  off_t place = PlaceOf(file);
  const ssize_t written = next(file, parts, count);
  ssize_t left = written;
  for (int i = 0; i < count && left > 0 && IsCounted(file); ++i) {
    const auto size = static_cast<ssize_t>(parts[i].iov_len);
    const ssize_t some = size < left ? size : left;
    DiskLog::Written(file, place, parts[i].iov_base, static_cast<size_t>(some));
    place += some;
    left -= some;
  }
  return written;
}

TRUST_EXPORT int fsync(int file) {
  TRUST_NEXT(fsync);
  if (Fails(Call::kSync)) return -1;
  const int code = next(file);
  if (code == 0) DiskLog::Synced(file);
  return code;
}

TRUST_EXPORT int fdatasync(int file) {
  TRUST_NEXT(fdatasync);
  if (Fails(Call::kSync)) return -1;
  const int code = next(file);
  if (code == 0) DiskLog::Synced(file);
  return code;
}

TRUST_EXPORT int ftruncate(int file, off_t size) noexcept {
  TRUST_NEXT(ftruncate);
  if (Fails(Call::kTruncate)) return -1;
  const int code = next(file, size);
  if (code == 0) DiskLog::Truncated(file, size);
  return code;
}

TRUST_EXPORT int ftruncate64(int file, off64_t size) noexcept {
  TRUST_NEXT(ftruncate64);
  if (Fails(Call::kTruncate)) return -1;
  const int code = next(file, size);
  if (code == 0) DiskLog::Truncated(file, size);
  return code;
}

TRUST_EXPORT int unlink(const char* path) noexcept {
  TRUST_NEXT(unlink);
  if (Fails(Call::kUnlink)) return -1;
  const int code = next(path);
  if (code == 0) DiskLog::Unlinked(path);
  return code;
}

TRUST_EXPORT int remove(const char* path) noexcept {
  TRUST_NEXT(remove);
  if (Fails(Call::kUnlink)) return -1;
  const int code = next(path);
  if (code == 0) DiskLog::Unlinked(path);
  return code;
}

TRUST_EXPORT int unlinkat(int folder, const char* path, int flags) noexcept {
  TRUST_NEXT(unlinkat);
  if (Fails(Call::kUnlink)) return -1;
  if (folder != AT_FDCWD) DiskLog::Unknown("unlinkat of a folder");
  const int code = next(folder, path, flags);
  if (code == 0) DiskLog::Unlinked(path);
  return code;
}

TRUST_EXPORT int rename(const char* from, const char* to) noexcept {
  TRUST_NEXT(rename);
  if (Fails(Call::kRename)) return -1;
  const int code = next(from, to);
  if (code == 0) DiskLog::Renamed(from, to);
  return code;
}

TRUST_EXPORT int renameat2(int folder, const char* from, int to_folder, const char* to,
                           unsigned flags) noexcept {
  TRUST_NEXT(renameat2);
  if (Fails(Call::kRename)) return -1;
  if (folder != AT_FDCWD || to_folder != AT_FDCWD) DiskLog::Unknown("renameat2 of a folder");
  const int code = next(folder, from, to_folder, to, flags);
  if (code == 0) DiskLog::Renamed(from, to);
  return code;
}

TRUST_EXPORT int link(const char* from, const char* to) noexcept {
  TRUST_NEXT(link);
  if (Fails(Call::kRename)) return -1;
  const int code = next(from, to);
  if (code == 0) DiskLog::Linked(from, to);
  return code;
}

TRUST_EXPORT int linkat(int folder, const char* from, int to_folder, const char* to,
                        int flags) noexcept {
  TRUST_NEXT(linkat);
  if (Fails(Call::kRename)) return -1;
  if (folder != AT_FDCWD || to_folder != AT_FDCWD) DiskLog::Unknown("linkat of a folder");
  const int code = next(folder, from, to_folder, to, flags);
  if (code == 0) DiskLog::Linked(from, to);
  return code;
}

TRUST_EXPORT int stat(const char* path, struct stat* status) noexcept {
  TRUST_NEXT(stat);
  return Fails(Call::kStat) ? -1 : next(path, status);
}

TRUST_EXPORT int stat64(const char* path, struct stat64* status) noexcept {
  TRUST_NEXT(stat64);
  return Fails(Call::kStat) ? -1 : next(path, status);
}

TRUST_EXPORT int fstat(int file, struct stat* status) noexcept {
  TRUST_NEXT(fstat);
  return Fails(Call::kStat) ? -1 : next(file, status);
}

TRUST_EXPORT int fstat64(int file, struct stat64* status) noexcept {
  TRUST_NEXT(fstat64);
  return Fails(Call::kStat) ? -1 : next(file, status);
}

TRUST_EXPORT int lstat(const char* path, struct stat* status) noexcept {
  TRUST_NEXT(lstat);
  return Fails(Call::kStat) ? -1 : next(path, status);
}

TRUST_EXPORT int lstat64(const char* path, struct stat64* status) noexcept {
  TRUST_NEXT(lstat64);
  return Fails(Call::kStat) ? -1 : next(path, status);
}

TRUST_EXPORT int access(const char* path, int mode) noexcept {
  TRUST_NEXT(access);
  return Fails(Call::kStat) ? -1 : next(path, mode);
}

}  // extern "C"
