#include "engine/column_aggregates.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "engine/sqlite_error.h"

namespace tslm5 {
namespace {

using Values = std::vector<double>;

/// SQLite's per-group context: one pointer to the group's values, null before the first one.
Values** GroupValues(sqlite3_context* context, int size) {
  return static_cast<Values**>(sqlite3_aggregate_context(context, size));
}

void AddValue(sqlite3_context* context, int, sqlite3_value** arguments) noexcept {
  const int type = sqlite3_value_type(arguments[0]);
  if (type != SQLITE_INTEGER && type != SQLITE_FLOAT) return;
  try {
    Values** values = GroupValues(context, static_cast<int>(sizeof(Values*)));
    if (values == nullptr) throw std::bad_alloc();
    if (*values == nullptr) *values = new Values;
    (*values)->push_back(sqlite3_value_double(arguments[0]));
  } catch (...) {
    sqlite3_result_error_nomem(context);
  }
}

/// Ends a group: gives the values away to `compute` and its result, if any, to SQLite.
template <class Compute>
void Finish(sqlite3_context* context, Compute compute) noexcept {
  Values** values = GroupValues(context, 0);
  if (values == nullptr || *values == nullptr) return sqlite3_result_null(context);
  const std::optional<double> result = compute(**values);
  delete *values;
  *values = nullptr;
  if (result) {
    sqlite3_result_double(context, *result);
  } else {
    sqlite3_result_null(context);
  }
}

void FinishMedian(sqlite3_context* context) noexcept {
  Finish(context, Median);
}
void FinishDeviation(sqlite3_context* context) noexcept {
  Finish(context, SampleDeviation);
}

void Register(sqlite3* database, const char* name, void (*finish)(sqlite3_context*)) {
  const int code = sqlite3_create_function_v2(database, name, 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                              nullptr, nullptr, AddValue, finish, nullptr);
  if (code != SQLITE_OK) RaiseSqliteError(database, code, name);
}

}  // namespace

std::optional<double> Median(std::vector<double>& values) {
  if (values.empty()) return std::nullopt;
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  if (values.size() % 2 == 1) return *middle;
  const double below = *std::max_element(values.begin(), middle);
  const double sum = below + *middle;
  return std::isfinite(sum) ? sum / 2 : below / 2 + *middle / 2;
}

std::optional<double> SampleDeviation(const std::vector<double>& values) {
  if (values.size() < 2) return std::nullopt;
  const auto count = static_cast<long double>(values.size());
  const double origin = values.front();
  long double sum = 0;
  for (const double value : values) sum += static_cast<long double>(value) - origin;
  const long double mean = sum / count;

  long double squares = 0;
  long double residue = 0;
  for (const double value : values) {
    const long double difference = static_cast<long double>(value) - origin - mean;
    squares += difference * difference;
    residue += difference;
  }
  const long double variance = (squares - residue * residue / count) / (count - 1);
  return static_cast<double>(std::sqrt(std::max(variance, 0.0L)));
}

void RegisterColumnAggregates(sqlite3* database) {
  Register(database, "median", FinishMedian);
  Register(database, "stdev", FinishDeviation);
}

}  // namespace tslm5
