#ifndef TSLM5_STORAGE_TABLE_LIMITS_H_
#define TSLM5_STORAGE_TABLE_LIMITS_H_

#include <cstdint>
#include <string>

namespace tslm5 {

/// Refuses a data table that cannot be made, before anything is changed for it: 41001 for a type
/// code without a table, 41011 for more data columns than the database takes. `source` is the
/// operation that asks.
void RequireTable(std::int32_t type_code, std::int32_t columns, const std::string& source);

}  // namespace tslm5

#endif  // TSLM5_STORAGE_TABLE_LIMITS_H_
