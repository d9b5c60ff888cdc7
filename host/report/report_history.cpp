// The part of report_sections.h that tells what was done to the run.
#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "host/answers/history_steps.h"
#include "host/charts/html_text.h"
#include "host/report/report_sections.h"

namespace tslm5::host {
namespace {

std::string Term(const std::string& name, const std::string& value) {
  return fmt::format("<div><dt>{}</dt><dd>{}</dd></div>", HtmlText(name), HtmlLabel(value));
}

std::string Step(const HistoryEntry& entry, const std::string& run) {
  std::string html = fmt::format("<li><h3>{} {}</h3><dl class=\"terms\">", HtmlText(entry.command),
                                 HtmlTime(entry.time));
  if (entry.set != 0) html += Term("set", StepSet(entry));
  if (!entry.file.empty()) html += Term("file", entry.file);
  const nlohmann::ordered_json parameters = StepParameters(entry);
  for (const auto& [name, value] : parameters.items()) {
    html += Term(name, StepValue(value));
  }
  html += "</dl>";
  const std::string line = StepCommandLine(entry, run);
  if (!line.empty()) html += fmt::format("<pre><code>{}</code></pre>", HtmlText(line));
  return html + "</li>\n";
}

}  // namespace

std::string HistorySection(const ReportData& data) {
  if (data.history.empty()) return {};
  std::string html =
      "<p class=\"note\">What was done to the run, the first step first, each with the command "
      "that does it again.</p>\n<ol class=\"steps\">\n";
  for (const HistoryEntry& entry : data.history) html += Step(entry, data.run);
  return html + "</ol>\n";
}

}  // namespace tslm5::host
