#include "host/preparation/embed_run.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/preparation/run_history.h"
#include "host/preparation/run_metadata.h"
#include "host/preparation/run_preparation.h"
#include "host/preparation/run_session.h"
#include "host/preparation/series_labels.h"
#include "host/preparation/statistics_feedback.h"
#include "host/program/common_options.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/json_text.h"
#include "host/program/progress.h"
#include "host/program/shown_text.h"
#include "tslm5/contracts/codes.h"

namespace tslm5::host {
namespace {

/// The values from the first testing sample on.
std::int64_t TestingSpan(const EmbedOptions& options) {
  if (options.testing_samples == 0) return 0;
  return 1 + (std::int64_t{options.testing_samples} - 1) * options.delay;
}

void RequireOneColumn(const RunSession& session, IDataSet& series) {
  const std::int32_t columns = series.Columns();
  if (columns == 1) return;
  const auto step = CurrentEmbedding(session);
  if (step && step->dimension + 1 == columns) {
    Refuse(
        fmt::format("the training set is embedded already, with dimension {} and delay {}; load "
                    "the series again to embed it otherwise",
                    step->dimension, step->delay));
  }
  Refuse(fmt::format("the training set has {} columns; a series of one column can be embedded",
                     columns));
}

/// Whether the records can be taken for values in order of time.
void RequireSeries(const RunSession& session) {
  for (const RunColumn& column : ColumnsOf(session)) {
    if (column.is_nominal) {
      Refuse("the series holds words, which were coded; only numbers can be embedded");
    }
  }
  const std::int32_t problem = ReadProblem(session);
  if (problem != problem_category::kRegression && problem != problem_category::kTimeSeries) {
    Refuse(fmt::format("the run is for {}; load the series with --problem timeseries",
                       ProblemName(problem)));
  }
  IRunCatalog& sets = session.Sets();
  if (!sets.HasRecords(data_set_type::kTesting)) return;
  const bool is_mixed =
      sets.FirstKey(data_set_type::kTesting) < sets.LastKey(data_set_type::kTraining);
  // After a reset the keys of both sets are the same.
  if (is_mixed && !sets.SetsShareKeys()) {
    Refuse("the training set is no series: the testing records were drawn from among its values");
  }
}

void RequireLength(const EmbedOptions& options, std::int32_t rows) {
  const std::int64_t needed = LagOf(options, 0) + 1 + TestingSpan(options);
  if (rows >= needed) return;
  const std::string testing = options.testing_samples == 0
                                  ? ""
                                  : fmt::format(" and {} testing samples", options.testing_samples);
  Refuse(
      fmt::format("the series is too short: it has {} values, but dimension {} with delay {}{} "
                  "needs at least {}",
                  rows, options.dimension, options.delay, testing, needed));
}

/// Writes how many cells of each column are missing.
void CountMissing(const RunSession& session) {
  std::vector<std::int32_t> missing;
  session.Sets().CountMissing(data_set_type::kTraining, missing);
  session.Columns().WriteMissingCounts(missing);
}

void Note(const RunSession& session, const EmbedOptions& options, const EmbeddedRun& embedded) {
  HistoryEntry entry;
  entry.command = "embed";
  entry.set = data_set_type::kTraining;
  const nlohmann::ordered_json parameters = {{"dimension", options.dimension},
                                             {"delay", options.delay},
                                             {"testingSamples", options.testing_samples},
                                             {"values", embedded.series_rows},
                                             {"rows", embedded.records}};
  entry.parameters = JsonText(parameters);
  entry.words = {"embed",       std::string(kRunWord),
                 "--dimension", fmt::format("{}", options.dimension),
                 "--delay",     fmt::format("{}", options.delay)};
  if (options.testing_samples > 0) {
    entry.words.insert(entry.words.end(),
                       {"--testing-samples", fmt::format("{}", options.testing_samples)});
  }
  WriteHistory(session, entry);
}

Ref<IDataSet> OpenSeries(const RunSession& session, const EmbedOptions& options) {
  Ref<IDataSet> series = session.OpenDataSet(data_set_type::kTraining);
  if (!series) {
    throw Failure(ExitCode::kTrouble,
                  fmt::format("{} has no training set (tslm5 load FILE --run RUN.db "
                              "--problem timeseries loads a series)",
                              Escaped(options.run)));
  }
  RequireOneColumn(session, *series);
  RequireSeries(session);
  RequireLength(options, series->Rows());
  return series;
}

void SetProperties(IDataSet& series, const EmbedOptions& options) {
  const auto set = [&series](const char* key, std::int32_t value) {
    series.SetProperty(fmt::format("{}", value), key);
  };
  set(property_key::kEmbeddingDimension, options.dimension);
  set(property_key::kDelayTime, options.delay);
  set(property_key::kTestingSamples, options.testing_samples);
}

EmbeddedRun EmbedInSession(const RunSession& session, const EmbedOptions& options) {
  EmbeddedRun embedded;
  session.CreateSchema();
  if (session.Sets().BackupRows() > 0) {
    embedded.warnings.emplace_back("the reset of before can no longer be undone");
  }
  DropTestingSamples(session);
  const Ref<IDataSet> series = OpenSeries(session, options);
  embedded.series_rows = series->Rows();
  const std::string series_label = LabelsOf(*series).front();
  std::vector<std::int32_t> missing;
  session.Sets().CountMissing(data_set_type::kTraining, missing);
  const auto records =
      static_cast<std::int32_t>(series->Rows() - LagOf(options, 0) - TestingSpan(options));

  const bool has_originals =
      session.Originals().WriteEmbedded(options.dimension, options.delay, records);
  SetProperties(*series, options);
  if (!series->FormatDataAs(0)) {
    throw Failure(ExitCode::kTrouble,
                  "the series could not be embedded: it holds an infinite value, or the run could "
                  "not be written");
  }
  if (has_originals) session.Originals().TakeEmbedded();
  embedded.records = series->Rows();

  ForgetFormerSet(session, data_set_type::kTraining);
  KeepSeriesLabel(session, series_label);
  WriteEmbeddingLabels(session, *series, {options.dimension, options.delay});
  embedded.labels = LabelsOf(*series);
  if (missing.front() > 0) CountMissing(session);
  WriteEmbeddedFigures(session, series->Columns());
  WriteProblem(session, problem_category::kTimeSeries);

  Progress progress(Terminal::OfStandardError());
  ComputeStatistics(*series, progress);
  if (options.testing_samples > 0) {
    ComputeStatistics(session, *session.OpenDataSet(data_set_type::kTimeSeriesTesting), progress);
  }
  Note(session, options, embedded);
  return embedded;
}

}  // namespace

std::int64_t LagOf(const EmbedOptions& options, std::int32_t column) {
  return (std::int64_t{options.dimension} - column) * options.delay;
}

std::int64_t UnusedValues(const EmbedOptions& options) {
  return std::max<std::int64_t>(0, TestingSpan(options) - options.testing_samples);
}

EmbeddedRun EmbedRun(const EmbedOptions& options) {
  const RunSession session(options.run, RunOptions::Mode::kReadWrite);
  Transaction transaction(session);
  EmbeddedRun embedded = EmbedInSession(session, options);
  StopIfInterrupted();
  transaction.Commit();
  return embedded;
}

}  // namespace tslm5::host
