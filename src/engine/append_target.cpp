#include "engine/append_target.h"

#include <algorithm>

#include "engine/column_affinity.h"
#include "engine/sqlite_statement.h"
#include "engine/sqlite_value.h"
#include "engine/table_image.h"

namespace tslm5 {
namespace {

// A field a line: name of the table, its statement, its columns, and what stands beside them.
constexpr std::string_view kSelectColumns =
    "SELECT m.name, m.sql, t.cid, t.type, t.\"notnull\" OR t.hidden <> 0,"
    " t.pk = 1 AND upper(t.type) = 'INTEGER'"
    " AND (SELECT count(*) FROM pragma_table_xinfo(?1, 'main') WHERE pk > 0) = 1"
    " AND NOT EXISTS (SELECT 1 FROM pragma_index_list(?1, 'main') WHERE origin = 'pk')"
    " FROM pragma_table_list AS l, main.sqlite_master AS m,"
    " pragma_table_xinfo(?1, 'main') AS t"
    " WHERE l.schema = 'main' AND l.type = 'table' AND NOT l.wr AND l.name = ?1 COLLATE NOCASE"
    " AND m.type = 'table' AND m.name = l.name AND l.name NOT LIKE 'sqlite~_%' ESCAPE '~'";

constexpr std::string_view kSelectSideEffects =
    "SELECT EXISTS (SELECT 1 FROM pragma_index_list(?1, 'main'))"
    " OR EXISTS (SELECT 1 FROM main.sqlite_master WHERE type = 'trigger'"
    " AND tbl_name = ?1 COLLATE NOCASE)"
    " OR EXISTS (SELECT 1 FROM sqlite_temp_master WHERE type = 'trigger'"
    " AND tbl_name = ?1 COLLATE NOCASE)";

/// Whether the statement that makes a table may ask for more than columns: constraints that are
/// checked for every record, or a rule for clashing keys. A word of that kind in a name counts too.
bool MayConstrain(std::string_view create_sql) {
  std::string sql(create_sql);
  for (char& c : sql) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  constexpr std::string_view kWords[] = {"CHECK",         "CONFLICT",  "UNIQUE", "REFERENCES",
                                         "AUTOINCREMENT", "GENERATED", "STRICT", "COLLATE"};
  return std::any_of(std::begin(kWords), std::end(kWords),
                     [&sql](std::string_view word) { return sql.find(word) != std::string::npos; });
}

AppendTarget::Storage StorageOf(std::string_view declared_type) {
  switch (AffinityOf(declared_type)) {
    case Affinity::kReal:
      return AppendTarget::Storage::kReal;
    case Affinity::kText:
      return AppendTarget::Storage::kText;
    default:
      return AppendTarget::Storage::kOther;
  }
}

bool HasSideEffects(sqlite3* database, const std::string& name) {
  SqliteStatement statement(database, kSelectSideEffects);
  statement.BindText(1, name);
  return statement.Step() && sqlite3_column_int(statement.Handle(), 0) != 0;
}

}  // namespace

bool ReadAppendTarget(sqlite3* database, std::string_view name, AppendTarget& target) {
  target = {};
  bool has_key = false;
  bool is_plain = true;
  {
    SqliteStatement columns(database, kSelectColumns);
    columns.BindText(1, name);
    while (columns.Step()) {
      sqlite3_stmt* const record = columns.Handle();
      if (target.name.empty()) {
        target.name = ColumnText(record, 0);
        target.create_sql = ColumnText(record, 1);
      }
      is_plain = is_plain && sqlite3_column_int(record, 4) == 0;
      if (sqlite3_column_int(record, 5) != 0) {
        has_key = true;
        target.key_column = static_cast<std::size_t>(sqlite3_column_int(record, 2));
      } else {
        target.cells.push_back(StorageOf(ColumnText(record, 3)));
      }
    }
  }
  if (!has_key) return false;

  SqliteStatement keys(database, "SELECT max(rowid) FROM main." + QuotedName(target.name));
  keys.Step();
  target.is_empty = sqlite3_column_type(keys.Handle(), 0) == SQLITE_NULL;
  target.last_key = sqlite3_column_int64(keys.Handle(), 0);
  target.is_plain = is_plain && !MayConstrain(target.create_sql) &&
                    TableImage::Fits(target.name, target.create_sql) &&
                    !HasSideEffects(database, target.name);
  target.is_all_real = std::all_of(
      target.cells.begin(), target.cells.end(),
      [](AppendTarget::Storage storage) { return storage == AppendTarget::Storage::kReal; });
  return true;
}

std::string InsertStatement(const AppendTarget& target) {
  std::string sql = "INSERT INTO main." + QuotedName(target.name) + " VALUES (?";
  for (std::size_t i = 0; i < target.cells.size(); ++i) sql += ",?";
  return sql + ")";
}

}  // namespace tslm5
