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

/// Writes `OriginalDataLabels` as the set's columns are called.
void WriteOriginalLabels(const RunSession& session, const std::vector<std::string>& labels) {
  IConnection& connection = session.Connection();
  connection.Execute("DELETE FROM OriginalDataLabels WHERE SetId = 1");
  for (std::size_t i = 0; i < labels.size(); ++i) {
    connection.Execute(
        fmt::format("INSERT INTO OriginalDataLabels (Label, ColumnIndex, SetId) VALUES ({}, {}, 1)",
                    SqlText(labels[i]), i));
  }
}

void WriteSeriesLabel(const RunSession& session, IDataSet& training) {
  Ref<IDataSet>(&training).As<ITimeSeriesDataSet>()->LoadTimeSeriesLabel();
  const std::string label = LabelsOf(training).front();
  WriteColumns(session, {{label, 0, false}}, label != kGeneratedLabel);
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
  const bool has_testing = session.Connection().TableExists("TestingSet");
  if (has_testing &&
      session.ReadInteger("SELECT COUNT(*) FROM DataSetLabels WHERE SetId = 2") > 0) {
    return;
  }
  session.Connection().Execute("DELETE FROM DataSetLabels WHERE SetId = 2");
  session.Connection().Execute(
      fmt::format("INSERT INTO DataSetLabels VALUES (NULL, 2, 0, {})", SqlText(label)));
}

void WriteEmbeddingLabels(const RunSession& session, IDataSet& training, const SeriesStep& step) {
  training.SetProperty(fmt::format("{}", step.dimension), property_key::kEmbeddingDimension);
  training.SetProperty(fmt::format("{}", step.delay), property_key::kDelayTime);
  Ref<IDataSet>(&training).As<ITimeSeriesDataSet>()->RenameTrainingLabels();
  WriteOriginalLabels(session, LabelsOf(training));
}

void FitLabels(const RunSession& session, IDataSet& training) {
  const std::int32_t columns = training.Columns();
  if (session.ReadInteger("SELECT COUNT(*) FROM DataSetColumn") == columns) return;
  if (columns == 1) return WriteSeriesLabel(session, training);
  const auto step = CurrentEmbedding(session);
  if (step && step->dimension + 1 == columns) return WriteEmbeddingLabels(session, training, *step);
  std::vector<ColumnNote> notes;
  notes.reserve(static_cast<std::size_t>(columns));
  for (std::int32_t column = 0; column < columns; ++column) {
    notes.push_back({fmt::format("d{}", column), 0, false});
  }
  WriteColumns(session, notes, false);
}

void DropTestingSamples(const RunSession& session) {
  if (!session.Connection().TableExists("TimeSeriesTestingSet")) return;
  session.Connection().Execute("DROP TABLE TimeSeriesTestingSet");
  ForgetFormerSet(session, data_set_type::kTimeSeriesTesting);
}

std::int32_t BackupRows(const RunSession& session) {
  if (!session.Connection().TableExists("TrainingSetBackup")) return 0;
  return session.ReadInteger("SELECT COUNT(*) FROM TrainingSetBackup");
}

}  // namespace tslm5::host
