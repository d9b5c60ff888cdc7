#include "engine/sqlite_statement.h"

#include <limits>

#include "engine/sqlite_error.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

/// Whether `text` holds nothing but blanks, comments and, at most once, ";".
bool IsOnlyBlank(std::string_view text) {
  bool semicolon = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f') continue;
    if (c == ';' && !semicolon) {
      semicolon = true;
    } else if (text.substr(i, 2) == "--") {
      i = text.find('\n', i);
      if (i == std::string_view::npos) return true;
    } else if (text.substr(i, 2) == "/*") {
      i = text.find("*/", i + 2);
      if (i == std::string_view::npos) return true;
      ++i;
    } else {
      return false;
    }
  }
  return true;
}

}  // namespace

SqliteStatement::SqliteStatement(sqlite3* database, std::string_view sql)
    : database_(database), sql_(sql.substr(0, 256)) {
  if (sql.empty()) RaiseEngineError(SQLITE_ERROR, "the statement is empty", sql);
  if (sql.size() > std::size_t{std::numeric_limits<int>::max()}) {
    RaiseEngineError(SQLITE_TOOBIG, "the statement is too long", sql);
  }
  if (sql.find('\0') != std::string_view::npos) {
    RaiseEngineError(SQLITE_ERROR, "the statement holds a NUL character", sql);
  }
  const char* tail = nullptr;
  const int code =
      sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &handle_, &tail);
  if (code != SQLITE_OK) RaiseSqliteError(database, code, sql);
  if (handle_ == nullptr) RaiseEngineError(SQLITE_ERROR, "the statement is empty", sql);
  if (!IsOnlyBlank(sql.substr(static_cast<std::size_t>(tail - sql.data())))) {
    sqlite3_finalize(handle_);
    handle_ = nullptr;
    RaiseEngineError(SQLITE_ERROR, "only one statement can be run at a time", sql);
  }
}

void SqliteStatement::RaiseAndReset(int code, std::string_view sql) {
  try {
    RaiseSqliteError(database_, code, sql);
  } catch (...) {
    sqlite3_reset(handle_);
    throw;
  }
}

std::string QuotedName(std::string_view name) {
  std::string quoted = "\"";
  for (const char c : name) {
    quoted += c;
    if (c == '"') quoted += c;
  }
  quoted += '"';
  return quoted;
}

}  // namespace tslm5
