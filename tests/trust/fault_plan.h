#ifndef TSLM5_TESTS_TRUST_FAULT_PLAN_H_
#define TSLM5_TESTS_TRUST_FAULT_PLAN_H_

#include <cstddef>

namespace tslm5::trust {

/// What is counted, and can fail.
enum class Call {
  kOpen,      ///< open, fopen and their like
  kRead,      ///< read, pread
  kWrite,     ///< write, pwrite, writev; not to standard output and standard error
  kSync,      ///< fsync, fdatasync
  kTruncate,  ///< ftruncate, truncate
  kUnlink,    ///< unlink, unlinkat, remove
  kRename,    ///< rename, link and their like
  kStat,      ///< stat, fstat, lstat, access and their like
  kMemory,    ///< malloc, calloc, realloc and their like
  kCount
};

/// What the planned fault does to a call.
enum class Fate {
  kProceeds,
  kFails,      ///< errno is set already
  kIsPartial,  ///< a write: half of it is written, and that is what it returns
  kIsTorn,     ///< a write: half of it is written, and the process ends
};

/// The one plan of the process, read from the environment:
///   TRUST_FAULT   CALLS:N:MODE:ERRNO, such as write,sync:17:once:28. The n-th call of these kinds,
///                 counted from 1, fails with that errno (`once`), or it and every later one
///                 (`always`), or the process is killed before it (`kill`), or in the middle of it
///                 (`torn`), or a write writes only half (`partial`).
///   TRUST_START   main (the default) or call: from where on calls are counted; `call` is
///                 `TrustStart()`.
///   TRUST_COUNTS  a file that receives the counts when the process ends, a line a kind.
///   TRUST_HIT     a file that is made when the fault strikes.
/// Nothing here allocates. One thread only.
class FaultPlan {
 public:
  /// Reads the environment.
  static void Read();
  static void Start();
  static void Stop();

  /// Counts a call and tells what becomes of it; does not return when the process is to die first.
  static Fate Count(Call call);

  /// Writes the counts. The process has ended.
  static void WriteCounts();

  /// Ends the process at once, as SIGKILL does.
  [[noreturn]] static void Die();
};

}  // namespace tslm5::trust

#endif  // TSLM5_TESTS_TRUST_FAULT_PLAN_H_
