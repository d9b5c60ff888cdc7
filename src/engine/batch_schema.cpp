#include "engine/batch_schema.h"

#include "engine/sqlite_error.h"
#include "engine/sqlite_statement.h"
#include "engine/sqlite_value.h"

// A SQLite that was built without it can still be loaded: the address is then null.
#pragma weak sqlite3_deserialize

namespace tslm5::batch_schema {
namespace {

constexpr const char* kName = "tslm5_batch";

}  // namespace

bool IsSupported() {
  return &sqlite3_deserialize != nullptr;
}

void Attach(sqlite3* database) {
  SqliteStatement(database, std::string("ATTACH ':memory:' AS ") + kName).Run();
}

void Detach(sqlite3* database) {
  SqliteStatement(database, std::string("DETACH ") + kName).Run();
}

const unsigned char* Lend(sqlite3* database, TableImage& image) {
  const auto size = static_cast<sqlite3_int64>(image.Size());
  unsigned char* const bytes = image.TakeBytes().release();
  const int code =
      sqlite3_deserialize(database, kName, bytes, size, size,
                          SQLITE_DESERIALIZE_READONLY | SQLITE_DESERIALIZE_FREEONCLOSE);
  // It has no reason of its own but memory, and does not say so.
  if (code != SQLITE_OK) RaiseSqliteError(nullptr, SQLITE_NOMEM, {});
  return bytes;
}

void Release(sqlite3* database) noexcept {
  sqlite3_deserialize(database, kName, nullptr, 0, 0, 0);
}

std::string CopyStatement(std::string_view table) {
  const std::string name = QuotedName(table);
  return "INSERT INTO main." + name + " SELECT * FROM " + kName + "." + name;
}

bool CopiesWholeRecords(sqlite3* database, const std::string& sql) {
  SqliteStatement program(database, "EXPLAIN " + sql);
  bool moves_records = false;
  while (program.Step()) {
    const std::string_view operation = ColumnText(program.Handle(), 1);
    if (operation == "Column") return false;
    moves_records = moves_records || operation == "RowData" || operation == "RowCell";
  }
  return moves_records;
}

}  // namespace tslm5::batch_schema
