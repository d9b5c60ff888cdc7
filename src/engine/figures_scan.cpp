#include "engine/figures_scan.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

#include "engine/column_aggregates.h"
#include "engine/sqlite_statement.h"
#include "engine/sqlite_value.h"

namespace tslm5 {
namespace {

using Values = std::vector<double>;

/// An upper limit of the number of records, without counting them: the span of the keys, but no
/// more than the file has room for.
std::size_t MostRecords(sqlite3* database, const std::string& table) {
  constexpr std::int64_t kSmallestRecordBytes = 4;
  SqliteStatement limits(database, "SELECT (SELECT max(rowid) FROM " + table +
                                       ") - (SELECT min(rowid) FROM " + table +
                                       ") + 1, page_count * page_size FROM pragma_page_count,"
                                       " pragma_page_size");
  limits.Step();
  const std::int64_t span = sqlite3_column_int64(limits.Handle(), 0);
  const std::int64_t room = sqlite3_column_int64(limits.Handle(), 1) / kSmallestRecordBytes;
  return static_cast<std::size_t>(
      std::clamp<std::int64_t>(span, 0, std::max<std::int64_t>(room, 0)));
}

bool IsPlainTable(sqlite3* database, const std::string& table) {
  SqliteStatement found(
      database,
      "SELECT 1 FROM pragma_table_list WHERE name = ?1 COLLATE NOCASE AND schema ="
      " 'main' AND type = 'table' AND wr = 0");
  found.BindText(1, table);
  return found.Step();
}

/// Reads the columns' numbers; false when there is anything but reals and NULL. `records` counts.
bool ReadColumns(SqliteStatement& scan, std::vector<Values>& columns, std::int64_t& records) {
  const int count = static_cast<int>(columns.size());
  while (scan.Step()) {
    ++records;
    for (int i = 0; i < count; ++i) {
      // One look at the column, not one for its type and one for its value.
      sqlite3_value* const value = sqlite3_column_value(scan.Handle(), i);
      const int type = sqlite3_value_type(value);
      if (type == SQLITE_FLOAT) {
        columns[static_cast<std::size_t>(i)].push_back(sqlite3_value_double(value));
      } else if (type != SQLITE_NULL) {
        return false;
      }
    }
  }
  return true;
}

Variant NumberOrNull(std::optional<double> number) {
  if (!number || std::isnan(*number)) return Null{};
  return *number;
}

std::optional<double> Mean(const Values& values) {
  if (values.empty()) return std::nullopt;
  long double sum = 0;
  for (const double value : values) sum += value;
  return static_cast<double>(sum / static_cast<long double>(values.size()));
}

Variant Figure(FiguresQuery::Kind kind, Values& values) {
  switch (kind) {
    case FiguresQuery::Kind::kMinimum:
      return values.empty() ? Variant(Null{}) : *std::min_element(values.begin(), values.end());
    case FiguresQuery::Kind::kMaximum:
      return values.empty() ? Variant(Null{}) : *std::max_element(values.begin(), values.end());
    case FiguresQuery::Kind::kMean:
      return NumberOrNull(Mean(values));
    case FiguresQuery::Kind::kMedian:
      return NumberOrNull(Median(values));
    default:
      return NumberOrNull(SampleDeviation(values));
  }
}

}  // namespace

bool ScanFigures(sqlite3* database, const FiguresQuery& query, std::vector<Variant>& figures) {
  if (!IsPlainTable(database, query.table)) return false;
  std::string sql = "SELECT ";
  for (const std::string& column : query.columns) {
    if (&column != &query.columns.front()) sql += ", ";
    sql += column;
  }
  sql += " FROM " + query.table;
  if (!query.condition.empty()) sql += " WHERE " + query.condition;

  SqliteStatement scan(database, sql);
  std::vector<Values> columns(query.columns.size());
  const std::size_t most_records = MostRecords(database, query.table);
  for (Values& values : columns) values.reserve(most_records);
  std::int64_t records = 0;
  if (!ReadColumns(scan, columns, records)) return false;

  for (const FiguresQuery::Item& item : query.items) {
    figures.push_back(item.kind == FiguresQuery::Kind::kCount
                          ? IntegerValue(records)
                          : Figure(item.kind, columns[item.column]));
  }
  return true;
}

}  // namespace tslm5
