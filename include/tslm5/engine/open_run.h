#ifndef TSLM5_ENGINE_OPEN_RUN_H_
#define TSLM5_ENGINE_OPEN_RUN_H_

#include <cstdint>
#include <string>

#include "tslm5/engine/connection_service.h"
#include "tslm5/platform/ref.h"

namespace tslm5 {

/// How a run database is opened.
struct RunOptions {
  /// What may happen to the file.
  enum class Mode {
    kReadWrite,        ///< the file must exist
    kReadWriteCreate,  ///< a missing file is made when the first table is
    kReadOnly,         ///< the file must exist and is not changed, but for a recovery
  };

  Mode mode = Mode::kReadWrite;  ///< not looked at for a database in memory
  /// A database that lives in memory and is gone with the run object; the path must be empty.
  bool in_memory = false;
  /// How long a statement waits for a database that another process has locked.
  std::int32_t busy_timeout_ms = 5000;
  /// The newest schema version that the caller understands; 0 accepts every version.
  std::int32_t newest_schema_version = 0;
};

/// Opens the run database at `path` and returns its run object.
/// Raises 41001 for a path that names no file: empty, ":memory:" or "file:…"; 53 for a missing
/// file or folder; 75 for a directory or a place that cannot be read or, unless `kReadOnly`,
/// written; SQLite's 26 for a file that is no database; 41001 for a schema newer than asked for.
/// A change that a killed program left half done is undone first, in every mode: see
/// `IRunRecovery`. Where that needs writing and nothing can be written, 75 is raised and says how
/// to recover the run.
[[gnu::visibility("default")]] Ref<IConnectionService> OpenRun(const std::string& path,
                                                               const RunOptions& options = {});

}  // namespace tslm5

#endif  // TSLM5_ENGINE_OPEN_RUN_H_
