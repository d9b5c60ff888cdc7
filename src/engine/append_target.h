#ifndef TSLM5_ENGINE_APPEND_TARGET_H_
#define TSLM5_ENGINE_APPEND_TARGET_H_

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tslm5 {

/// What is known of a table that records are appended to, as its schema stood when it was read.
struct AppendTarget {
  /// How a column stores what it is given.
  enum class Storage : unsigned char {
    kReal,   ///< numbers as they are
    kText,   ///< texts as they are
    kOther,  ///< SQLite converts, or another kind of value is meant
  };

  std::string name;            ///< as the schema writes it
  std::string create_sql;      ///< the statement that made it
  std::vector<Storage> cells;  ///< of the columns but the key, in the table's order
  std::size_t key_column = 0;  ///< 0-based, among all columns
  bool is_plain = false;       ///< nothing but storing happens when a record is inserted
  bool is_all_real = false;
  bool is_empty = true;
  std::int64_t last_key = 0;  ///< unless it is empty
};

/// Reads the table `name` of the run into `target`; false unless there is an ordinary table of that
/// name with a key (INTEGER PRIMARY KEY).
bool ReadAppendTarget(sqlite3* database, std::string_view name, AppendTarget& target);

/// "INSERT INTO name VALUES (?,…)" with a parameter a column.
std::string InsertStatement(const AppendTarget& target);

}  // namespace tslm5

#endif  // TSLM5_ENGINE_APPEND_TARGET_H_
