#ifndef TSLM5_ENGINE_SQLITE_STATEMENT_H_
#define TSLM5_ENGINE_SQLITE_STATEMENT_H_

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace tslm5 {

/// One compiled statement; finalised on the way out.
class SqliteStatement {
 public:
  SqliteStatement() = default;

  /// Compiles `sql`, which must be one statement, with blanks, comments and one ";" after it at
  /// most; anything else raises SQLite's error, or 1 for a second statement or none at all.
  SqliteStatement(sqlite3* database, std::string_view sql);

  SqliteStatement(SqliteStatement&& other) noexcept
      : database_(other.database_),
        handle_(std::exchange(other.handle_, nullptr)),
        sql_(std::move(other.sql_)) {}
  SqliteStatement& operator=(SqliteStatement&& other) noexcept {
    std::swap(database_, other.database_);
    std::swap(handle_, other.handle_);
    std::swap(sql_, other.sql_);
    return *this;
  }
  ~SqliteStatement() { sqlite3_finalize(handle_); }

  /// Moves to the next record; false at the end. Raises SQLite's error.
  bool Step() {
    const int code = sqlite3_step(handle_);
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) RaiseAndReset(code, sql_);
    return false;
  }

  /// Runs the statement to its end and makes it ready to run again.
  void Run() { RunFor(sql_); }
  /// The same for the statement `sql`, which is what a failure shows.
  void RunFor(std::string_view sql) {
    int code = SQLITE_ROW;
    while (code == SQLITE_ROW) code = sqlite3_step(handle_);
    if (code != SQLITE_DONE) RaiseAndReset(code, sql);
    sqlite3_reset(handle_);
  }

  void Reset() { sqlite3_reset(handle_); }
  void BindInteger(int parameter, std::int64_t value) {
    Check(sqlite3_bind_int64(handle_, parameter, value));
  }
  void BindDouble(int parameter, double value) {
    Check(sqlite3_bind_double(handle_, parameter, value));
  }
  void BindNull(int parameter) { Check(sqlite3_bind_null(handle_, parameter)); }
  /// `text` must stay until the statement is run or bound anew.
  void BindText(int parameter, std::string_view text) {
    Check(sqlite3_bind_text64(handle_, parameter, text.data(), text.size(), SQLITE_STATIC,
                              SQLITE_UTF8));
  }

  sqlite3_stmt* Handle() const { return handle_; }
  /// Whether the statement gives records and changes nothing. The beginning and the end of a
  /// transaction, which SQLite calls read-only, are no SELECT.
  bool IsSelect() const {
    return sqlite3_column_count(handle_) > 0 &&
           (sqlite3_stmt_readonly(handle_) != 0 || sqlite3_stmt_isexplain(handle_) != 0);
  }

 private:
  void Check(int code) {
    if (code != SQLITE_OK) RaiseAndReset(code, sql_);
  }
  [[noreturn]] void RaiseAndReset(int code, std::string_view sql);

  sqlite3* database_ = nullptr;
  sqlite3_stmt* handle_ = nullptr;
  std::string sql_;
};

/// `name` as a quoted identifier.
std::string QuotedName(std::string_view name);

}  // namespace tslm5

#endif  // TSLM5_ENGINE_SQLITE_STATEMENT_H_
