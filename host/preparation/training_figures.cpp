#include "host/preparation/training_figures.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <string>
#include <string_view>

#include "host/preparation/replacement_type.h"
#include "host/preparation/run_change.h"
#include "host/program/failure.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/data_set_lite.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

/// Reads an original text as the load did, whichever decimal separator its user had: there are no
/// thousands separators, so either tells the same number.
bool ParseOriginal(std::string_view text, double& number) {
  return ParseNumber(text, '.', number) || ParseNumber(text, ',', number);
}

/// The middle one of sorted numbers, or the mean of the middle two.
double Median(const std::vector<double>& numbers) {
  const std::size_t middle = numbers.size() / 2;
  if (numbers.size() % 2 == 1) return numbers[middle];
  return std::midpoint(numbers[middle - 1], numbers[middle]);
}

double Mean(const std::vector<double>& numbers) {
  return std::accumulate(numbers.begin(), numbers.end(), 0.0) / static_cast<double>(numbers.size());
}

double OwnFigure(const std::vector<double>& numbers, std::int32_t type) {
  switch (type) {
    case replacement_type::kMedian:
      return Median(numbers);
    case replacement_type::kMinimum:
      return numbers.front();
    case replacement_type::kMaximum:
      return numbers.back();
    default:
      return Mean(numbers);
  }
}

}  // namespace

std::vector<double> TrainingNumbers(const RunSession& session, std::int32_t column) {
  std::vector<double> numbers;
  const Ref<IDataReader> reader = session.Originals().OpenTrainingColumn(column);
  while (reader->Read()) {
    double number = 0.0;
    if (ParseOriginal(reader->GetString(0), number)) numbers.push_back(number);
  }
  reader->Close();
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

double TrainingFigure(const RunSession& session, const Ref<IDataSet>& data_set, std::int32_t column,
                      std::int32_t type) {
  const std::vector<double> numbers = TrainingNumbers(session, column);
  if (numbers.empty()) {
    Refuse(
        fmt::format("{} has no number in the training set to take the figure of; give a "
                    "number",
                    ColumnTitle(column, data_set->GetLabel(column))));
  }
  std::string_view name;
  for (const ReplacementWord& one : kReplacementWords) {
    if (one.type == type) name = one.figure;
  }
  if (name.empty()) return OwnFigure(numbers, type);
  const auto lite = data_set.As<IDataSetLite>();
  // Of a column that a normalised run leaves as it is, the run keeps figures that change nothing
  // instead of its own.
  const bool are_own = NormalizationType(session) == 0 ||
                       (lite->GetMissingStatisticsValue(column, "Minimum") == numbers.front() &&
                        lite->GetMissingStatisticsValue(column, "Maximum") == numbers.back());
  return are_own ? lite->GetMissingStatisticsValue(column, name) : OwnFigure(numbers, type);
}

}  // namespace tslm5::host
