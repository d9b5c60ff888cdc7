#ifndef TSLM5_STORAGE_TABLE_NAMES_H_
#define TSLM5_STORAGE_TABLE_NAMES_H_

#include <cstdint>
#include <string_view>

namespace tslm5 {

/// The table that the table store keeps a dataset type in; "Unknown" for 1000, "" for a code
/// without a table.
std::string_view TableName(std::int32_t data_set_type);

/// The table name as labels and time series know it. Unlike `TableName`, codes 3 and 1000 have none
/// (meant: two mappings, kept apart).
std::string_view LabelTableName(std::int32_t data_set_type);

}  // namespace tslm5

#endif  // TSLM5_STORAGE_TABLE_NAMES_H_
