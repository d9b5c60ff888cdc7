#include "preparation/training_labels.h"

#include <nlohmann/json.hpp>
#include <vector>

#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/contracts/time_series.h"

namespace tslm5 {
namespace {

/// What the only column of a set without labels is called.
constexpr std::string_view kGeneratedLabel = "y";

void FitSeriesLabel(const RunAccess& run, IDataSet& training) {
  const Ref<IDataSet> held(&training);
  held.As<ITimeSeriesDataSet>()->LoadTimeSeriesLabel();
  const std::string label = LabelsOf(training).front();
  run.Columns().WriteColumns({{label, false, 0, true}}, label != kGeneratedLabel);
  held.As<IPersistable>()->Save(run.Run(), Variant(data_set_type::kTraining));
}

}  // namespace

bool ReadCurrentEmbedding(const RunAccess& run, Embedding& embedding) {
  bool is_embedded = false;
  std::vector<HistoryStep> steps;
  run.History().ReadSteps(steps);
  for (const HistoryStep& step : steps) {
    const bool is_training =
        step.set == data_set_type::kTraining || step.set == data_set_type::kCombined;
    if (step.command == "load" && is_training) is_embedded = false;
    if (step.command != "embed") continue;
    const auto parameters = nlohmann::ordered_json::parse(step.parameters, nullptr, false);
    if (!parameters.is_object()) continue;
    embedding = {parameters.value("dimension", 0), parameters.value("delay", 0)};
    is_embedded = true;
  }
  return is_embedded;
}

void WriteSeriesLabel(const RunAccess& run, const std::string& label) {
  const bool has_testing = run.Sets().HasSet(data_set_type::kTesting);
  if (has_testing && run.Columns().HasLabels(data_set_type::kTesting)) return;
  run.Columns().WriteSeriesLabel(label);
}

void WriteEmbeddingLabels(const RunAccess& run, IDataSet& training, const Embedding& embedding) {
  training.SetProperty(std::to_string(embedding.dimension), property_key::kEmbeddingDimension);
  training.SetProperty(std::to_string(embedding.delay), property_key::kDelayTime);
  Ref<IDataSet>(&training).As<ITimeSeriesDataSet>()->RenameTrainingLabels();
  run.Columns().WriteOriginalLabels(LabelsOf(training));
}

void FitLabels(const RunAccess& run, IDataSet& training) {
  const std::int32_t columns = training.Columns();
  if (static_cast<std::int32_t>(run.ReadColumns().size()) == columns) return;
  if (columns == 1) return FitSeriesLabel(run, training);
  Embedding embedding;
  if (ReadCurrentEmbedding(run, embedding) && embedding.dimension + 1 == columns) {
    return WriteEmbeddingLabels(run, training, embedding);
  }
  std::vector<RunColumn> written;
  written.reserve(static_cast<std::size_t>(columns));
  for (std::int32_t column = 0; column < columns; ++column) {
    written.push_back({std::string("d").append(std::to_string(column)), false, 0, false});
  }
  run.Columns().WriteColumns(written, false);
}

}  // namespace tslm5
