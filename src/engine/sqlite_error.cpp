#include "engine/sqlite_error.h"
#include "tslm5/engine/transaction.h"

namespace tslm5 {
namespace {

// A commit is the removal of the journal; what fails with this code is the sync behind it.
static_assert(error_number::kStoredUnsynced == SQLITE_IOERR_DIR_FSYNC);

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

std::string Described(std::string_view text, std::string_view sql) {
  std::string description(text);
  if (!sql.empty()) description += " [" + Beginning(sql) + "]";
  return description;
}

}  // namespace

void RaiseSqliteError(sqlite3* database, int code, std::string_view sql) {
  const char* text = sqlite3_errstr(code);
  if (database != nullptr && (sqlite3_errcode(database) & 0xFF) == (code & 0xFF)) {
    code = sqlite3_extended_errcode(database);
    text = sqlite3_errmsg(database);
  }
  if (code == error_number::kStoredUnsynced) {
    text =
        "The change is stored, but the folder of the run could not be synced: a power loss may"
        " still undo it.";
  }
  throw SqliteFailure(code, "TSLMRep5", Described(text, sql));
}

void RaiseEngineError(int number, std::string_view text, std::string_view sql) {
  throw Error(number, "TSLMRep5", Described(text, sql));
}

bool IsPassing(int code) {
  switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_NOMEM:
    case SQLITE_INTERRUPT:
    case SQLITE_IOERR:
    case SQLITE_CORRUPT:
    case SQLITE_FULL:
    case SQLITE_CANTOPEN:
    case SQLITE_PROTOCOL:
    case SQLITE_NOTADB:
      return true;
    default:
      return false;
  }
}

}  // namespace tslm5
