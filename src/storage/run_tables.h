#ifndef TSLM5_STORAGE_RUN_TABLES_H_
#define TSLM5_STORAGE_RUN_TABLES_H_

#include <cstdint>

#include "tslm5/contracts/run_schema.h"
#include "tslm5/engine/connection.h"
#include "tslm5/platform/ref.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// The schema version that a new run gets.
inline constexpr std::int32_t kRunSchemaVersion = 1;

/// Creates every table and view of a run that is missing, in one transaction, and notes the schema
/// version. The data tables are made by the table store when they are filled.
void CreateRunTables(IConnection& connection);

/// The connection of a run object; raises 41001 when `run` is none or lends none.
Ref<IConnection> ConnectionOf(IUnknown* run);

/// The object behind the class `RunSchema`.
Ref<IRunSchema> MakeRunSchema();

}  // namespace tslm5

#endif  // TSLM5_STORAGE_RUN_TABLES_H_
