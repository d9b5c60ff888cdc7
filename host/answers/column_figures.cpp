#include "host/answers/column_figures.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "host/program/interruption.h"

namespace tslm5::host {
namespace {

constexpr double kMissingFigure = -9999.0;  // what the run stores for a figure there is none of

std::optional<double> ReadFigure(IDataReader& reader, std::int32_t field) {
  const double value = reader.GetDouble(field);
  if (reader.IsNull(field) || value == kMissingFigure) return std::nullopt;
  return value;
}

}  // namespace

std::vector<ColumnFigures> ReadColumnFigures(const RunSession& session, std::int32_t type) {
  std::vector<ColumnFigures> columns;
  if (!session.Connection().TableExists("DataSetStatistics")) return columns;
  const Ref<IDataReader> reader = session.Connection().ExecuteReader(
      fmt::format("SELECT ColumnIndex, Centroid, Medoid, Minimum, Maximum, StandardDeviation FROM "
                  "DataSetStatistics WHERE DataSetId = {} ORDER BY ColumnIndex",
                  type));
  while (reader->Read()) {
    columns.push_back({reader->GetInteger(0), ReadFigure(*reader, 1), ReadFigure(*reader, 2),
                       ReadFigure(*reader, 3), ReadFigure(*reader, 4), ReadFigure(*reader, 5)});
  }
  return columns;
}

std::vector<ClassFigures> ReadClassFigures(const RunSession& session, std::int32_t type) {
  std::vector<ClassFigures> classes;
  if (!session.Connection().TableExists("DataSetClassStatistics")) return classes;
  const Ref<IDataReader> reader = session.Connection().ExecuteReader(
      fmt::format("SELECT Class, ColumnId, Centroid, Medoid, Minimum, Maximum, RecordCount FROM "
                  "DataSetClassStatistics WHERE DataSetId = {} ORDER BY Class, ColumnId",
                  type));
  while (reader->Read()) {
    const double value = reader->GetDouble(0);
    if (classes.empty() || classes.back().value != value) {
      classes.push_back({value, reader->GetInteger(6), {}});
    }
    classes.back().columns.push_back({reader->GetInteger(1), ReadFigure(*reader, 2),
                                      ReadFigure(*reader, 3), ReadFigure(*reader, 4),
                                      ReadFigure(*reader, 5), std::nullopt});
  }
  return classes;
}

std::string Histogram(IDataSet& data_set, std::int32_t column, int bins) {
  constexpr std::string_view kBlocks[] = {" ", "▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
  constexpr std::int64_t kHeights = 8;
  const std::int32_t rows = data_set.Rows();
  double low = std::numeric_limits<double>::infinity();
  double high = -low;
  for (std::int32_t row = 0; row < rows; ++row) {
    const double value = data_set.GetItem(column, row);
    if (!std::isfinite(value)) continue;
    low = std::min(low, value);
    high = std::max(high, value);
  }
  StopIfInterrupted();
  if (low > high) return "";

  std::vector<std::int64_t> counts(static_cast<std::size_t>(bins));
  const double width = high / bins - low / bins;  // the difference itself may be too large
  for (std::int32_t row = 0; row < rows; ++row) {
    const double value = data_set.GetItem(column, row);
    if (!std::isfinite(value)) continue;
    const double place = width > 0.0 ? value / width - low / width : 0.0;
    ++counts[static_cast<std::size_t>(std::clamp(static_cast<int>(place), 0, bins - 1))];
  }
  const std::int64_t highest = *std::max_element(counts.begin(), counts.end());
  std::string text;
  for (const std::int64_t count : counts) {
    const std::int64_t height = (count * kHeights + highest - 1) / highest;
    text += kBlocks[static_cast<std::size_t>(height)];
  }
  return text;
}

}  // namespace tslm5::host
