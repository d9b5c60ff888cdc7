#include "host/commands/load_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "host/answers/check_report.h"
#include "host/answers/load_report.h"
#include "host/answers/text_warnings.h"
#include "host/preparation/cell_rule.h"
#include "host/preparation/cell_survey.h"
#include "host/preparation/file_check.h"
#include "host/preparation/fixed_file.h"
#include "host/preparation/label_list.h"
#include "host/preparation/load_files.h"
#include "host/preparation/prepared_load.h"
#include "host/preparation/record_reader.h"
#include "host/preparation/run_status.h"
#include "host/preparation/store_set.h"
#include "host/preparation/user_locale.h"
#include "host/program/failure.h"
#include "host/program/shown_text.h"
#include "host/program/terminal.h"

namespace tslm5::host {
namespace {

constexpr int kMostStarts = 5;

/// Refuses a file that the data check refuses, in its words. One whose records are its columns is
/// looked at by the survey alone: the check knows records in lines.
void RequireValid(const LoadOptions& options, const DelimitedText& text) {
  if (!options.checks || text.is_transposed) return;
  CheckRequest request;
  request.path = text.path;
  request.separator = text.separator;
  request.has_labels = options.has_labels;
  request.lines = std::count(text.text.begin(), text.text.end(), '\n');
  const DataCheckResult result = CheckFile(request);
  if (result.is_valid) return;
  const DataCheckFinding& finding = result.findings.front();
  throw Failure(ExitCode::kRefused,
                PlaceOf(finding) + Escaped(OneLine(finding.message)) +
                    " (tslm5 check --fixed --all tells every problem; --no-check loads without the "
                    "check)");
}

constexpr const char* kNoLabels =
    "the first line was dropped, but not taken for labels: one of them is a number, or two are the "
    "same; the set has no labels (--no-labels keeps the line as a record)";

/// What there is to tell of a load by the contract's loader.
void AddFixedWarnings(const LoadOptions& options, const FixedFile& file, const CellSurvey& survey,
                      StoredSet& stored) {
  for (std::string& warning : TextWarnings(*file.source)) {
    stored.warnings.push_back(std::move(warning));
  }
  if (options.has_labels && !stored.has_labels) {
    stored.warnings.push_back(
        options.layout == layout_code::kRecordsInColumns
            ? "the set has no labels: with the layout columns the first line is tested for labels "
              "before it is turned, and it holds values"
            : kNoLabels);
  }
  if (survey.blanks.first) {
    const CellPlace& place = *survey.blanks.first;
    stored.warnings.push_back(fmt::format(
        "blanks count as separators too: {} of the records have more columns than the {} gives, "
        "the first on line {}: {}",
        survey.blanks.count, file.separator.separator->name, place.line, Quoted(place.value)));
  }
}

/// Whether the user asks for more than to store a file's numbers.
bool AsksForMore(const LoadOptions& options) {
  return !options.response.empty() || options.problem || !options.testing.empty() ||
         options.testing_share || options.scale || options.positive_class ||
         !options.missing_tokens.empty();
}

/// Whether a testing set has its response elsewhere than in its last column.
bool MustMoveResponse(const LoadOptions& options, const RunStatus& run,
                      const std::vector<std::string>& labels) {
  const bool is_testing = options.set->type == data_set_type::kTesting;
  if (!is_testing || run.response.empty() || labels.empty()) return false;
  return labels.back() != run.response &&
         std::find(labels.begin(), labels.end(), run.response) != labels.end();
}

void Report(const LoadReport& report, bool json, Output& output) {
  for (const std::string& warning : report.stored.warnings) Warn(warning);
  output.Write(json ? LoadJson(report) : LoadText(report));
}

/// What is told of the first line means nothing where lines are columns.
void AddNotes(const LoadOptions& options, const DelimitedFile& file, const std::string& place,
              std::vector<std::string>& warnings) {
  for (const TextNote& note : file.notes) {
    const bool is_of_header = note.code == FindingCode::kHeaderContradicted;
    if (is_of_header && options.layout == layout_code::kRecordsInColumns) continue;
    warnings.push_back(place + note.words);
  }
}

/// Plain numbers go the contract's way, which reads the same records faster.
void LoadNumbers(const LoadOptions& options, const RunStatus& run, DelimitedFile& file,
                 Output& output) {
  if (!file.is_decoded) file.source->TakeText();
  file.is_decoded = true;
  const SeparatorChoice choice = ChoiceOf(options, file);
  const DelimitedText text{file.source->Text(), choice.separator, !file.labels.empty(), false,
                           file.source->Path()};
  StoredSet stored = StoreSet(options, run, text, file.survey);
  output.NoteDone("the load is stored");
  AddNotes(options, file, "", stored.warnings);
  Report({options, choice, file.survey, stored, nullptr, nullptr, &file.dialect}, options.json,
         output);
}

/// A time series is one column, its values in order of time.
void RequireSeries(const LoadOptions& options, const FieldTable& table) {
  if (options.problem != problem_category::kTimeSeries || table.columns == 1) return;
  std::vector<std::string> labels;
  for (std::size_t column = 0; column < table.columns; ++column) {
    labels.push_back(table.LabelOf(column));
  }
  Refuse(fmt::format("a time series is one column, but the file has {}: {}", table.columns,
                     LabelList(labels)));
}

FieldFile ReadFieldFile(const LoadOptions& options, DelimitedFile file,
                        const std::string& response) {
  FieldFile read{std::move(file), {}};
  read.table = ReadFields(options, read.file);
  RequireSeries(options, read.table);
  PlaceResponse(read.table, response);
  return read;
}

void LoadPrepared(const LoadOptions& options, const RunStatus& run, const FieldFile& main,
                  const FieldFile* testing, Output& output) {
  PreparedLoad load = StorePrepared(options, run, main, testing);
  output.NoteDone("the load is stored");
  std::vector<std::string>& warnings = load.stored.warnings;
  const CellSurvey survey =
      SurveyFields(main.table, CellRule(main.table.decimal, load.preparation.missing_tokens));
  AddNotes(options, main.file, "", warnings);
  if (testing != nullptr) {
    AddNotes(options, testing->file, Escaped(options.testing) + ": ", warnings);
  }
  const SeparatorChoice choice = ChoiceOf(options, main.file);
  Report({options, choice, survey, load.stored, &load, &main.table, &main.file.dialect},
         options.json, output);
}

/// Loads the file in the way that the status of the run asks for.
void LoadInto(const LoadOptions& options, const RunStatus& run, DelimitedFile& file,
              Output& output) {
  const bool is_testing = options.set->type == data_set_type::kTesting;
  const bool goes_on = run.is_prepared && (is_testing ? run.has_training : run.has_testing);
  const bool is_plain =
      file.is_plain && options.layout == layout_code::kRecordsInRows && !UserHasDecimalComma();
  if (is_plain && !goes_on && !AsksForMore(options) &&
      !MustMoveResponse(options, run, file.labels)) {
    return LoadNumbers(options, run, file, output);
  }
  std::string response = options.response;
  if (response.empty() && is_testing &&
      std::find(file.labels.begin(), file.labels.end(), run.response) != file.labels.end()) {
    response = run.response;
  }
  const FieldFile main = ReadFieldFile(options, file, response);
  const bool holds_numbers = file.survey.text.count == 0 && file.survey.missing.count == 0;
  if (holds_numbers && !goes_on && !AsksForMore(options)) {
    StoredSet stored = StoreNumbers(options, run, main);
    output.NoteDone("the load is stored");
    AddNotes(options, file, "", stored.warnings);
    const SeparatorChoice choice = ChoiceOf(options, file);
    const CellSurvey survey = SurveyFields(main.table, CellRule(main.table.decimal, {}));
    return Report({options, choice, survey, stored, nullptr, &main.table, &file.dialect},
                  options.json, output);
  }
  std::optional<FieldFile> testing;
  if (!options.testing.empty()) {
    testing = ReadFieldFile(options, SurveyFile(options.testing, DialectOptions(options)),
                            options.response);
  }
  LoadPrepared(options, run, main, testing ? &*testing : nullptr, output);
}

/// By the contract's check and loader, as they stand: numbers alone, its rules of separators and
/// the user's locale.
void LoadFixed(const LoadOptions& options, const RunStatus& run, const FixedFile& file,
               bool comma_is_decimal, Output& output) {
  if (run.is_prepared && options.set->type == data_set_type::kTesting && run.has_training) {
    throw Failure(ExitCode::kRefused,
                  "the run's training set was prepared, and a testing set must be prepared like "
                  "it; load it without --fixed");
  }
  RequireValid(options, file.text);
  const CellSurvey survey = SurveyCells(file.text, comma_is_decimal);
  StoredSet stored = StoreSet(options, run, file.text, survey);
  output.NoteDone("the load is stored");
  AddFixedWarnings(options, file, survey, stored);
  Report({options, file.separator, survey, stored, nullptr, nullptr, nullptr}, options.json,
         output);
}

/// Does a load again while other programs change the run in between.
template <class Load>
void WithStatus(const LoadOptions& options, Load load) {
  for (int i = 0; i < kMostStarts; ++i) {
    try {
      return load(ReadRunStatus(options.run));
    } catch (const OutdatedStatus&) {  // another program was faster: the way may be another one now
    }
  }
  throw Failure(ExitCode::kTrouble,
                fmt::format("{} is changed by other programs again and again; load when they are "
                            "done",
                            Escaped(options.run)));
}

}  // namespace

void RunLoad(const LoadOptions& options, Output& output) {
  if (options.is_fixed) {
    const bool comma_is_decimal = UserHasDecimalComma();
    const FixedFile file = ReadFixedFile(options, comma_is_decimal);
    return WithStatus(options, [&](const RunStatus& run) {
      LoadFixed(options, run, file, comma_is_decimal, output);
    });
  }
  DelimitedFile file = SurveyFile(options.file, DialectOptions(options));
  WithStatus(options, [&](const RunStatus& run) { LoadInto(options, run, file, output); });
}

}  // namespace tslm5::host
