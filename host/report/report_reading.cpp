#include "host/report/report_reading.h"

#include <utility>

#include "host/preparation/run_metadata.h"
#include "host/preparation/run_preparation.h"
#include "host/program/interruption.h"
#include "tslm5/contracts/nominal_metadata.h"

namespace tslm5::host {
namespace {

/// The figures that the run keeps of a set; what it does not keep is that of the pass, which knows
/// all but the middle value.
void FillFigures(const RunSession& session, ReportSet& set) {
  for (std::size_t i = 0; i < set.columns.size(); ++i) {
    set.figures.push_back({});
    set.figures.back().column = static_cast<std::int32_t>(i);
  }
  for (const RunFigures& kept : ReadColumnFigures(session, set.name->type)) {
    const auto column = static_cast<std::size_t>(kept.column);
    if (column >= set.figures.size()) continue;
    set.figures[column] = kept;
    set.has_statistics = true;
  }
  for (std::size_t i = 0; i < set.columns.size(); ++i) {
    const ValueSketch& column = set.columns[i];
    RunFigures& figures = set.figures[i];
    if (!figures.centroid) figures.centroid = column.Mean();
    if (!figures.minimum) figures.minimum = column.Minimum();
    if (!figures.maximum) figures.maximum = column.Maximum();
    if (!figures.deviation) figures.deviation = column.Deviation();
  }
}

void ReadRecords(IDataSet& data_set, ReportGroup& group, ReportSet& set, Progress& progress) {
  const auto columns = static_cast<std::int32_t>(set.labels.size());
  const std::int32_t rows = data_set.Rows();
  progress.Begin("Reading", rows);
  for (std::int32_t row = 0; row < rows; ++row) {
    StopIfInterrupted();
    const double response = data_set.GetItem(columns - 1, row);
    const std::size_t slot = columns > 1 ? group.classes.SlotOf(response) : 0;
    for (std::int32_t column = 0; column + 1 < columns; ++column) {
      set.columns[static_cast<std::size_t>(column)].Add(data_set.GetItem(column, row), slot);
    }
    set.columns.back().Add(response, slot);
    if (set.series) set.series->Add(row, response);
    progress.At(row);
  }
  progress.End();
}

std::vector<bool> NominalFlags(IDataSet& data_set, std::int32_t type) {
  std::vector<bool> flags(static_cast<std::size_t>(data_set.Columns()));
  if (type != data_set_type::kTraining && type != data_set_type::kTesting) return flags;
  Ref<IDataSet> held(&data_set);
  const auto metadata = held.As<INominalDataSetMetadata>();
  for (std::size_t i = 0; metadata && i < flags.size(); ++i) {
    flags[i] = metadata->GetIsCategorical(static_cast<std::int32_t>(i));
  }
  return flags;
}

/// Whether a set goes with the one before it: the testing set with the training set of its kind.
bool BelongsTo(const ReportGroup& group, const ReportSet& set) {
  const ReportSet& first = group.sets.front();
  const bool is_pair =
      (first.name->type == data_set_type::kTraining && set.name->type == data_set_type::kTesting) ||
      (first.name->type == data_set_type::kTimeSeriesTraining &&
       set.name->type == data_set_type::kTimeSeriesTesting);
  return group.sets.size() == 1 && is_pair && first.labels.size() == set.labels.size();
}

void ReadSet(const RunSession& session, const SetName& name, ReportData& data, Progress& progress) {
  const Ref<IDataSet> data_set = session.OpenDataSet(name.type);
  if (!data_set || data_set->Columns() < 1) return;
  ReportSet set;
  set.name = &name;
  set.rows = data_set->Rows();
  set.labels = LabelsOf(*data_set);
  set.has_labels = data_set->HasLabels();
  set.load = LastLoad(session, name.type);
  set.columns.resize(set.labels.size());
  const bool joins = !data.groups.empty() && BelongsTo(data.groups.back(), set);
  if (!joins) {
    ReportGroup group;
    group.is_nominal = NominalFlags(*data_set, name.type);
    group.is_series = set.labels.size() == 1 || data.problem == problem_category::kTimeSeries;
    data.groups.push_back(std::move(group));
  }
  ReportGroup& group = data.groups.back();
  if (group.is_series) set.series.emplace(set.rows);
  ReadRecords(*data_set, group, set, progress);
  FillFigures(session, set);
  group.sets.push_back(std::move(set));
}

void SettleClasses(std::int32_t problem, ReportGroup& group) {
  const bool is_classified =
      group.is_nominal.back() || problem == problem_category::kClassification ||
      problem == problem_category::kBinary || problem == problem_category::kFurtherClassification;
  group.has_classes = !group.is_series && group.classes.IsUseful(is_classified);
  if (group.has_classes) return;
  for (ReportSet& set : group.sets) {
    for (ValueSketch& column : set.columns) column.MergeClasses();
  }
}

}  // namespace

ReportData ReadReport(const RunSession& session, const std::string& run, Progress& progress) {
  ReportData data;
  data.run = run;
  data.schema_version = session.SchemaVersion();
  data.problem = ReadProblem(session);
  data.scale = ReadScale(session);
  for (const SetName& set : kSets) ReadSet(session, set, data, progress);
  for (ReportGroup& group : data.groups) SettleClasses(data.problem, group);
  session.Categories().ReadCategories(data.categories);
  session.MissingValues().ReadTokens(data.tokens);
  data.history = ReadHistory(session);
  return data;
}

}  // namespace tslm5::host
