#ifndef TSLM5_RUN_SQL_TEXT_H_
#define TSLM5_RUN_SQL_TEXT_H_

#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "tslm5/platform/number_text.h"

namespace tslm5 {

/// The parts of a statement, one after the other: texts as they are, whole numbers in digits.
template <class... Parts>
std::string Sql(const Parts&... parts) {
  std::string sql;
  const auto append = [&sql](const auto& part) {
    if constexpr (std::is_integral_v<std::decay_t<decltype(part)>>) {
      sql += std::to_string(part);
    } else {
      sql += part;
    }
  };
  (append(parts), ...);
  return sql;
}

/// Appends `text` as an SQL literal.
inline void AppendSqlText(std::string_view text, std::string& sql) {
  sql += '\'';
  for (const char c : text) {
    if (c == '\'') sql += '\'';
    sql += c;
  }
  sql += '\'';
}

/// `text` as an SQL literal.
inline std::string SqlText(std::string_view text) {
  std::string sql;
  sql.reserve(text.size() + 2);
  AppendSqlText(text, sql);
  return sql;
}

/// A number as an SQL literal; NULL for none and for what is no finite number.
inline std::string SqlOrNull(std::optional<double> value) {
  return value && std::isfinite(*value) ? NumberText(*value) : "NULL";
}

}  // namespace tslm5

#endif  // TSLM5_RUN_SQL_TEXT_H_
