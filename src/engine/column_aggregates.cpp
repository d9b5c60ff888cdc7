#include "engine/column_aggregates.h"

#include <algorithm>
#include <array>
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

/// The value at a place of the sorted order, and the one before it where there is one.
struct Pair {
  double lower = 0.0;
  double upper = 0.0;
};

/// Both by selection, which reorders `values`; `place` below their number.
Pair Select(std::vector<double>& values, std::size_t place) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(place);
  std::nth_element(values.begin(), middle, values.end());
  const double lower = place > 0 ? *std::max_element(values.begin(), middle) : *middle;
  return {lower, *middle};
}

constexpr std::size_t kLeastForSample = 16384;
constexpr std::size_t kSampleSize = 1024;
constexpr std::size_t kSampleMargin = 80;  // five standard deviations of the median's sample rank

/// Both by bracketing (Floyd and Rivest 1975): a sorted sample gives two values that most probably
/// lie around the wanted ones, and one pass keeps what is between. False when they do not lie
/// there, or too many do; `values` stay as they are.
bool SelectBySample(const std::vector<double>& values, std::size_t place, Pair& pair) {
  std::array<double, kSampleSize> sample;
  for (std::size_t i = 0; i < kSampleSize; ++i) {
    sample[i] = values[i * values.size() / kSampleSize];
  }
  std::sort(sample.begin(), sample.end());
  const double low = sample[kSampleSize / 2 - kSampleMargin];
  const double high = sample[kSampleSize / 2 + kSampleMargin];

  std::size_t below = 0;
  std::size_t kept = 0;
  std::vector<double> between(values.size() / 4);
  for (const double value : values) {
    below += static_cast<std::size_t>(value < low);
    if (kept == between.size()) return false;
    between[kept] = value;
    kept += static_cast<std::size_t>(value >= low && value <= high);
  }
  if (place < below + 1 || place >= below + kept) return false;
  between.resize(kept);
  pair = Select(between, place - below);
  return true;
}

}  // namespace

std::optional<double> Median(std::vector<double>& values) {
  if (values.empty()) return std::nullopt;
  const std::size_t upper = values.size() / 2;
  Pair middle;
  if (values.size() < kLeastForSample || !SelectBySample(values, upper, middle)) {
    middle = Select(values, upper);
  }
  if (values.size() % 2 == 1) return middle.upper;
  const double sum = middle.lower + middle.upper;
  return std::isfinite(sum) ? sum / 2 : middle.lower / 2 + middle.upper / 2;
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
