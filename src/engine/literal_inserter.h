#ifndef TSLM5_ENGINE_LITERAL_INSERTER_H_
#define TSLM5_ENGINE_LITERAL_INSERTER_H_

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/insert_literals.h"
#include "engine/sqlite_statement.h"
#include "engine/statement_watch.h"

namespace tslm5 {

/// Runs "INSERT INTO t VALUES (literals)" without compiling it again: the literals are cut out of
/// the text and bound to a statement kept for the table. Numeric text for a column of REAL affinity
/// is converted here, correctly rounded, and bound as a double; everything else is left to SQLite.
class LiteralInserter {
 public:
  LiteralInserter(sqlite3* database, StatementWatch& watch) : database_(database), watch_(watch) {}

  /// Runs `sql` and returns its effects; or returns nothing, having done nothing, when its shape is
  /// not known beyond doubt. Raises SQLite's error when the row is refused.
  const StatementEffects* TryRun(std::string_view sql);

  /// The same for `head` ("INSERT INTO t VALUES (") and values that are ready: `numbers`, NaN for
  /// NULL, and `row`. Nothing as well for an infinite number or a column that is not of REAL
  /// affinity.
  const StatementEffects* TryRunNumbers(std::string_view head, std::span<const double> numbers,
                                        std::int32_t row);

  /// Forgets the kept statements: the schema may have changed.
  void Clear() noexcept { kept_.clear(); }

 private:
  struct Kept {
    std::string head;  // "INSERT INTO t VALUES ("
    std::vector<char> is_real;
    SqliteStatement statement;
    StatementEffects effects;
    std::vector<std::string> unquoted;  // one buffer a column, for texts with apostrophes
  };

  Kept* Find(std::string_view sql);
  std::unique_ptr<Kept> Make(std::string_view sql);
  bool Bind(Kept& kept, std::string_view list);
  static void BindOne(Kept& kept, int column, const InsertLiteral& literal);

  sqlite3* database_;
  StatementWatch& watch_;
  std::vector<std::unique_ptr<Kept>> kept_;  // the last one used stands first
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_LITERAL_INSERTER_H_
