#ifndef TSLM5_TESTS_ENGINE_BARE_DATABASE_H_
#define TSLM5_TESTS_ENGINE_BARE_DATABASE_H_

#include <sqlite3.h>

#include <bit>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tslm5 {

/// A stored value, down to its bits.
struct BareValue {
  int type = SQLITE_NULL;
  std::int64_t integer = 0;
  double real = 0.0;
  std::string bytes;

  friend bool operator==(const BareValue& left, const BareValue& right) {
    return left.type == right.type && left.integer == right.integer &&
           std::bit_cast<std::uint64_t>(left.real) == std::bit_cast<std::uint64_t>(right.real) &&
           left.bytes == right.bytes;
  }
};

/// A SQLite database without the engine: what SQLite itself makes of a statement.
class BareDatabase {
 public:
  explicit BareDatabase(const std::string& path) {
    if (sqlite3_open(path.c_str(), &handle_) != SQLITE_OK) throw std::runtime_error(path);
    sqlite3_extended_result_codes(handle_, 1);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  }
  ~BareDatabase() { sqlite3_close(handle_); }
  BareDatabase(const BareDatabase&) = delete;
  BareDatabase& operator=(const BareDatabase&) = delete;

  sqlite3* Handle() const { return handle_; }

  /// Runs one statement; SQLite's extended result code, 0 when it succeeds.
  int Run(std::string_view sql) {
    sqlite3_stmt* statement = nullptr;
    int code =
        sqlite3_prepare_v2(handle_, sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
    while (code == SQLITE_OK && sqlite3_step(statement) == SQLITE_ROW) {
    }
    if (code == SQLITE_OK) code = sqlite3_reset(statement);
    sqlite3_finalize(statement);
    return code;
  }

  std::vector<std::vector<BareValue>> Records(std::string_view sql) {
    std::vector<std::vector<BareValue>> records;
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(handle_, sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW) {
      auto& record = records.emplace_back();
      for (int column = 0; column < sqlite3_column_count(statement); ++column) {
        record.push_back(Value(statement, column));
      }
    }
    sqlite3_finalize(statement);
    return records;
  }

 private:
  static BareValue Value(sqlite3_stmt* statement, int column) {
    BareValue value;
    value.type = sqlite3_column_type(statement, column);
    if (value.type == SQLITE_INTEGER) value.integer = sqlite3_column_int64(statement, column);
    if (value.type == SQLITE_FLOAT) value.real = sqlite3_column_double(statement, column);
    if (value.type == SQLITE_TEXT || value.type == SQLITE_BLOB) {
      const void* bytes = sqlite3_column_blob(statement, column);
      const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
      if (size > 0) value.bytes.assign(static_cast<const char*>(bytes), size);
    }
    return value;
  }

  sqlite3* handle_ = nullptr;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_ENGINE_BARE_DATABASE_H_
