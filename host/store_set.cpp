#include "host/store_set.h"

#include <fmt/format.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "host/failure.h"
#include "host/interruption.h"
#include "host/progress.h"
#include "host/run_history.h"
#include "host/run_metadata.h"
#include "host/run_originals.h"
#include "host/run_session.h"
#include "host/shown_text.h"
#include "host/statistics_feedback.h"
#include "tslm5/contracts/event_handlers.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/platform/connection_point.h"

namespace tslm5::host {
namespace {

const SetName& OtherSet(const SetName& set) {
  return *FindSet(set.type == data_set_type::kTraining ? "testing" : "training");
}

/// The records of both sets are records of one problem: they must have the same columns.
void RequireSameColumns(const RunSession& session, const SetName& set, std::size_t columns) {
  const SetName& other = OtherSet(set);
  const std::int32_t other_columns = session.ColumnsOf(other.table);
  if (other_columns == 0 || other_columns == static_cast<std::int32_t>(columns)) return;
  throw Failure(
      ExitCode::kRefused,
      fmt::format("the {} set has {} columns, but the {} set of the run has {}; both must "
                  "have the same",
                  set.name, columns, other.name, other_columns));
}

/// Shows the load's progress and hands Ctrl-C on while it is attached.
class LoadWatcher {
 public:
  LoadWatcher(IDataSet& data_set, Progress& progress)
      : source_(Query<IConnectionPoint>(&data_set)) {
    const auto handlers = MakeObject<EventHandlers>();
    handlers->on_before_data_load = [&progress](IDataSet&, IParseEventArgs& arguments) {
      progress.Begin("Loading", arguments.Rows());
      if (Interrupted()) arguments.put_Cancel(true);
    };
    handlers->on_record_parsed = [&progress](IRecordParsedEventArgs& arguments) {
      progress.At(arguments.Current());
      if (Interrupted()) arguments.put_Cancel(true);
    };
    cookie_ = source_->Advise(handlers.get());
  }
  LoadWatcher(const LoadWatcher&) = delete;
  LoadWatcher& operator=(const LoadWatcher&) = delete;
  ~LoadWatcher() { source_->Unadvise(cookie_); }

 private:
  Ref<IConnectionPoint> source_;
  std::int32_t cookie_ = 0;
};

/// What the refusal of a record means; an apostrophe is what a data table does not take in a cell.
Failure Refusal(const Error& error, const CellSurvey& survey) {
  const bool is_refused = IsRefusedStatement(error) || error.Number() == error_number::kInvalidData;
  if (!is_refused) return FailureOf(error);
  if (survey.first_apostrophe) {
    const CellPlace& place = *survey.first_apostrophe;
    return Failure(ExitCode::kRefused,
                   fmt::format("line {}, column {}: the loader does not take the apostrophe in {}",
                               place.line, place.column + 1, Quoted(place.value)));
  }
  return Failure(ExitCode::kRefused, Escaped(error.what()));
}

void Parse(IDataSet& data_set, const LoadOptions& options, const DelimitedText& text,
           const CellSurvey& survey, Progress& progress) {
  const LoadWatcher watcher(data_set, progress);
  try {
    data_set.Parse(options.file, text.separator->code, text.has_label_line, options.set->type,
                   options.layout);
  } catch (const Error& error) {
    StopIfInterrupted();
    throw Refusal(error, survey);
  }
  StopIfInterrupted();
}

/// The lines of the file are all accounted for only when the run holds every record of it.
void RequireAllRecords(const StoredSet& stored, const CellSurvey& survey) {
  if (stored.rows == survey.records &&
      stored.columns == static_cast<std::int32_t>(survey.columns)) {
    return;
  }
  throw Failure(ExitCode::kTrouble,
                fmt::format("the lines do not add up: the file has {} records of {} columns ({} "
                            "lines less {} label and {} empty ones), but {} records of {} columns "
                            "were stored; was it changed meanwhile?",
                            survey.records, survey.columns, survey.lines, survey.label_lines,
                            survey.empty_lines, stored.rows, stored.columns));
}

/// The labels of a run are those of its training set: another set's should be the same.
void CompareLabels(const RunSession& session, StoredSet& stored, const SetName& set) {
  if (!stored.has_labels) return;
  const Ref<IDataReader> reader =
      session.Connection().ExecuteReader("SELECT OriginalLabel FROM DataSetColumn ORDER BY Id");
  for (std::size_t column = 0; column < stored.labels.size() && reader->Read(); ++column) {
    const std::string kept = reader->GetString(0);
    if (kept == stored.labels[column]) continue;
    stored.warnings.push_back(fmt::format("column {} is called {} in the {} set, but {} in the run",
                                          column + 1, Quoted(stored.labels[column]), set.name,
                                          Quoted(kept)));
    break;
  }
  reader->Close();
}

void NoteLoad(const RunSession& session, const LoadOptions& options, const DelimitedText& text,
              const StoredSet& stored) {
  HistoryEntry entry;
  entry.command = "load";
  entry.set = options.set->type;
  entry.file = std::filesystem::absolute(options.file).lexically_normal().string();
  entry.words = LoadWords(options, *text.separator);
  const nlohmann::ordered_json parameters = {{"separator", text.separator->name},
                                             {"labels", text.has_label_line},
                                             {"layout", text.is_transposed ? "columns" : "rows"},
                                             {"rows", stored.rows},
                                             {"columns", stored.columns}};
  entry.parameters = parameters.dump();
  WriteHistory(session, entry);
}

StoredSet StoreInSession(const RunSession& session, const LoadOptions& options,
                         const DelimitedText& text, const CellSurvey& survey) {
  Progress progress(Terminal::OfStandardError());
  const SetName& set = *options.set;
  session.CreateSchema();
  RequireSameColumns(session, set, survey.columns);
  const Ref<IDataSet> data_set = session.AttachDataSet(set.type);
  Parse(*data_set, options, text, survey, progress);

  StoredSet stored;
  stored.rows = data_set->Rows();
  stored.columns = data_set->Columns();
  RequireAllRecords(stored, survey);
  stored.has_labels = data_set->HasLabels();
  stored.labels = LabelsOf(*data_set);

  ForgetFormerSet(session, set.type);
  const bool is_leading = set.type == data_set_type::kTraining ||
                          !session.Connection().TableExists(OtherSet(set).table);
  if (is_leading) {
    WriteColumns(session, *data_set, survey);
  } else {
    CompareLabels(session, stored, set);
  }
  const std::int32_t first_key = ArrangeRowKeys(session, set.type, stored.rows, stored.columns);
  WriteOriginals(session.Connection(), text, survey, first_key, progress);
  if (!data_set.As<IPersistable>()->Save(Variant(session.Run()), Variant(set.type))) {
    throw Failure(ExitCode::kTrouble, "the set's labels could not be saved in the run");
  }
  if (options.statistics && HasStatistics(session)) ComputeStatistics(*data_set, progress);
  NoteLoad(session, options, text, stored);
  return stored;
}

}  // namespace

StoredSet StoreSet(const LoadOptions& options, const DelimitedText& text,
                   const CellSurvey& survey) {
  NewRunFile new_run(options.run);
  StoredSet stored;
  {
    const RunSession session(options.run, RunOptions::Mode::kReadWriteCreate);
    Transaction transaction(session.Connection());
    stored = StoreInSession(session, options, text, survey);
    StopIfInterrupted();
    transaction.Commit();
  }
  new_run.Keep();
  return stored;
}

}  // namespace tslm5::host
