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

constexpr const char* kNoLabels =
    "the first line was dropped, but not taken for labels: one of them is a number, or two are the "
    "same; the set has no labels (--no-labels keeps the line as a record)";

/// Refuses a file that the data check refuses, in its words. One whose records are its columns is
/// looked at by the survey alone: the check knows records in lines.
/// With `takes_words`, a word or a missing value is no reason: what refuses the file comes later.
void RequireValid(const LoadOptions& options, const DelimitedText& text, bool takes_words) {
  if (!options.checks || text.is_transposed) return;
  CheckRequest request;
  request.path = text.path;
  request.separator = text.separator;
  request.has_labels = options.has_labels;
  request.lines = std::count(text.text.begin(), text.text.end(), '\n');
  const DataCheckResult result = CheckFile(request);
  if (result.is_valid) return;
  const DataCheckFinding& finding = result.findings.front();
  if (takes_words && IsAboutFields(finding.code)) return;
  Refuse(PlaceOf(finding) + Escaped(OneLine(finding.message)) +
         " (tslm5 check --all tells every problem; --no-check loads without the check)");
}

void AddWarnings(const LoadOptions& options, const SeparatorChoice& choice,
                 const CellSurvey& survey, StoredSet& stored) {
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
        survey.blanks.count, choice.separator->name, place.line, Quoted(place.value)));
  }
}

void AddTextWarnings(const FieldFile& file, StoredSet& stored) {
  for (std::string& warning : TextWarnings(*file.source)) {
    stored.warnings.push_back(std::move(warning));
  }
}

/// Quotes mean nothing to the component: a field that stands in them is a word, a number too.
void WarnOfQuotes(const CellSurvey& survey, StoredSet& stored) {
  if (!survey.quoted.first) return;
  const CellPlace& place = *survey.quoted.first;
  stored.warnings.push_back(
      fmt::format("{} cell{} in quotes, which are not understood: they are kept as part of a word; "
                  "the first on "
                  "line {}, column {}: {}",
                  survey.quoted.count, survey.quoted.count == 1 ? " stands" : "s stand", place.line,
                  place.column + 1, Quoted(place.value)));
}

/// Whether the user asks for more than to store a file's numbers.
bool AsksForMore(const LoadOptions& options) {
  return !options.response.empty() || options.problem || !options.testing.empty() ||
         options.testing_share || options.scale || options.positive_class ||
         !options.missing_tokens.empty();
}

/// The response of a testing set is where the run has it, unless the user says where.
std::string ResponseName(const LoadOptions& options, const RunStatus& run,
                         const FieldTable& table) {
  if (!options.response.empty() || options.set->type == data_set_type::kTraining) {
    return options.response;
  }
  const auto known = std::find(table.labels.begin(), table.labels.end(), run.response);
  return known == table.labels.end() ? "" : run.response;
}

/// Whether a testing set has its response elsewhere than in its last column.
bool MustMoveResponse(const LoadOptions& options, const RunStatus& run, const DelimitedText& text) {
  const bool is_testing = options.set->type == data_set_type::kTesting;
  if (!is_testing || run.response.empty() || !text.has_label_line) return false;
  std::string_view line;
  LineCursor(text.text).Next(line);
  std::vector<std::string_view> labels;
  SplitLine(line, *text.separator, labels);
  return labels.back() != run.response &&
         std::find(labels.begin(), labels.end(), run.response) != labels.end();
}

void Report(const LoadReport& report, bool json, Output& output) {
  for (const std::string& warning : report.stored.warnings) Warn(warning);
  output.Write(json ? LoadJson(report) : LoadText(report));
}

void LoadNumbers(const LoadOptions& options, const RunStatus& run, const FieldFile& file,
                 const CellSurvey& survey, Output& output) {
  StoredSet stored = StoreSet(options, run, file.text, survey);
  output.NoteDone("the load is stored");
  AddTextWarnings(file, stored);
  AddWarnings(options, file.separator, survey, stored);
  Report({options, file.separator, survey, stored, nullptr, nullptr}, options.json, output);
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

/// REQUIRES: the file's table is read.
void LoadPrepared(const LoadOptions& options, const RunStatus& run, FieldFile& file,
                  bool comma_is_decimal, Output& output) {
  RequireStructure(options, file);
  RequireSeries(options, file.table);
  PlaceResponse(file.table, ResponseName(options, run, file.table));
  std::optional<FieldFile> testing;
  if (!options.testing.empty()) {
    testing = ReadTextOf(options, options.testing, comma_is_decimal);
    testing->table = ReadFields(testing->text, comma_is_decimal);
    RequireStructure(options, *testing);
    PlaceResponse(testing->table, options.response);
  }
  PreparedLoad load =
      StorePrepared(options, run, file, testing ? &*testing : nullptr, comma_is_decimal);
  output.NoteDone("the load is stored");
  const CellSurvey survey =
      SurveyFields(file.table, CellRule(comma_is_decimal, load.preparation.missing_tokens));
  if (options.has_labels && file.table.labels.empty()) {
    load.stored.warnings.emplace_back(kNoLabels);
  }
  WarnOfQuotes(survey, load.stored);
  AddTextWarnings(file, load.stored);
  if (testing) AddTextWarnings(*testing, load.stored);
  Report({options, file.separator, survey, load.stored, &load, &file.table}, options.json, output);
}

/// Loads the file in the way that the status of the run asks for.
void LoadInto(const LoadOptions& options, const RunStatus& run, FieldFile& file,
              const std::optional<CellSurvey>& numbers, bool comma_is_decimal, Output& output) {
  const bool is_testing = options.set->type == data_set_type::kTesting;
  const bool goes_on = run.is_prepared && (is_testing ? run.has_training : run.has_testing);
  if (numbers && !goes_on && !AsksForMore(options) && !MustMoveResponse(options, run, file.text)) {
    RequireValid(options, file.text, false);
    return LoadNumbers(options, run, file, *numbers, output);
  }
  try {
    file.table = ReadFields(file.text, comma_is_decimal);
  } catch (const Failure& failure) {
    if (failure.Code() == ExitCode::kRefused) {
      RequireValid(options, file.text, true);  // its words come first
    }
    throw;
  }
  LoadPrepared(options, run, file, comma_is_decimal, output);
}

}  // namespace

void RunLoad(const LoadOptions& options, Output& output) {
  const bool comma_is_decimal = UserHasDecimalComma();
  FieldFile file = ReadTextOf(options, options.file, comma_is_decimal);
  const std::optional<CellSurvey> numbers = SurveyNumbers(file.text, comma_is_decimal);
  for (int i = 0; i < kMostStarts; ++i) {
    try {
      return LoadInto(options, ReadRunStatus(options.run), file, numbers, comma_is_decimal, output);
    } catch (const OutdatedStatus&) {  // another program was faster: the way may be another one now
    }
  }
  throw Failure(ExitCode::kTrouble,
                fmt::format("{} is changed by other programs again and again; load when they are "
                            "done",
                            Escaped(options.run)));
}

}  // namespace tslm5::host
