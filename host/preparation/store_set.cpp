#include "host/preparation/store_set.h"

#include <fmt/format.h>

#include "host/preparation/load_note.h"
#include "host/preparation/load_target.h"
#include "host/preparation/load_watcher.h"
#include "host/preparation/run_metadata.h"
#include "host/preparation/run_originals.h"
#include "host/preparation/run_preparation.h"
#include "host/preparation/run_session.h"
#include "host/preparation/series_labels.h"
#include "host/preparation/set_agreement.h"
#include "host/preparation/statistics_feedback.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/progress.h"
#include "host/program/shown_text.h"
#include "tslm5/contracts/lifecycle.h"

namespace tslm5::host {
namespace {

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

/// The error with the user's name of the file, where it names the one that the component read.
Error WithFileName(const Error& error, const std::string& path, const std::string& file) {
  std::string words = error.Description();
  const std::size_t place = words.find(path);
  if (place == std::string::npos) return error;
  return Error(error.Number(), error.Source(), words.replace(place, path.size(), file));
}

void Parse(IDataSet& data_set, const LoadOptions& options, const DelimitedText& text,
           const CellSurvey& survey, Progress& progress) {
  const LoadWatcher watcher(data_set, progress);
  try {
    data_set.Parse(text.path, text.separator->code, text.has_label_line, options.set->type,
                   options.layout);
  } catch (const Error& error) {
    StopIfInterrupted();
    throw Refusal(WithFileName(error, text.path, options.file), survey);
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

std::vector<RunColumn> NotesOf(const StoredSet& stored, const CellSurvey& survey) {
  std::vector<RunColumn> notes;
  for (std::size_t i = 0; i < stored.labels.size(); ++i) {
    notes.push_back({stored.labels[i], false, survey.missing_by_column[i], false});
  }
  return notes;
}

StoredSet StoreInSession(const RunSession& session, const LoadOptions& options,
                         const DelimitedText& text, const CellSurvey& survey) {
  Progress progress(Terminal::OfStandardError());
  const SetName& set = *options.set;
  session.CreateSchema();
  RequireSameColumns(session, set, survey.columns);
  if (set.type == data_set_type::kTraining) DropTestingSamples(session);
  const Ref<IDataSet> data_set = session.AttachDataSet(set.type);
  Parse(*data_set, options, text, survey, progress);

  StoredSet stored;
  stored.rows = data_set->Rows();
  stored.columns = data_set->Columns();
  RequireAllRecords(stored, survey);
  stored.has_labels = data_set->HasLabels();
  stored.labels = LabelsOf(*data_set);

  ForgetFormerSet(session, set.type);
  if (set.type == data_set_type::kTraining) {
    ForgetPreparation(session);
    WritePlainParameters(session);
  }
  const bool is_leading =
      set.type == data_set_type::kTraining || !session.Sets().HasSet(OtherSet(set).type);
  if (is_leading) {
    session.Columns().WriteColumns(NotesOf(stored, survey), stored.has_labels);
  } else if (stored.has_labels) {
    const auto warning = CompareLabels(session, stored.labels, set);
    if (warning) stored.warnings.push_back(*warning);
  }
  const std::int32_t first_key =
      session.Originals().MakeRoom(set.type, stored.rows, stored.columns);
  WriteOriginals(session.Originals(), text, survey, first_key, progress);
  if (!data_set.As<IPersistable>()->Save(Variant(session.Run()), Variant(set.type))) {
    throw Failure(ExitCode::kTrouble, "the set's labels could not be saved in the run");
  }
  if (options.statistics && HasStatistics(session)) ComputeStatistics(*data_set, progress);
  NoteLoad(session, options, text, stored);
  return stored;
}

}  // namespace

StoredSet StoreSet(const LoadOptions& options, const RunStatus& status, const DelimitedText& text,
                   const CellSurvey& survey) {
  LoadTarget target(options.run);
  Transaction transaction(target.Session());
  RequireStatus(target.Session(), status);
  StoredSet stored = StoreInSession(target.Session(), options, text, survey);
  StopIfInterrupted();
  transaction.Commit();
  target.Finish();
  return stored;
}

}  // namespace tslm5::host
