#ifndef TSLM5_TESTS_TRUST_DISK_LOG_H_
#define TSLM5_TESTS_TRUST_DISK_LOG_H_

#include <sys/types.h>

#include <cstddef>

namespace tslm5::trust {

/// The changes that the process makes to files, in order, with their bytes: what `power_loss.py`
/// needs to make every state that a power loss could leave. Each is a line of words divided by
/// tabs; the bytes written follow theirs. Calls that failed are not logged.
/// TRUST_LOG names the file; without it nothing is logged. Nothing here allocates.
class DiskLog {
 public:
  static void Open();
  static bool IsOpen();

  /// Whether `path` is there; asked before an open that may make it. Leaves errno as it was.
  static bool Exists(int folder, const char* path);

  static void Opened(int file, int folder, const char* path, int flags, bool was_there);
  static void Closed(int file);
  static void Written(int file, off_t offset, const void* bytes, std::size_t count);
  static void Truncated(int file, off_t size);
  static void Synced(int file);
  static void Unlinked(const char* path);
  static void Renamed(const char* from, const char* to);
  static void Linked(const char* from, const char* to);
  /// A change that the log has no words for: what it is used on cannot be judged.
  static void Unknown(const char* call);
};

}  // namespace tslm5::trust

#endif  // TSLM5_TESTS_TRUST_DISK_LOG_H_
