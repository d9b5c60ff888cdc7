#ifndef TSLM5_ENGINE_RUN_PATH_H_
#define TSLM5_ENGINE_RUN_PATH_H_

#include <cstdint>
#include <string>

#include "tslm5/engine/open_run.h"

namespace tslm5 {

/// The folder that holds the file `path`.
std::string FolderOf(const std::string& path);

/// Raises what `OpenRun` says of a path that SQLite would open in another sense than meant, or
/// refuse in words of its own.
void CheckRunPath(const std::string& path, const RunOptions& options);

/// Raises what `OpenRun` says of an opened file that cannot be written or is too new.
void CheckOpenedRun(const std::string& path, const RunOptions& options, bool is_read_only,
                    std::int32_t schema_version);

/// Raises SQLite's result code `number`, in words that name the file.
[[noreturn]] void RaiseCannotOpen(const std::string& path, std::int32_t number);

}  // namespace tslm5

#endif  // TSLM5_ENGINE_RUN_PATH_H_
