#ifndef TSLM5_ENGINE_SQLITE_ERROR_H_
#define TSLM5_ENGINE_SQLITE_ERROR_H_

#include <sqlite3.h>

#include <string>
#include <string_view>

#include "tslm5/platform/error.h"

namespace tslm5 {

/// A failure that SQLite reported, as against one of the engine's own.
class SqliteFailure final : public Error {
 public:
  using Error::Error;
};

/// Raises what SQLite last reported on `database` as a `SqliteFailure`: the extended result code as
/// the number, "TSLMRep5" as the source, and SQLite's text with the beginning of `sql` as the
/// description. `code` is the result code at hand; the connection's own is preferred where it says
/// more.
[[noreturn]] void RaiseSqliteError(sqlite3* database, int code, std::string_view sql);

/// Raises a failure of the engine's own, with the beginning of `sql`.
[[noreturn]] void RaiseEngineError(int number, std::string_view text, std::string_view sql);

/// Whether SQLite may have failed for a reason that lies outside of the statement and may pass:
/// memory, the disk, another program.
bool IsPassing(int code);

}  // namespace tslm5

#endif  // TSLM5_ENGINE_SQLITE_ERROR_H_
