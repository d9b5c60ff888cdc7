#ifndef TSLM5_ENGINE_HOT_JOURNAL_H_
#define TSLM5_ENGINE_HOT_JOURNAL_H_

#include <cstdint>
#include <string>

namespace tslm5 {

/// What `RecoverRun` undid.
struct Recovery {
  bool was_recovered = false;
  std::int64_t interrupted_at = 0;  // seconds since 1970-01-01 00:00 UTC
};

/// Lets SQLite undo the change that a killed program left half done in the database at `path`,
/// whose journal still stands beside it. A connection that may only read cannot do so, therefore
/// it is done by one of its own, before the run's is opened. Does nothing without such a journal
/// or while another program is at work on the change.
/// Raises 75 where the file or its folder cannot be written, and SQLite's code where undoing fails;
/// both say that the run holds an interrupted change and how to recover it.
Recovery RecoverRun(const std::string& path, std::int32_t busy_timeout_ms);

}  // namespace tslm5

#endif  // TSLM5_ENGINE_HOT_JOURNAL_H_
