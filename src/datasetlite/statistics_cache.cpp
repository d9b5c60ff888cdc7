#include "datasetlite/statistics_cache.h"

#include <string>

#include "storage/run_statements.h"

namespace tslm5 {

Variant StatisticsCache::Key(std::int32_t column) {
  return std::string("d").append(std::to_string(column));
}

void StatisticsCache::EnsureRead(IConnection& connection, std::int32_t data_set_id) {
  if (is_read_) return;
  ExpectTables();
  const std::string set_id = std::to_string(data_set_id);
  if (connection.TableExists("DataSetStatistics")) ReadGlobal(connection, set_id);
  if (connection.TableExists("DataSetClassStatistics")) ReadClasses(connection, set_id);
  is_read_ = true;
}

void StatisticsCache::ReadGlobal(IConnection& connection, std::string_view set_id) {
  const Ref<IDataReader> reader = connection.ExecuteReader(
      FillStatement(run_statement::kSelectStatistics, {{"<SET_ID>", set_id}}));
  while (reader->Read()) {
    const Variant key = Key(reader->GetInteger(0));
    centroids_.Set(key, reader->GetDouble(1));
    medoids_.Set(key, reader->GetDouble(2));
    minima_.Set(key, reader->GetDouble(3));
    maxima_.Set(key, reader->GetDouble(4));
    deviations_.Set(key, reader->GetDouble(5));
  }
  has_global_ = true;
}

void StatisticsCache::ReadClasses(IConnection& connection, std::string_view set_id) {
  constexpr double kBeforeFirstClass = -999999;
  const Ref<IDataReader> reader = connection.ExecuteReader(
      FillStatement(run_statement::kSelectClassStatistics, {{"<SET_ID>", set_id}}));
  double last_class = kBeforeFirstClass;
  while (reader->Read()) {
    const double value = reader->GetDouble(1);
    if (value != last_class) {
      class_values_.push_back(value);
      last_class = value;
    }
    if (class_values_.empty() || class_values_.size() > 2) continue;
    ClassFigures& figures = class_values_.size() == 1 ? first_ : second_;
    const Variant key = Key(reader->GetInteger(0));
    figures.centroids.Set(key, reader->GetDouble(2));
    figures.medoids.Set(key, reader->GetDouble(3));
    figures.record_counts.Set(key, reader->GetInteger(4));
  }
  has_classes_ = true;
}

}  // namespace tslm5
