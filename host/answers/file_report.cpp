#include "host/answers/file_report.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/answers/dialect_text.h"
#include "host/program/json_text.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

std::string Verdict(const FileReport& report) {
  const std::string path = Escaped(report.path);
  const DelimitedFile& file = report.file;
  if (file.fault_count == 0) {
    return fmt::format("{} is valid: {} record{} of {} column{}\n", path, file.survey.records,
                       file.survey.records == 1 ? "" : "s", file.survey.columns,
                       file.survey.columns == 1 ? "" : "s");
  }
  if (!report.shown) return fmt::format("{} is not valid\n", path);
  return fmt::format("{} is not valid: {} problem{}\n", path, file.fault_count,
                     file.fault_count == 1 ? "" : "s");
}

std::size_t Shown(const FileReport& report) {
  return std::min(report.shown.value_or(1), report.file.faults.size());
}

std::string Cells(const FileReport& report, std::string_view title, const CellKind& kind,
                  std::string_view what) {
  if (!kind.first) return {};
  const CellPlace& place = *kind.first;
  const std::vector<std::string>& labels = report.file.labels;
  const std::string label =
      place.column < labels.size() ? fmt::format(" ({})", Cut(labels[place.column])) : "";
  return fmt::format("{:<10} {} cell{} {}; the first: line {}, column {}{}: {}\n", title,
                     kind.count, kind.count == 1 ? "" : "s", what, place.line, place.column + 1,
                     label, Quoted(place.value));
}

}  // namespace

std::string FileText(const FileReport& report) {
  const DelimitedFile& file = report.file;
  std::string text = Verdict(report);
  if (file.survey.columns > 0) {
    text +=
        fmt::format("separator  {}: {}\n", SeparatorOf(file.dialect).name,
                    report.is_asked_for ? "as asked for"
                    : file.survey.columns == 1
                        ? "every record is one field"
                        : fmt::format("it gives {} fields in each record", file.survey.columns));
  }
  text += DialectText(file.dialect);
  for (std::size_t i = 0; i < Shown(report); ++i) text += Escaped(file.faults[i].words) + "\n";
  if (report.shown && file.fault_count > static_cast<std::int64_t>(Shown(report))) {
    text += fmt::format("and {} more problems\n",
                        file.fault_count - static_cast<std::int64_t>(Shown(report)));
  }
  if (file.fault_count > 0) return text;
  text += Cells(report, "missing", file.survey.missing, "without a value, kept as missing");
  text += Cells(report, "words", file.survey.text, "with a word, coded");
  return text;
}

std::string FileJson(const FileReport& report) {
  const DelimitedFile& file = report.file;
  nlohmann::ordered_json warnings = nlohmann::ordered_json::array();
  for (const TextNote& note : file.notes) warnings.push_back(note.words);
  nlohmann::ordered_json object = {
      {"file", report.path},
      {"valid", file.fault_count == 0},
      {"message", file.faults.empty() ? "" : file.faults.front().words},
      {"separator", file.survey.columns == 0
                        ? nlohmann::ordered_json()
                        : nlohmann::ordered_json(SeparatorOf(file.dialect).name)},
      {"decimal", file.dialect.decimal == ',' ? "comma" : "point"},
      {"encoding", file.dialect.encoding},
      {"skippedLines", file.dialect.preamble_lines},
      {"labels", file.labels},
      {"rows", file.survey.records},
      {"columns", file.survey.columns},
      {"missingCells", file.survey.missing.count},
      {"textCells", file.survey.text.count},
      {"warnings", warnings}};
  if (report.shown) {
    object["problemCount"] = file.fault_count;
    object["problems"] = nlohmann::ordered_json::array();
    for (std::size_t i = 0; i < Shown(report); ++i) {
      object["problems"].push_back(
          {{"line", file.faults[i].line}, {"message", file.faults[i].words}});
    }
  }
  return JsonText(object);
}

}  // namespace tslm5::host
