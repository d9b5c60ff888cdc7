#include "host/answers/column_figures.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "host/program/interruption.h"

namespace tslm5::host {

std::vector<RunFigures> ReadColumnFigures(const RunSession& session, std::int32_t type) {
  std::vector<RunFigures> columns;
  session.Figures().ReadFigures(type, columns);
  return columns;
}

std::vector<RunClassFigures> ReadClassFigures(const RunSession& session, std::int32_t type) {
  std::vector<RunClassFigures> classes;
  session.Figures().ReadClassFigures(type, classes);
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
