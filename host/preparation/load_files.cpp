#include "host/preparation/load_files.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/preparation/cell_rule.h"
#include "host/preparation/file_check.h"
#include "host/preparation/label_list.h"
#include "host/program/failure.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

constexpr int kRecordsLookedAt = 100;
constexpr std::string_view kEmptyRows = "The data contains empty rows.";
constexpr std::string_view kAdvice =
    " (tslm5 check --all tells every problem; --no-check loads without the check)";

/// Whether the check was refused for what stands in its rows, which the table of fields knows
/// better: a word may hold blanks.
bool IsAboutRows(CheckCode code) {
  return IsAboutFields(code) || code == CheckCode::kFieldCount || code == CheckCode::kEmptyLine ||
         code == CheckCode::kNoRecords;
}

/// Whether the first records show that the text does not hold numbers alone.
bool ShowsWords(const DelimitedText& text, bool comma_is_decimal) {
  const CellRule rule(comma_is_decimal, {});
  RecordReader reader(text);
  std::vector<std::string_view> cells;
  for (int looked_at = 0; looked_at < kRecordsLookedAt && reader.Next(); ++looked_at) {
    SplitAtBlanks(reader.Clean(), cells);
    const bool is_plain = std::all_of(cells.begin(), cells.end(), [&rule](std::string_view cell) {
      return rule.Classify(cell) == CellClass::kNumber;
    });
    if (!is_plain) return true;
  }
  return false;
}

SeparatorChoice ChooseSeparator(const LoadOptions& options, std::string_view text,
                                bool comma_is_decimal) {
  if (options.separator != nullptr) return {options.separator, "as asked for"};
  SeparatorChoice choice = GuessSeparator(text, comma_is_decimal);
  RequireGuess(choice);
  const bool is_none = choice.separator->code == separator_code::kNone;
  if (is_none && options.layout == layout_code::kRecordsInColumns) {
    Refuse(
        "no separator gives the same number of fields in every line; with the layout "
        "columns one is needed (--separator)");
  }
  return choice;
}

}  // namespace

void RequireGuess(const SeparatorChoice& choice) {
  if (!choice.is_comma_passed_over) return;
  Refuse(
      "every line holds commas, but in your locale they are decimal separators; say "
      "--separator comma, or --separator none for one column");
}

FieldFile ReadTextOf(const LoadOptions& options, const std::string& file, bool comma_is_decimal) {
  FieldFile read;
  read.source = std::make_shared<TextSource>(file);
  read.source->RequireText();
  DelimitedText& text = read.text;
  text.text = read.source->Text();
  text.path = read.source->Path();
  read.separator = ChooseSeparator(options, text.text, comma_is_decimal);
  text.separator = read.separator.separator;
  text.has_label_line = options.has_labels;
  text.is_transposed = options.layout == layout_code::kRecordsInColumns;
  if (text.is_transposed) {
    read.transposed = std::make_shared<std::string>(Transposed(text.text, *text.separator));
    text.text = *read.transposed;
  }
  return read;
}

std::optional<CellSurvey> SurveyNumbers(const DelimitedText& text, bool comma_is_decimal) {
  if (ShowsWords(text, comma_is_decimal)) return std::nullopt;
  try {
    CellSurvey survey = SurveyCells(text, comma_is_decimal);
    if (survey.text.count == 0 && survey.missing.count == 0) return survey;
  } catch (const Failure& failure) {
    if (failure.Code() == ExitCode::kInterrupted) throw;
  }
  return std::nullopt;
}

void RequireStructure(const LoadOptions& options, const FieldFile& fields) {
  if (!options.checks || fields.text.is_transposed) return;
  CheckRequest request;
  request.path = fields.text.path;
  request.separator = fields.text.separator;
  request.has_labels = options.has_labels;
  request.lines = fields.table.lines;
  const DataCheckResult result = CheckFile(request);
  if (result.is_valid) return;
  const DataCheckFinding& finding = result.findings.front();
  if (!IsAboutRows(finding.code)) {
    Refuse(fmt::format("{}{}{}", PlaceOf(finding), Escaped(OneLine(finding.message)), kAdvice));
  }
  if (!fields.table.first_gap) return;
  Refuse(
      fmt::format("line {}: Invalid Training. {}{}", *fields.table.first_gap, kEmptyRows, kAdvice));
}

void PlaceResponse(FieldTable& table, const std::string& name) {
  if (name.empty()) return;
  std::vector<std::string> names;
  for (std::size_t column = 0; column < table.columns; ++column) {
    names.push_back(table.LabelOf(column));
  }
  for (const bool by_label : {true, false}) {
    for (std::size_t column = 0; column < table.columns; ++column) {
      if (name != (by_label ? names[column] : fmt::format("d{}", column))) continue;
      return MoveToEnd(table, column);
    }
  }
  Misuse(fmt::format("--response: there is no column {}; the labels are {}", Quoted(name),
                     LabelList(names)));
}

CellSurvey SurveyFields(const FieldTable& table, const CellRule& rule) {
  CellSurvey survey;
  survey.lines = table.lines;
  survey.records = static_cast<std::int64_t>(table.Records());
  survey.label_lines = table.label_lines;
  survey.empty_lines = table.empty_lines;
  survey.columns = table.columns;
  survey.missing_by_column.assign(table.columns, 0);
  for (std::size_t record = 0; record < table.Records(); ++record) {
    for (std::size_t column = 0; column < table.columns; ++column) {
      const std::string_view cell = table.Field(record, column);
      const CellClass kind = rule.Classify(cell);
      if (cell.size() > 1 && cell.front() == '"' && cell.back() == '"') {
        survey.quoted.Note(table.places[record], column, cell);
      }
      if (kind == CellClass::kWord) survey.text.Note(table.places[record], column, cell);
      if (kind != CellClass::kMissing) continue;
      survey.missing.Note(table.places[record], column, cell);
      ++survey.missing_by_column[column];
    }
  }
  return survey;
}

}  // namespace tslm5::host
