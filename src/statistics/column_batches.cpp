#include "statistics/column_batches.h"

#include <cmath>

#include "statistics/data_record_statistics.h"
#include "storage/run_statements.h"

namespace tslm5::DataRecordStatistics {
namespace {

constexpr std::int32_t kFiguresOfColumn = 5;

/// NULL, which the typed getter would give as 0, and what is not finite are a missing figure.
double ReadFigure(IDataReader& reader, std::int32_t field) {
  if (reader.IsNull(field)) return kMissingFigure;
  const double value = reader.GetDouble(field);
  return std::isfinite(value) ? value : kMissingFigure;
}

}  // namespace

bool ColumnBatches::Next(IConnection& connection) {
  start_ += step_;
  columns_.clear();
  if (start_ >= variables_) return false;
  const Ref<IDataReader> reader = connection.ExecuteReader(Query());
  reader->Read();
  for (std::int32_t column = start_; column < variables_ && column < start_ + step_; ++column) {
    const std::int32_t field = (column - start_) * kFiguresOfColumn;
    columns_.push_back({column, ReadFigure(*reader, field), ReadFigure(*reader, field + 1),
                        ReadFigure(*reader, field + 2), ReadFigure(*reader, field + 3),
                        ReadFigure(*reader, field + 4)});
  }
  return true;
}

std::string ColumnBatches::Query() const {
  std::vector<std::string> fragments(static_cast<std::size_t>(step_));
  for (std::int32_t i = 0; i < step_; ++i) {
    if (start_ + i >= variables_) continue;  // compacted away below
    fragments[static_cast<std::size_t>(i)] =
        FillStatement(fragment_, {{"<XX>", std::to_string(start_ + i)}});
  }
  std::string query = "SELECT ";
  bool first = true;
  for (const std::string& fragment : CompactStrings(std::move(fragments))) {
    if (!first) query += ",";
    query += fragment;
    first = false;
  }
  return query += " FROM " + std::string(table_name_) + condition_;
}

}  // namespace tslm5::DataRecordStatistics
