#ifndef TSLM5_ENGINE_SQLITE_ERROR_H_
#define TSLM5_ENGINE_SQLITE_ERROR_H_

#include <sqlite3.h>

#include <string_view>

namespace tslm5 {

/// Raises what SQLite last reported on `database`: the extended result code as the number,
/// "TSLMRep5" as the source, and SQLite's text with the beginning of `sql` as the description.
/// `code` is the result code at hand; the connection's own is preferred where it says more.
[[noreturn]] void RaiseSqliteError(sqlite3* database, int code, std::string_view sql);

/// Raises a failure of the engine's own, with the beginning of `sql`.
[[noreturn]] void RaiseEngineError(int number, std::string_view text, std::string_view sql);

}  // namespace tslm5

#endif  // TSLM5_ENGINE_SQLITE_ERROR_H_
