// `IDataSet`: figures of columns, read from the data at each call; and the operations that need a
// run, which this class carries only.
#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "inmemory/in_memory_data_set_facet.h"
#include "inmemory/in_memory_embedding.h"
#include "platform/only_errors.h"
#include "support/math_helper.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

// The texts are the contract's: neither is the limit of a double, nor the other's mirror image.
constexpr double kBelowAll = -1.79769313486231E308;
constexpr double kAboveAll = 1.69769313486232E308;

/// The last of the values [from_row, to_row] of a column, and `start` before them, that `better`
/// prefers to all before it. A `to_row` below 1 or past the data means the last row.
template <class Better>
double Scan(const InMemoryState& state, std::int32_t column, std::int32_t from_row,
            std::int32_t to_row, double start, Better better) {
  const std::int32_t last = state.Rows() - 1;
  if (to_row < 1 || to_row > last) to_row = last;
  if (from_row < 0) from_row = 0;
  double best = start;
  for (std::int32_t row = from_row; row <= to_row; ++row) {
    const double value = state.Cell(row, column);
    if (better(value, best)) best = value;  // a cell that holds no number never is
  }
  return best;
}

}  // namespace

double InMemoryDataSetFacet::GetMax(std::int32_t pColumn, std::int32_t pFromRow,
                                    std::int32_t pToRow) {
  return OnlyErrors([&] {
    return Scan(state_, pColumn, pFromRow, pToRow, kBelowAll,
                [](double value, double best) { return value > best; });
  });
}

double InMemoryDataSetFacet::GetMin(std::int32_t pColumn, std::int32_t pFromRow,
                                    std::int32_t pToRow) {
  return OnlyErrors([&] {
    return Scan(state_, pColumn, pFromRow, pToRow, kAboveAll,
                [](double value, double best) { return value < best; });
  });
}

std::int32_t InMemoryDataSetFacet::GetTargetMinorityClassCount() try {
  std::unordered_map<double, std::int32_t> counts;
  const std::int32_t rows = state_.Rows();
  const std::int32_t response = state_.Columns() - 1;
  for (std::int32_t row = 0; row < rows; ++row) {
    const double value = state_.Cell(row, response);
    if (!std::isnan(value)) ++counts[value];
  }
  std::int32_t smallest = counts.empty() ? 0 : rows;
  for (const auto& [value, count] : counts) smallest = std::min(smallest, count);
  return smallest;
} catch (...) {
  RaiseAsError();
}

void InMemoryDataSetFacet::GetAverageModel(VariantArray& pResult) try {
  const std::int32_t rows = state_.Rows();
  const std::int32_t inputs = state_.Columns() - 1;
  if (rows > 0 && inputs == 0) RaiseDivisionByZero();
  pResult.Redim(0, rows - 1);
  for (std::int32_t row = 0; row < rows; ++row) {
    double sum = 0.0;
    for (std::int32_t column = 0; column < inputs; ++column) {
      const double value = state_.Cell(row, column);
      if (!std::isnan(value)) sum += value;
    }
    pResult[row] = sum / inputs;
  }
} catch (...) {
  RaiseAsError();
}

bool InMemoryDataSetFacet::FormatDataAs(std::int32_t) {
  return OnlyErrors([&] { return EmbedSeries(state_); });
}

void InMemoryDataSetFacet::Replace(std::string_view, std::int32_t, bool) {}
double InMemoryDataSetFacet::GetGlobalCentroid(std::int32_t) {
  return 0.0;
}
double InMemoryDataSetFacet::GetGlobalMedoid(std::int32_t) {
  return 0.0;
}
void InMemoryDataSetFacet::GetClassCentroid(std::int32_t, std::int32_t, double&, double&) {}
void InMemoryDataSetFacet::GetClassMedoid(std::int32_t, std::int32_t, double&, double&) {}
bool InMemoryDataSetFacet::HasClassRecordStatistics() {
  return false;
}
bool InMemoryDataSetFacet::HasGlobalRecordStatistics() {
  return false;
}
void InMemoryDataSetFacet::CalculateStatistics(IFeedback*) {}
bool InMemoryDataSetFacet::HasLabelPrefix() {
  return true;
}
std::int32_t InMemoryDataSetFacet::GetRowNumber(std::int32_t pRowIndex) {
  return MathHelper::Successor(pRowIndex);
}
std::int32_t InMemoryDataSetFacet::GetRowOriginalIndex(std::int32_t pRowIndex) {
  return MathHelper::Successor(pRowIndex);
}
std::int32_t InMemoryDataSetFacet::GetTargetClassCount(std::int32_t) {
  return 0;
}
double InMemoryDataSetFacet::GetStandardDeviation(std::int32_t) {
  return 0.0;
}
Variant InMemoryDataSetFacet::GetRowOriginalValue(std::int32_t, std::int32_t) {
  return 0;
}
double InMemoryDataSetFacet::GetTargetMajorityClass() {
  return 0.0;
}
std::int32_t InMemoryDataSetFacet::GetColumnIndex(std::int32_t pColumn) {
  return pColumn;
}
Variant InMemoryDataSetFacet::GetRowOriginalValueByRecordId(std::int32_t, std::int32_t) {
  return 0;
}

}  // namespace tslm5
