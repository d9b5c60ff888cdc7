#include "host/preparation/load_files.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "host/preparation/label_list.h"
#include "host/program/failure.h"
#include "host/program/shown_text.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

/// Whether the first field of every line is a text, and another one a number, so that the lines of
/// a file of columns begin with their labels.
bool BeginsWithLabels(const FieldTable& table) {
  double number = 0.0;
  bool has_number = false;
  for (std::size_t line = 0; line < table.Records(); ++line) {
    const std::string_view first = table.Field(line, 0);
    if (first.empty() || ParseNumber(first, table.decimal, number)) return false;
    for (std::size_t i = 1; i < table.columns && !has_number; ++i) {
      has_number = ParseNumber(table.Field(line, i), table.decimal, number);
    }
  }
  return has_number;
}

}  // namespace

DelimitedOptions DialectOptions(const LoadOptions& options) {
  DelimitedOptions dialect = options.dialect;
  if (options.separator != nullptr) dialect.separator = options.separator->character;
  if (!options.has_labels) dialect.has_header = false;
  if (options.layout == layout_code::kRecordsInColumns) dialect.has_header = false;
  dialect.missing_tokens = options.missing_tokens;
  return dialect;
}

FieldTable ReadFields(const LoadOptions& options, const DelimitedFile& file) {
  FieldTable table = ReadTable(file);
  if (options.layout != layout_code::kRecordsInColumns) return table;
  if (table.columns == 1 && options.separator == nullptr) {
    Refuse(
        "no separator gives the same number of fields in every line; with the layout columns one "
        "is needed (--separator)");
  }
  const bool has_labels =
      options.has_labels && (options.dialect.has_header.value_or(false) || BeginsWithLabels(table));
  if (has_labels && table.columns == 1) {
    throw Failure(ExitCode::kRefused, "there are no records behind the labels");
  }
  FieldTable turned = Turned(table, has_labels);
  if (turned.columns > kMostColumns) {
    throw Failure(ExitCode::kRefused,
                  fmt::format("the file has {} lines, which are columns; a run holds {} at most",
                              turned.columns, kMostColumns));
  }
  return turned;
}

SeparatorChoice ChoiceOf(const LoadOptions& options, const DelimitedFile& file) {
  const Separator& separator = SeparatorOf(file.dialect);
  if (options.separator != nullptr) return {&separator, "as asked for"};
  const std::size_t fields = file.survey.columns;
  return {&separator, fields == 1 ? "every record is one field"
                                  : fmt::format("it gives {} fields in each record", fields)};
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
