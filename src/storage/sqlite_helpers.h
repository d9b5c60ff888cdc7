#ifndef TSLM5_STORAGE_SQLITE_HELPERS_H_
#define TSLM5_STORAGE_SQLITE_HELPERS_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tslm5/engine/connection.h"

/// Single values of a run. NULL reads as 0 or "". What the engine raises passes on.
namespace tslm5::SqliteHelpers {

/// The first field of the first record of `sql`. No record raises 100 "no current record".
double QueryDouble(IConnection& connection, std::string_view sql);
/// The same as a whole number; a value outside 32 bits raises 6.
std::int32_t QueryInteger(IConnection& connection, std::string_view sql);
std::string QueryString(IConnection& connection, std::string_view sql);

/// The run parameter of that element name in whatever namespace, the first record where there are
/// several; 0 where there is none. `element` is pasted in as it is.
double GetFloatParameter(IConnection& connection, std::string_view element);
std::int32_t GetIntParameter(IConnection& connection, std::string_view element);

}  // namespace tslm5::SqliteHelpers

#endif  // TSLM5_STORAGE_SQLITE_HELPERS_H_
