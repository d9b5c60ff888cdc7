#include "storage/table_limits.h"

#include "storage/table_names.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

constexpr std::int32_t kMostColumns = 1999;  // SQLite takes 2,000, and `row` is one of them

}  // namespace

void RequireTable(std::int32_t type_code, std::int32_t columns, const std::string& source) {
  const std::string name(TableName(type_code));
  if (name.empty()) {
    throw Error(error_number::kInvalidArgument, source,
                "Sets of type " + std::to_string(type_code) + " have no table.");
  }
  if (columns > kMostColumns) {
    throw Error(error_number::kInvalidData, source,
                "too many columns on " + name + ": " + std::to_string(columns) +
                    " data columns, but the database takes " + std::to_string(kMostColumns) +
                    " at most.");
  }
}

}  // namespace tslm5
