#include "host/preparation/store_set.h"

#include <fmt/format.h>

#include <numeric>

#include "host/preparation/load_note.h"
#include "host/preparation/load_target.h"
#include "host/preparation/load_watcher.h"
#include "host/preparation/prepared_load.h"
#include "host/preparation/run_metadata.h"
#include "host/preparation/run_originals.h"
#include "host/preparation/run_preparation.h"
#include "host/preparation/run_session.h"
#include "host/preparation/set_agreement.h"
#include "host/preparation/statistics_feedback.h"
#include "host/preparation/store_values.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/progress.h"
#include "host/program/shown_text.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/platform/number_text.h"

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
void RequireAllRecords(std::int32_t rows, std::int32_t columns, const CellSurvey& survey) {
  if (rows == survey.records && columns == static_cast<std::int32_t>(survey.columns)) return;
  throw Failure(ExitCode::kTrouble,
                fmt::format("the lines do not add up: the file has {} records of {} columns ({} "
                            "lines less {} label and {} empty ones), but {} records of {} columns "
                            "were stored; was it changed meanwhile?",
                            survey.records, survey.columns, survey.lines, survey.label_lines,
                            survey.empty_lines, rows, columns));
}

/// Where the records of a set come from.
class RecordSource {
 public:
  virtual ~RecordSource() = default;
  virtual std::size_t Columns() const = 0;
  /// Has the component store them.
  virtual void Fill(IDataSet& data_set, Progress& progress) const = 0;
  virtual void WriteTexts(IRunOriginals& originals, std::int32_t first_key,
                          Progress& progress) const = 0;
  virtual NotedDialect Dialect() const = 0;
};

/// A text that the contract's loader reads.
class TextRecords final : public RecordSource {
 public:
  TextRecords(const LoadOptions& options, const DelimitedText& text, const CellSurvey& survey)
      : options_(options), text_(text), survey_(survey) {}

  std::size_t Columns() const override { return survey_.columns; }
  void Fill(IDataSet& data_set, Progress& progress) const override {
    Parse(data_set, options_, text_, survey_, progress);
    RequireAllRecords(data_set.Rows(), data_set.Columns(), survey_);
  }
  void WriteTexts(IRunOriginals& originals, std::int32_t first_key,
                  Progress& progress) const override {
    WriteOriginals(originals, text_, survey_, first_key, progress);
  }
  NotedDialect Dialect() const override { return {text_.separator, text_.has_label_line}; }

 private:
  const LoadOptions& options_;
  const DelimitedText& text_;
  const CellSurvey& survey_;
};

/// A table of numbers.
class TableRecords final : public RecordSource {
 public:
  TableRecords(const LoadOptions& options, const FieldFile& file)
      : options_(options), file_(file) {}

  std::size_t Columns() const override { return file_.table.columns; }
  void Fill(IDataSet& data_set, Progress& progress) const override {
    std::vector<double> values;
    values.reserve(file_.table.fields.size());
    for (const std::string_view field : file_.table.fields) {
      double value = 0.0;
      ParseNumber(field, file_.table.decimal, value);
      values.push_back(value);
    }
    StoreValues(data_set, options_.set->type, values, file_.table.columns, file_.table.labels,
                progress);
  }
  void WriteTexts(IRunOriginals& originals, std::int32_t first_key,
                  Progress& progress) const override {
    std::vector<std::size_t> records(file_.table.Records());
    std::iota(records.begin(), records.end(), std::size_t{0});
    std::vector<std::int32_t> keys(records.size());
    std::iota(keys.begin(), keys.end(), first_key);
    WriteOriginals(originals, file_.table, records, keys, progress);
  }
  NotedDialect Dialect() const override {
    const DelimitedDialect& dialect = file_.file.dialect;
    return {&SeparatorOf(dialect), !file_.table.labels.empty(), dialect.decimal,
            dialect.preamble_lines};
  }

 private:
  const LoadOptions& options_;
  const FieldFile& file_;
};

std::vector<RunColumn> NotesOf(const StoredSet& stored) {
  std::vector<RunColumn> notes;
  for (const std::string& label : stored.labels) notes.push_back({label, false, 0, false});
  return notes;
}

StoredSet StoreInSession(const RunSession& session, const LoadOptions& options,
                         const RecordSource& source, const std::vector<std::int64_t>* missing) {
  Progress progress(Terminal::OfStandardError());
  const SetName& set = *options.set;
  session.CreateSchema();
  RequireSameColumns(session, set, source.Columns());
  if (set.type == data_set_type::kTraining) DropTestingSamples(session);
  const Ref<IDataSet> data_set = session.AttachDataSet(set.type);
  source.Fill(*data_set, progress);

  StoredSet stored;
  stored.rows = data_set->Rows();
  stored.columns = data_set->Columns();
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
    std::vector<RunColumn> notes = NotesOf(stored);
    for (std::size_t i = 0; missing != nullptr && i < notes.size(); ++i) {
      notes[i].missing = (*missing)[i];
    }
    session.Columns().WriteColumns(notes, stored.has_labels);
  } else if (stored.has_labels) {
    const auto warning = CompareLabels(session, stored.labels, set);
    if (warning) stored.warnings.push_back(*warning);
  }
  const std::int32_t first_key =
      session.Originals().MakeRoom(set.type, stored.rows, stored.columns);
  source.WriteTexts(session.Originals(), first_key, progress);
  if (!data_set.As<IPersistable>()->Save(Variant(session.Run()), Variant(set.type))) {
    throw Failure(ExitCode::kTrouble, "the set's labels could not be saved in the run");
  }
  if (options.statistics && HasStatistics(session)) ComputeStatistics(*data_set, progress);
  NoteLoad(session, options, source.Dialect(), stored);
  return stored;
}

/// All in one transaction.
StoredSet StoreRecords(const LoadOptions& options, const RunStatus& status,
                       const RecordSource& source, const std::vector<std::int64_t>* missing) {
  LoadTarget target(options.run);
  Transaction transaction(target.Session().Connection());
  RequireStatus(target.Session(), status);
  StoredSet stored = StoreInSession(target.Session(), options, source, missing);
  StopIfInterrupted();
  target.Finish(transaction);
  return stored;
}

}  // namespace

StoredSet StoreSet(const LoadOptions& options, const RunStatus& status, const DelimitedText& text,
                   const CellSurvey& survey) {
  return StoreRecords(options, status, TextRecords(options, text, survey),
                      &survey.missing_by_column);
}

StoredSet StoreNumbers(const LoadOptions& options, const RunStatus& status, const FieldFile& file) {
  return StoreRecords(options, status, TableRecords(options, file), nullptr);
}

}  // namespace tslm5::host
