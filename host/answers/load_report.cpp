#include "host/answers/load_report.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/answers/dialect_text.h"
#include "host/answers/preparation_report.h"
#include "host/preparation/label_list.h"
#include "host/program/json_text.h"
#include "host/program/shown_text.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

std::string Count(std::int64_t count, std::string_view one, std::string_view many) {
  return fmt::format("{} {}", count, count == 1 ? one : many);
}

std::string LineWord(const LoadReport& report) {
  return report.options.layout == layout_code::kRecordsInColumns ? "transposed line" : "line";
}

/// Where a cell's column is in the file, from 1.
std::size_t FileColumn(const LoadReport& report, std::size_t column) {
  return 1 + (report.fields == nullptr ? column : report.fields->file_columns[column]);
}

std::string Place(const LoadReport& report, const CellPlace& place) {
  const std::string label =
      place.column < report.stored.labels.size() ? report.stored.labels[place.column] : "";
  return fmt::format("{} {}, column {} ({}): {}", LineWord(report), place.line,
                     FileColumn(report, place.column), Cut(label), Quoted(place.value));
}

/// " for training, 3 for testing"; nothing when one set was stored alone.
std::string SetsText(const LoadReport& report) {
  if (!report.stored.testing_rows) return {};
  std::string text = fmt::format(" for training, {} for testing", *report.stored.testing_rows);
  if (report.prepared->share) {
    text += fmt::format(" (drawn: share {}, seed {})", NumberText(report.prepared->share->share),
                        report.prepared->share->seed);
  }
  return text;
}

/// "3 text cells, encoded; the first: line 4, column 2 (mpg): "NA""; nothing when there are none.
/// `noun` is in the singular.
std::string Cells(const LoadReport& report, std::string_view title, const CellKind& kind,
                  std::string_view noun, std::string_view what) {
  if (!kind.first) return {};
  return fmt::format("{:<10} {} {}{}{}; the first: {}\n", title, kind.count, noun,
                     kind.count == 1 ? "" : "s", what, Place(report, *kind.first));
}

nlohmann::ordered_json CellJson(const LoadReport& report, const CellKind& kind) {
  if (!kind.first) return nullptr;
  const CellPlace& place = *kind.first;
  const bool has_label = place.column < report.stored.labels.size();
  return {{"line", place.line},
          {"column", FileColumn(report, place.column)},
          {"label", has_label ? report.stored.labels[place.column] : ""},
          {"value", place.value}};
}

}  // namespace

std::string LoadText(const LoadReport& report) {
  const CellSurvey& survey = report.survey;
  const StoredSet& stored = report.stored;
  std::string text = fmt::format("{} is the {} set of {}\n", Escaped(report.options.file),
                                 report.options.set->name, Escaped(report.options.run));
  text +=
      fmt::format("separator  {}: {}\n", report.separator.separator->name, report.separator.reason);
  text += fmt::format("lines      {} read = {} + {} + {}\n", survey.lines,
                      Count(survey.records, "record", "records"),
                      Count(survey.label_lines, "label line", "label lines"),
                      Count(survey.empty_lines, "empty line", "empty lines"));
  text += fmt::format("records    {} stored{}\n", stored.rows, SetsText(report));
  text += fmt::format("columns    {}: {}\n", stored.columns, LabelList(stored.labels));
  text += Cells(report, "missing", survey.missing, "cell", " without a value, kept as missing");
  text += Cells(report, "text", survey.text, "text cell", ", encoded");
  text += Cells(report, "changed", survey.changed, "cell", " lost a tab or a semicolon");
  if (report.prepared != nullptr) text += PreparationText(*report.prepared);
  return text;
}

std::string LoadJson(const LoadReport& report) {
  const CellSurvey& survey = report.survey;
  const StoredSet& stored = report.stored;
  const DelimitedDialect dialect = report.dialect == nullptr ? DelimitedDialect{} : *report.dialect;
  const bool is_transposed = report.options.layout == layout_code::kRecordsInColumns;
  return JsonText(
      {{"run", report.options.run},
       {"set", report.options.set->name},
       {"file", report.options.file},
       {"separator", report.separator.separator->name},
       {"decimal", dialect.decimal == ',' ? "comma" : "point"},
       {"encoding", dialect.encoding},
       {"skippedLines", dialect.preamble_lines},
       {"layout", is_transposed ? "columns" : "rows"},
       {"lines", survey.lines},
       {"rows", stored.rows},
       {"labelLines", survey.label_lines},
       {"emptyLines", survey.empty_lines},
       {"columns", stored.columns},
       {"hasLabels", stored.has_labels},
       {"labels", stored.labels},
       {"missingCells", survey.missing.count},
       {"textCells", survey.text.count},
       {"changedCells", survey.changed.count},
       {"firstMissingCell", CellJson(report, survey.missing)},
       {"firstTextCell", CellJson(report, survey.text)},
       {"firstChangedCell", CellJson(report, survey.changed)},
       {"warnings", stored.warnings},
       {"preparation", report.prepared == nullptr ? nlohmann::ordered_json()
                                                  : PreparationJson(*report.prepared)}});
}

}  // namespace tslm5::host
