#include "host/preparation/series_labels.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>
#include <vector>

#include "host/preparation/run_history.h"
#include "host/preparation/run_metadata.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/contracts/time_series.h"

namespace tslm5::host {
namespace {

/// What the only column of a set without labels is called.
constexpr std::string_view kGeneratedLabel = "y";

void WriteSeriesLabel(const RunSession& session, IDataSet& training) {
  Ref<IDataSet>(&training).As<ITimeSeriesDataSet>()->LoadTimeSeriesLabel();
  const std::string label = LabelsOf(training).front();
  session.Columns().WriteColumns({{label, false, 0, true}}, label != kGeneratedLabel);
  Ref<IDataSet>(&training).As<IPersistable>()->Save(Variant(session.Run()),
                                                    Variant(data_set_type::kTraining));
}

}  // namespace

std::optional<SeriesStep> CurrentEmbedding(const RunSession& session) {
  std::optional<SeriesStep> step;
  for (const HistoryEntry& entry : ReadHistory(session)) {
    const bool is_training =
        entry.set == data_set_type::kTraining || entry.set == data_set_type::kCombined;
    if (entry.command == "load" && is_training) step.reset();
    if (entry.command != "embed") continue;
    const auto parameters = nlohmann::ordered_json::parse(entry.parameters);
    step = {parameters.value("dimension", 0), parameters.value("delay", 0)};
  }
  return step;
}

void KeepSeriesLabel(const RunSession& session, const std::string& label) {
  const bool has_testing = session.Sets().HasSet(data_set_type::kTesting);
  if (has_testing && session.Columns().HasLabels(data_set_type::kTesting)) return;
  session.Columns().WriteSeriesLabel(label);
}

void WriteEmbeddingLabels(const RunSession& session, IDataSet& training, const SeriesStep& step) {
  training.SetProperty(fmt::format("{}", step.dimension), property_key::kEmbeddingDimension);
  training.SetProperty(fmt::format("{}", step.delay), property_key::kDelayTime);
  Ref<IDataSet>(&training).As<ITimeSeriesDataSet>()->RenameTrainingLabels();
  session.Columns().WriteOriginalLabels(LabelsOf(training));
}

void FitLabels(const RunSession& session, IDataSet& training) {
  const std::int32_t columns = training.Columns();
  if (static_cast<std::int32_t>(ColumnsOf(session).size()) == columns) return;
  if (columns == 1) return WriteSeriesLabel(session, training);
  const auto step = CurrentEmbedding(session);
  if (step && step->dimension + 1 == columns) return WriteEmbeddingLabels(session, training, *step);
  std::vector<RunColumn> notes;
  notes.reserve(static_cast<std::size_t>(columns));
  for (std::int32_t column = 0; column < columns; ++column) {
    notes.push_back({fmt::format("d{}", column), false, 0, false});
  }
  session.Columns().WriteColumns(notes, false);
}

void DropTestingSamples(const RunSession& session) {
  if (!session.Sets().HasSet(data_set_type::kTimeSeriesTesting)) return;
  session.Sets().DropSet(data_set_type::kTimeSeriesTesting);
  ForgetFormerSet(session, data_set_type::kTimeSeriesTesting);
}

}  // namespace tslm5::host
