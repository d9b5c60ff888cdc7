#include "host/report/report_page.h"

#include <fmt/format.h>

#include <filesystem>
#include <utility>
#include <vector>

#include "host/charts/html_text.h"
#include "host/program/common_options.h"
#include "host/report/report_sections.h"
#include "host/report/report_style.h"
#include "tslm5/contracts/codes.h"

namespace tslm5::host {
namespace {

struct Part {
  const char* id;
  const char* title;
  std::string html;
};

/// What the run is, in one line under its name.
std::string Lead(const ReportData& data) {
  if (data.groups.empty()) return "A run without sets.";
  const bool is_series = data.problem == problem_category::kTimeSeries;
  std::string line = is_series ? "Time series" : Capitalised(ProblemName(data.problem));
  std::int64_t rows = 0;
  for (const ReportGroup& group : data.groups) {
    for (const ReportSet& set : group.sets) rows += set.rows;
  }
  line += fmt::format(
      ", {} of {}", Counted(rows, "record"),
      Counted(static_cast<std::int64_t>(data.groups.front().Labels().size()), "column"));
  if (data.scale.type != normalization_type::kNone) {
    line += fmt::format(", numeric inputs normalised ({})", ScaleText(data.scale));
  }
  return line + ".";
}

std::string Head(const std::string& name) {
  std::string html = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n";
  html += std::string(kReportMark) + TSLM5_VERSION "\">\n";
  // Nothing may be fetched and no script may run, whatever a text of the data says.
  html +=
      "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src "
      "'unsafe-inline'\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
      "<meta name=\"color-scheme\" content=\"light dark\">\n";
  html += fmt::format("<title>{} \u2013 run report</title>\n<style>{}</style>\n</head>\n",
                      HtmlText(name), kReportStyle);
  return html;
}

}  // namespace

std::string ReportPage(const ReportData& data, std::string_view time) {
  const std::vector<Part> parts = {
      {"sets", "Sets", SetsSection(data)},
      {"series", "Series", SeriesSection(data)},
      {"columns", "Columns", ColumnsSection(data)},
      {"categories", "Categories", CategoriesSection(data)},
      {"missing", "Missing values", MissingSection(data)},
      {"history", "History", HistorySection(data)},
  };
  const std::string name = std::filesystem::path(data.run).filename().string();
  std::string html = Head(name);
  html += "<body>\n<div class=\"page\">\n<header>\n<p class=\"eyebrow\">Run report</p>\n";
  html +=
      fmt::format("<h1>{}</h1>\n<p class=\"lead\">{}</p>\n", HtmlLabel(name), HtmlText(Lead(data)));
  html += "<nav aria-label=\"Parts of the report\">";
  for (const Part& part : parts) {
    if (part.html.empty()) continue;
    html += fmt::format("<a href=\"#{}\">{}</a>", part.id, part.title);
  }
  html += "</nav>\n</header>\n<main>\n";
  for (const Part& part : parts) {
    if (part.html.empty()) continue;
    html += fmt::format(
        "<section id=\"{0}\" aria-labelledby=\"{0}-title\">\n<h2 id=\"{0}-title\">{1}</h2>\n"
        "{2}</section>\n",
        part.id, part.title, part.html);
  }
  html += fmt::format(
      "</main>\n<footer>Written by tslm5 {} on {} from the run {}, "
      "schema version {}.</footer>\n</div>\n</body>\n</html>\n",
      TSLM5_VERSION, HtmlTime(time), HtmlLabel(data.run), data.schema_version);
  return html;
}

}  // namespace tslm5::host
