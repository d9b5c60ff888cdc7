#include "host/answers/check_report.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "host/program/json_text.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

template <class T>
nlohmann::ordered_json OrNull(const std::optional<T>& value) {
  return value ? nlohmann::ordered_json(*value) : nlohmann::ordered_json();
}

/// A number of a place, of which 0 is none.
nlohmann::ordered_json OrNull(std::int64_t number) {
  return number != 0 ? nlohmann::ordered_json(number) : nlohmann::ordered_json();
}

/// The findings to be shown: all that were kept, or the first alone.
const std::vector<DataCheckFinding>& Findings(const CheckReport& report) {
  return (report.all ? report.whole : report.result).findings;
}

std::string FindingLines(const CheckReport& report) {
  std::string text;
  for (const DataCheckFinding& finding : Findings(report)) {
    text += PlaceOf(finding) + Escaped(OneLine(finding.message)) + "\n";
  }
  const auto shown = static_cast<std::int64_t>(Findings(report).size());
  if (report.all && shown < report.whole.count) {
    text += fmt::format("and {} more problems; --max {} shows them all\n",
                        report.whole.count - shown, report.whole.count);
  }
  return text;
}

/// Whether a finding that is shown is a value that is no number, and not the shape of the file.
bool TellsOfValues(const CheckReport& report) {
  const auto& findings = Findings(report);
  return std::any_of(findings.begin(), findings.end(),
                     [](const DataCheckFinding& finding) { return IsAboutFields(finding.code); });
}

std::string Verdict(const CheckReport& report) {
  const std::string file = Escaped(report.file);
  if (report.result.is_valid) {
    return fmt::format("{} is valid: {} records of {} columns\n", file, report.result.records,
                       report.result.columns);
  }
  if (!report.all) return fmt::format("{} is not valid\n", file);
  return fmt::format("{} is not valid: {} problem{}\n", file, report.whole.count,
                     report.whole.count == 1 ? "" : "s");
}

/// The place that `IDataSet::InvalidPosition` has for a finding: of a record, or of a field.
bool HasInvalidRow(const DataCheckFinding& finding) {
  return finding.code == CheckCode::kText || finding.code == CheckCode::kMissingValue ||
         finding.code == CheckCode::kFieldCount;
}

/// The records before the one that was refused; all of a valid text.
std::int64_t PassedRecords(const DataCheckResult& result) {
  if (result.findings.empty()) return result.records;
  return std::max<std::int64_t>(result.findings.front().record - 1, 0);
}

}  // namespace

std::string CheckText(const CheckReport& report) {
  std::string text = Verdict(report);
  text +=
      fmt::format("separator  {}: {}\n", report.separator.separator->name, report.separator.reason);
  if (const auto& changed = report.whole.first_changed) {
    text += fmt::format(
        "changed    {} cells lose a tab or a semicolon when they are loaded, the "
        "first on line {}, column {}: {}\n",
        report.whole.changed_count, changed->line, changed->column, Quoted(changed->value));
  }
  text += FindingLines(report);
  if (TellsOfValues(report)) {
    text +=
        "note       words and missing values do not keep tslm5 load from a file: it codes the "
        "words "
        "and keeps a missing input as missing\n";
  }
  return text;
}

std::string CheckJson(const CheckReport& report) {
  const DataCheckFinding none;
  const auto& findings = report.result.findings;
  const DataCheckFinding& first = findings.empty() ? none : findings.front();
  const bool has_row = HasInvalidRow(first);
  nlohmann::ordered_json object = {{"file", report.file},
                                   {"separator", report.separator.separator->name},
                                   {"valid", report.result.is_valid},
                                   {"message", first.message},
                                   {"row", OrNull(has_row ? first.record : 0)},
                                   {"column", OrNull(has_row ? first.column : 0)},
                                   {"rows", PassedRecords(report.result)},
                                   {"changedCells", report.whole.changed_count}};
  if (report.all) {
    object["problemCount"] = report.whole.count;
    object["problems"] = nlohmann::ordered_json::array();
    for (const DataCheckFinding& finding : report.whole.findings) {
      object["problems"].push_back({{"line", OrNull(finding.line)},
                                    {"record", OrNull(finding.record)},
                                    {"column", OrNull(finding.column)},
                                    {"label", OrNull(finding.label)},
                                    {"value", Cut(finding.value)},
                                    {"message", finding.message}});
    }
  }
  return JsonText(object);
}

}  // namespace tslm5::host
