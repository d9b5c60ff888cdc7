#include "preparation/run_embedding_facet.h"

#include <utility>

#include "platform/only_errors.h"
#include "preparation/preparation_step.h"
#include "preparation/training_labels.h"
#include "storage/run_tables.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

constexpr std::int32_t kTraining = data_set_type::kTraining;
constexpr std::int32_t kTesting = data_set_type::kTesting;

/// What SQLite says of a statement that names a column which a table does not have.
constexpr std::int32_t kSqlError = 1;

std::string Text(std::int64_t number) {
  return std::to_string(number);
}

void RequireOneColumn(const RunAccess& run, IDataSet& series) {
  const std::int32_t columns = series.Columns();
  if (columns == 1) return;
  Embedding embedding;
  if (ReadCurrentEmbedding(run, embedding) && embedding.dimension + 1 == columns) {
    RaiseNotPossible("the training set is embedded already, with dimension " +
                     Text(embedding.dimension) + " and delay " + Text(embedding.delay) +
                     "; load the series again to embed it otherwise");
  }
  RaiseNotPossible("the training set has " + Text(columns) +
                   " columns; a series of one column can be embedded");
}

/// Whether the records can be taken for values in order of time.
void RequireSeries(const RunAccess& run) {
  for (const RunColumn& column : run.ReadColumns()) {
    if (column.is_nominal) {
      RaiseNotPossible("the series holds words, which were coded; only numbers can be embedded");
    }
  }
  const std::int32_t problem =
      run.Parameters().ReadWhole(parameter_space::kGeneral, run_parameter::kProblem);
  if (problem != problem_category::kRegression && problem != problem_category::kTimeSeries) {
    RaiseNotPossible("the run is for another problem; load the series for a time series");
  }
  IRunCatalog& sets = run.Sets();
  if (!sets.HasRecords(kTesting)) return;
  const bool is_mixed = sets.FirstKey(kTesting) < sets.LastKey(kTraining);
  // After a reset the keys of both sets are the same.
  if (is_mixed && !sets.SetsShareKeys()) {
    RaiseNotPossible(
        "the training set is no series: the testing records were drawn from among its values");
  }
}

void RequireLength(const EmbeddingOptions& options, std::int32_t rows) {
  const std::int64_t needed = options.LagOf(0) + 1 + options.TestingSpan();
  if (rows >= needed) return;
  std::string wanted =
      "dimension " + Text(options.dimension) + " with delay " + Text(options.delay);
  if (options.testing_samples > 0) {
    wanted += " and " + Text(options.testing_samples) + " testing samples";
  }
  RaiseNotPossible("the series is too short: it has " + Text(rows) + " values, but " + wanted +
                   " needs at least " + Text(needed));
}

void DropTestingSamples(const RunAccess& run) {
  if (!run.Sets().HasSet(data_set_type::kTimeSeriesTesting)) return;
  run.Sets().DropSet(data_set_type::kTimeSeriesTesting);
  run.DropNotesOf(data_set_type::kTimeSeriesTesting);
}

Ref<IDataSet> OpenSeries(const RunAccess& run, const EmbeddingOptions& options) {
  Ref<IDataSet> series = run.OpenDataSet(kTraining);
  if (!series) RaiseNotPossible("there is no training set; load a series first");
  RequireOneColumn(run, *series);
  RequireSeries(run);
  RequireLength(options, series->Rows());
  return series;
}

void SetProperties(IDataSet& series, const EmbeddingOptions& options) {
  series.SetProperty(Text(options.dimension), property_key::kEmbeddingDimension);
  series.SetProperty(Text(options.delay), property_key::kDelayTime);
  series.SetProperty(Text(options.testing_samples), property_key::kTestingSamples);
}

void WriteMissingCounts(const RunAccess& run) {
  std::vector<std::int32_t> missing;
  run.Sets().CountMissing(kTraining, missing);
  run.Columns().WriteMissingCounts(missing);
}

/// Figures by class go by the columns of the embedded training set, so the testing samples, a
/// column alone, may have none.
void ComputeSampleStatistics(const RunAccess& run, IFeedback* feedback) {
  const Ref<IDataSet> samples = run.OpenDataSet(data_set_type::kTimeSeriesTesting);
  try {
    ComputeStatistics(*samples, feedback);
  } catch (const Error& error) {
    const bool is_narrow = run.Sets().SetColumns(kTraining) > samples->Columns();
    if (!is_narrow || error.Source() != "TSLMRep5" || (error.Number() & 0xFF) != kSqlError) throw;
  }
}

void EmbedRecords(const RunAccess& run, const EmbeddingOptions& options, IDataSet& series) {
  const auto records =
      static_cast<std::int32_t>(series.Rows() - options.LagOf(0) - options.TestingSpan());
  const bool has_originals =
      run.Originals().WriteEmbedded(options.dimension, options.delay, records);
  SetProperties(series, options);
  if (!series.FormatDataAs(0)) {
    throw Error(error_number::kFileAccess, "RunPreparation",
                "the series could not be embedded: it holds an infinite value, or the run could "
                "not be written");
  }
  if (has_originals) run.Originals().TakeEmbedded();
}

EmbeddingResult EmbedSeries(const RunAccess& run, const EmbeddingOptions& options,
                            IFeedback* feedback) {
  EmbeddingResult result;
  result.has_dropped_backup = run.Sets().BackupRows() > 0;
  DropTestingSamples(run);
  const Ref<IDataSet> series = OpenSeries(run, options);
  result.series_rows = series->Rows();
  const std::string series_label = LabelsOf(*series).front();
  std::vector<std::int32_t> missing;
  run.Sets().CountMissing(kTraining, missing);
  EmbedRecords(run, options, *series);
  result.records = series->Rows();

  run.DropNotesOf(kTraining);
  WriteSeriesLabel(run, series_label);
  WriteEmbeddingLabels(run, *series, {options.dimension, options.delay});
  result.labels = LabelsOf(*series);
  if (missing.front() > 0) WriteMissingCounts(run);
  if (run.Figures().HasScaleFigures()) run.Figures().ComputeScaleFigures(series->Columns());
  run.Parameters().WriteWhole(parameter_space::kGeneral, run_parameter::kProblem,
                              problem_category::kTimeSeries);
  ComputeStatistics(*series, feedback);
  if (options.testing_samples > 0) ComputeSampleStatistics(run, feedback);
  return result;
}

}  // namespace

void RunEmbeddingFacet::Embed(const EmbeddingOptions& pOptions,
                              const std::vector<std::string>& pWords, IFeedback* pFeedback,
                              EmbeddingResult& pResult) {
  OnlyErrors([&] {
    Transaction transaction(run_.Connection());
    CreateRunTables(run_.Connection());
    EmbeddingResult result = EmbedSeries(run_, pOptions, pFeedback);
    AppendStep(run_, "embed",
               {{"dimension", pOptions.dimension},
                {"delay", pOptions.delay},
                {"testingSamples", pOptions.testing_samples},
                {"values", result.series_rows},
                {"rows", result.records}},
               pWords);
    transaction.Commit();
    pResult = std::move(result);
  });
}

}  // namespace tslm5
