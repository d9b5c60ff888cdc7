#include "host/answers/check_report.h"

#include <fmt/format.h>

#include "host/program/json_text.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

template <class T>
nlohmann::ordered_json OrNull(const std::optional<T>& value) {
  return value ? nlohmann::ordered_json(*value) : nlohmann::ordered_json();
}

std::string Problems(const CheckReport& report) {
  std::string text;
  for (const Problem& problem : report.problems.first) {
    text += PlaceOf(problem) + Escaped(OneLine(problem.message)) + "\n";
  }
  const auto shown = static_cast<std::int64_t>(report.problems.first.size());
  if (report.all && shown < report.problems.count) {
    text += fmt::format("and {} more problems; --max {} shows them all\n",
                        report.problems.count - shown, report.problems.count);
  }
  return text;
}

/// Whether a problem that is told is a value that is no number, and not the shape of the file.
bool TellsOfValues(const CheckReport& report) {
  for (const Problem& problem : report.problems.first) {
    for (const std::string_view words : {" is invalid: ", "non-numeric values", "missing values"}) {
      if (problem.message.find(words) != std::string::npos) return true;
    }
  }
  return false;
}

std::string Verdict(const CheckReport& report) {
  const std::string file = Escaped(report.file);
  if (report.answer.is_valid) {
    return fmt::format("{} is valid: {} records of {} columns\n", file, report.problems.records,
                       report.problems.columns);
  }
  if (!report.all) return fmt::format("{} is not valid\n", file);
  return fmt::format("{} is not valid: {} problem{}\n", file, report.problems.count,
                     report.problems.count == 1 ? "" : "s");
}

}  // namespace

std::string CheckText(const CheckReport& report) {
  std::string text = Verdict(report);
  text +=
      fmt::format("separator  {}: {}\n", report.separator.separator->name, report.separator.reason);
  if (const CellKind& changed = report.problems.changed; changed.first) {
    text += fmt::format(
        "changed    {} cells lose a tab or a semicolon when they are loaded, the "
        "first on line {}, column {}: {}\n",
        changed.count, changed.first->line, changed.first->column + 1,
        Quoted(changed.first->value));
  }
  text += Problems(report);
  if (TellsOfValues(report)) {
    text +=
        "note       words and missing values do not keep tslm5 load from a file: it codes the "
        "words "
        "and keeps a missing input as missing\n";
  }
  return text;
}

std::string CheckJson(const CheckReport& report) {
  nlohmann::ordered_json object = {{"file", report.file},
                                   {"separator", report.separator.separator->name},
                                   {"valid", report.answer.is_valid},
                                   {"message", report.answer.message},
                                   {"row", OrNull(report.answer.row)},
                                   {"column", OrNull(report.answer.column)},
                                   {"rows", report.answer.rows},
                                   {"changedCells", report.problems.changed.count}};
  if (report.all) {
    object["problemCount"] = report.problems.count;
    object["problems"] = nlohmann::ordered_json::array();
    for (const Problem& problem : report.problems.first) {
      object["problems"].push_back({{"line", OrNull(problem.line)},
                                    {"record", OrNull(problem.record)},
                                    {"column", OrNull(problem.column)},
                                    {"label", OrNull(problem.label)},
                                    {"value", problem.value},
                                    {"message", problem.message}});
    }
  }
  return JsonText(object);
}

}  // namespace tslm5::host
