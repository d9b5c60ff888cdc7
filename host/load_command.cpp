#include "host/load_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "host/cell_survey.h"
#include "host/check_report.h"
#include "host/delimited_text.h"
#include "host/failure.h"
#include "host/file_check.h"
#include "host/load_report.h"
#include "host/problem_list.h"
#include "host/shown_text.h"
#include "host/store_set.h"
#include "host/terminal.h"
#include "host/user_locale.h"

namespace tslm5::host {
namespace {

SeparatorChoice ChooseSeparator(const LoadOptions& options, std::string_view text,
                                bool comma_is_decimal) {
  if (options.separator != nullptr) return {options.separator, "as asked for"};
  SeparatorChoice choice = GuessSeparator(text, comma_is_decimal);
  const bool is_none = choice.separator->code == separator_code::kNone;
  if (is_none && options.layout == layout_code::kRecordsInColumns) {
    throw Failure(ExitCode::kRefused,
                  "no separator gives the same number of fields in every line; with the layout "
                  "columns one is needed (--separator)");
  }
  return choice;
}

DelimitedText ReadDelimited(const LoadOptions& options, SeparatorChoice& choice,
                            bool comma_is_decimal) {
  DelimitedText delimited;
  delimited.text = ReadTextFile(options.file);
  choice = ChooseSeparator(options, delimited.text, comma_is_decimal);
  delimited.separator = choice.separator;
  delimited.has_label_line = options.has_labels;
  delimited.is_transposed = options.layout == layout_code::kRecordsInColumns;
  if (delimited.is_transposed) delimited.text = Transposed(delimited.text, *choice.separator);
  return delimited;
}

/// Refuses a file that the data check refuses, in its words. One whose records are its columns is
/// looked at by the survey alone: the check knows records in lines.
void RequireValid(const LoadOptions& options, const DelimitedText& text, bool comma_is_decimal) {
  if (!options.checks || text.is_transposed) return;
  CheckRequest request;
  request.file = options.file;
  request.separator = text.separator;
  request.has_labels = options.has_labels;
  request.lines = std::count(text.text.begin(), text.text.end(), '\n');
  const CheckAnswer answer = CheckFile(request);
  if (answer.is_valid) return;
  const ProblemList problems = FindAnsweredProblem(text, request, answer, comma_is_decimal);
  throw Failure(ExitCode::kRefused,
                PlaceOf(problems.first.front()) + Escaped(OneLine(answer.message)) +
                    " (tslm5 check --all tells every problem; --no-check loads without the check)");
}

void AddWarnings(const LoadOptions& options, const SeparatorChoice& choice,
                 const CellSurvey& survey, StoredSet& stored) {
  if (options.has_labels && !stored.has_labels) {
    stored.warnings.push_back(
        options.layout == layout_code::kRecordsInColumns
            ? "the set has no labels: with the layout columns the first line is tested for labels "
              "before it is turned, and it holds values"
            : "the first line was dropped, but not taken for labels: one of them is a number, or "
              "two are the same; the set has no labels (--no-labels keeps the line as a record)");
  }
  if (survey.blanks.first) {
    const CellPlace& place = *survey.blanks.first;
    stored.warnings.push_back(fmt::format(
        "blanks count as separators too: {} of the records have more columns than the {} gives, "
        "the first on line {}: {}",
        survey.blanks.count, choice.separator->name, place.line, Quoted(place.value)));
  }
}

}  // namespace

void RunLoad(const LoadOptions& options, Output& output) {
  const bool comma_is_decimal = UserHasDecimalComma();
  SeparatorChoice choice;
  const DelimitedText text = ReadDelimited(options, choice, comma_is_decimal);
  RequireValid(options, text, comma_is_decimal);
  const CellSurvey survey = SurveyCells(text, comma_is_decimal);
  StoredSet stored = StoreSet(options, text, survey);
  AddWarnings(options, choice, survey, stored);
  for (const std::string& warning : stored.warnings) Warn(warning);
  const LoadReport report{options, choice, survey, stored};
  output.Write(options.json ? LoadJson(report) : LoadText(report));
}

}  // namespace tslm5::host
