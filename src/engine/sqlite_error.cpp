#include "engine/sqlite_error.h"

#include <string>

#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

constexpr std::size_t kShownSqlBytes = 120;

/// The beginning of a statement, cut at a code point and with its control characters as blanks.
std::string Beginning(std::string_view sql) {
  std::size_t size = sql.size();
  const bool cut = size > kShownSqlBytes;
  if (cut) {
    size = kShownSqlBytes;
    while (size > 0 && (static_cast<unsigned char>(sql[size]) & 0xC0) == 0x80) --size;
  }
  std::string shown(sql.substr(0, size));
  for (char& c : shown) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = ' ';
  }
  if (cut) shown += "...";
  return shown;
}

[[noreturn]] void Raise(int number, std::string description, std::string_view sql) {
  if (!sql.empty()) description += " [" + Beginning(sql) + "]";
  throw Error(number, "TSLMRep5", std::move(description));
}

}  // namespace

void RaiseSqliteError(sqlite3* database, int code, std::string_view sql) {
  const char* text = sqlite3_errstr(code);
  if (database != nullptr && (sqlite3_errcode(database) & 0xFF) == (code & 0xFF)) {
    code = sqlite3_extended_errcode(database);
    text = sqlite3_errmsg(database);
  }
  Raise(code, text, sql);
}

void RaiseEngineError(int number, std::string_view text, std::string_view sql) {
  Raise(number, std::string(text), sql);
}

}  // namespace tslm5
