#ifndef TSLM5_ENGINE_BATCH_SCHEMA_H_
#define TSLM5_ENGINE_BATCH_SCHEMA_H_

#include <sqlite3.h>

#include <string>
#include <string_view>

#include "engine/table_image.h"

namespace tslm5 {

/// The attached schema through which a `TableImage` shows itself to SQLite. All of it raises
/// SQLite's errors.
namespace batch_schema {

/// Whether this SQLite takes databases from memory at all.
bool IsSupported();

/// Attaches the schema, empty.
void Attach(sqlite3* database);
void Detach(sqlite3* database);

/// Makes the image, which is finished, the content of the schema. SQLite owns its bytes from then
/// on, also when it fails; they stay until `Release`.
const unsigned char* Lend(sqlite3* database, TableImage& image);
/// Empties the schema. Where that fails, the image stays until the next `Lend`.
void Release(sqlite3* database) noexcept;

/// The statement that appends the image's records to the table of the same name of the run.
std::string CopyStatement(std::string_view table);
/// Whether SQLite runs `sql`, an INSERT from the schema, by copying whole records: its program
/// moves them and looks at no column.
bool CopiesWholeRecords(sqlite3* database, const std::string& sql);

}  // namespace batch_schema
}  // namespace tslm5

#endif  // TSLM5_ENGINE_BATCH_SCHEMA_H_
