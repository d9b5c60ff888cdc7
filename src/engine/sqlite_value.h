#ifndef TSLM5_ENGINE_SQLITE_VALUE_H_
#define TSLM5_ENGINE_SQLITE_VALUE_H_

#include <sqlite3.h>

#include <cstdint>
#include <limits>
#include <string_view>

#include "tslm5/platform/variant.h"

namespace tslm5 {

/// A whole number as a variant: an integer, or a double beyond 32 bits.
inline Variant IntegerValue(std::int64_t value) {
  if (value >= std::numeric_limits<std::int32_t>::min() &&
      value <= std::numeric_limits<std::int32_t>::max()) {
    return static_cast<std::int32_t>(value);
  }
  return static_cast<double>(value);
}

/// The text of a value of the current record; the view lives until the next step.
inline std::string_view ValueText(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  const int size = sqlite3_value_bytes(value);
  return text == nullptr ? std::string_view()
                         : std::string_view(text, static_cast<std::size_t>(size));
}

/// The text of a column of the current record; the view lives until the next step.
inline std::string_view ColumnText(sqlite3_stmt* statement, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  const int size = sqlite3_column_bytes(statement, column);
  return text == nullptr ? std::string_view()
                         : std::string_view(text, static_cast<std::size_t>(size));
}

/// A column of the current record in its own kind; bytes are taken as text.
inline Variant ColumnValue(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
      return Null{};
    case SQLITE_INTEGER:
      return IntegerValue(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT:
      return sqlite3_column_double(statement, column);
    default:
      return Variant(ColumnText(statement, column));
  }
}

}  // namespace tslm5

#endif  // TSLM5_ENGINE_SQLITE_VALUE_H_
