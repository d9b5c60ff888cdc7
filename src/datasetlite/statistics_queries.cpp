// `IDataSet`: figures of columns and classes, answered from the statistics cache.
#include <string>

#include "datasetlite/data_set_facet.h"
#include "platform/only_errors.h"
#include "statistics/data_record_statistics.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

/// The set's cache, read if need be; empty for a set without a run.
const StatisticsCache& Cache(DataSetLiteState& state) {
  if (state.run) state.statistics.EnsureRead(*ConnectionOf(state), state.data_set_type);
  return state.statistics;
}

/// Writes a class's figure and value; an index other than 0 and 1 writes nothing.
void ReadClassFigure(const StatisticsCache& cache,
                     Dictionary StatisticsCache::ClassFigures::*figures, std::int32_t column,
                     std::int32_t class_index, double& class_value, double& value) {
  if (class_index != 0 && class_index != 1) return;
  const std::vector<double>& values = cache.ClassValues();
  const auto index = static_cast<std::size_t>(class_index);
  if (!values.empty() && index >= values.size()) RaiseSubscriptOutOfRange();
  const Variant figure = StatisticsCache::Figure(cache.Class(class_index).*figures, column);
  if (!figure.IsEmpty()) value = figure.ToDouble();
  if (!values.empty()) class_value = values[index];
}

}  // namespace

bool DataSetFacet::HasGlobalRecordStatistics() {
  return OnlyErrors([&] { return Cache(state_).HasGlobal(); });
}
bool DataSetFacet::HasClassRecordStatistics() {
  return OnlyErrors([&] { return Cache(state_).HasClasses(); });
}

double DataSetFacet::GetGlobalCentroid(std::int32_t pColumn) {
  return OnlyErrors(
      [&] { return StatisticsCache::Figure(Cache(state_).Centroids(), pColumn).ToDouble(); });
}

double DataSetFacet::GetGlobalMedoid(std::int32_t pColumn) {
  return OnlyErrors(
      [&] { return StatisticsCache::Figure(Cache(state_).Medoids(), pColumn).ToDouble(); });
}

double DataSetFacet::GetStandardDeviation(std::int32_t pColumn) {
  return OnlyErrors(
      [&] { return StatisticsCache::Figure(Cache(state_).Deviations(), pColumn).ToDouble(); });
}

void DataSetFacet::GetClassCentroid(std::int32_t pColumn, std::int32_t pClassIndex,
                                    double& pClassValue, double& pValue) {
  OnlyErrors([&] {
    ReadClassFigure(Cache(state_), &StatisticsCache::ClassFigures::centroids, pColumn, pClassIndex,
                    pClassValue, pValue);
  });
}

void DataSetFacet::GetClassMedoid(std::int32_t pColumn, std::int32_t pClassIndex,
                                  double& pClassValue, double& pValue) {
  OnlyErrors([&] {
    ReadClassFigure(Cache(state_), &StatisticsCache::ClassFigures::medoids, pColumn, pClassIndex,
                    pClassValue, pValue);
  });
}

void DataSetFacet::CalculateStatistics(IFeedback* pFeedback) try {
  if (!state_.table) return;
  const Ref<IDataSet> keep_alive(this);  // the feedback object may let go of the set
  const Ref<IConnection> connection = ConnectionOf(state_);
  if (!DataRecordStatistics::CalculateTableStatistics(*connection, state_.table->TypeCode(),
                                                      state_.table->Name(), pFeedback)) {
    return;
  }
  state_.statistics.ExpectTables();
  state_.statistics.EnsureRead(*connection, state_.data_set_type);
} catch (...) {
  RaiseAsError();
}

}  // namespace tslm5
