// `IDataSet`: extremes of a column and facts about the response, answered by a scan of the table
// where the statistics cache has no answer.
#include <algorithm>
#include <cmath>
#include <map>

#include "datasetlite/data_set_facet.h"
#include "datasetlite/record_access.h"
#include "datasetlite/series_embedding.h"
#include "platform/only_errors.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

// Written literals, neither the limits of a double nor mirror images of each other (both meant).
constexpr double kMaximumStart = -1.79769313486231E+308;
constexpr double kMinimumStart = 1.69769313486232E+308;

/// Calls `use(value)` for every number in rows [from, to] of a column.
template <class Use>
void ForEachNumber(TableLite& table, std::int32_t column, std::int32_t from, std::int32_t to,
                   Use use) {
  for (std::int32_t row = from; row <= to; ++row) {
    double value = 0.0;
    if (table.GetValue(column, row, value) && !std::isnan(value)) use(value);
  }
}

/// How many records carry each response value, by value.
std::map<double, std::int32_t> CountResponses(DataSetLiteState& state) {
  std::map<double, std::int32_t> counts;
  if (!state.table) return counts;
  ForEachNumber(*state.table, state.table->Columns() - 1, 0, state.table->Rows() - 1,
                [&counts](double value) { ++counts[value]; });
  return counts;
}

/// The cached extreme of a whole column, or `start` improved by `better` over rows [from, to].
template <class Better>
double Extreme(DataSetLiteState& state, const Dictionary& (StatisticsCache::*cached)() const,
               std::int32_t column, std::int32_t from, std::int32_t to, double start,
               Better better) {
  if (from == 0 && to == 0 && state.run) {
    state.statistics.EnsureRead(*ConnectionOf(state), state.data_set_type);
    const Variant figure = StatisticsCache::Figure((state.statistics.*cached)(), column);
    if (!figure.IsEmpty()) return figure.ToDouble();
  }
  if (!state.table) return 0.0;
  const std::int32_t rows = state.table->Rows();
  if (to < 1 || to >= rows) to = rows - 1;
  double kept = start;
  ForEachNumber(*state.table, column, std::max(from, 0), to, [&kept, &better](double value) {
    if (better(value, kept)) kept = value;
  });
  return kept;
}

}  // namespace

double DataSetFacet::GetMax(std::int32_t pColumn, std::int32_t pFromRow, std::int32_t pToRow) {
  return OnlyErrors([&] {
    return Extreme(state_, &StatisticsCache::Maxima, pColumn, pFromRow, pToRow, kMaximumStart,
                   [](double value, double kept) { return value > kept; });
  });
}

double DataSetFacet::GetMin(std::int32_t pColumn, std::int32_t pFromRow, std::int32_t pToRow) {
  return OnlyErrors([&] {
    return Extreme(state_, &StatisticsCache::Minima, pColumn, pFromRow, pToRow, kMinimumStart,
                   [](double value, double kept) { return value < kept; });
  });
}

double DataSetFacet::GetTargetMajorityClass() try {
  double kept = kMaximumStart;
  if (!state_.table) return kept;
  ForEachNumber(*state_.table, state_.table->Columns() - 1, 0, state_.table->Rows() - 1,
                [&kept](double value) { kept = std::max(kept, value); });
  return kept;
} catch (...) {
  RaiseAsError();
}

std::int32_t DataSetFacet::GetTargetMinorityClassCount() try {
  const std::map<double, std::int32_t> counts = CountResponses(state_);
  const auto rarest = std::min_element(
      counts.begin(), counts.end(),
      [](const auto& left, const auto& right) { return left.second < right.second; });
  return rarest == counts.end() ? 0 : rarest->second;
} catch (...) {
  RaiseAsError();
}

std::int32_t DataSetFacet::GetTargetClassCount(std::int32_t pClassIndex) try {
  if (state_.run && (pClassIndex == 0 || pClassIndex == 1)) {
    state_.statistics.EnsureRead(*ConnectionOf(state_), state_.data_set_type);
    const Variant count =
        StatisticsCache::Figure(state_.statistics.Class(pClassIndex).record_counts, 0);
    if (!count.IsEmpty()) return count.ToInteger();
  }
  const std::map<double, std::int32_t> counts = CountResponses(state_);
  if (pClassIndex < 0 || static_cast<std::size_t>(pClassIndex) >= counts.size()) return 0;
  return std::next(counts.begin(), pClassIndex)->second;
} catch (...) {
  RaiseAsError();
}

void DataSetFacet::GetAverageModel(VariantArray& pResult) try {
  const std::int32_t rows = state_.table ? state_.table->Rows() : 0;
  const std::int32_t inputs = state_.table ? state_.table->Columns() - 1 : 0;
  pResult.Redim(0, rows - 1);
  if (rows > 0 && inputs == 0) RaiseDivisionByZero();
  for (std::int32_t row = 0; row < rows; ++row) {
    double sum = 0.0;
    for (std::int32_t column = 0; column < inputs; ++column) {
      double value = 0.0;
      if (state_.table->GetValue(column, row, value) && !std::isnan(value)) sum += value;
    }
    pResult[row] = sum / inputs;
  }
} catch (...) {
  RaiseAsError();
}

bool DataSetFacet::FormatDataAs(std::int32_t) try {
  state_.is_dirty = true;
  return EmbedSeries(state_);
} catch (...) {
  RaiseAsError();
}

}  // namespace tslm5
