#include "host/answers/stats_report.h"

#include <fmt/format.h>

#include "host/program/json_text.h"
#include "host/program/shown_text.h"
#include "host/program/text_table.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

std::string FigureText(const std::optional<double>& figure) {
  return figure ? fmt::format("{:.6g}", *figure) : "-";
}

std::string LabelOf(const StatsReport& report, std::int32_t column) {
  const auto index = static_cast<std::size_t>(column);
  return index < report.labels.size() ? report.labels[index] : fmt::format("d{}", column);
}

std::string ColumnTable(const StatsReport& report) {
  constexpr std::size_t kFigures = 5;
  std::vector<TableLine> lines = {{"column", "mean", "median", "minimum", "maximum", "deviation"}};
  for (std::size_t i = 0; i < report.columns.size(); ++i) {
    const RunFigures& column = report.columns[i];
    TableLine line = {Cut(LabelOf(report, column.column)), FigureText(column.centroid),
                      FigureText(column.medoid),           FigureText(column.minimum),
                      FigureText(column.maximum),          FigureText(column.deviation)};
    if (i < report.histograms.size()) line.push_back(report.histograms[i]);
    lines.push_back(std::move(line));
  }
  return AlignedTable(lines, kFigures);
}

std::string ClassTable(const StatsReport& report, const RunClassFigures& one) {
  constexpr std::size_t kFigures = 4;
  std::vector<TableLine> lines = {{"column", "mean", "median", "minimum", "maximum"}};
  for (const RunFigures& column : one.columns) {
    lines.push_back({Cut(LabelOf(report, column.column)), FigureText(column.centroid),
                     FigureText(column.medoid), FigureText(column.minimum),
                     FigureText(column.maximum)});
  }
  return fmt::format("\nclass {}: {} record{}\n", NumberText(one.value), one.records,
                     one.records == 1 ? "" : "s") +
         AlignedTable(lines, kFigures);
}

nlohmann::ordered_json Figure(const std::optional<double>& figure) {
  return figure ? nlohmann::ordered_json(*figure) : nlohmann::ordered_json();
}

nlohmann::ordered_json ColumnsJson(const StatsReport& report,
                                   const std::vector<RunFigures>& columns, bool of_class) {
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (const RunFigures& column : columns) {
    nlohmann::ordered_json one = {{"index", column.column},
                                  {"label", LabelOf(report, column.column)},
                                  {"centroid", Figure(column.centroid)},
                                  {"medoid", Figure(column.medoid)},
                                  {"minimum", Figure(column.minimum)},
                                  {"maximum", Figure(column.maximum)}};
    if (!of_class) one["standardDeviation"] = Figure(column.deviation);
    list.push_back(std::move(one));
  }
  return list;
}

}  // namespace

std::string StatsText(const StatsReport& report) {
  std::string text = ColumnTable(report);
  if (!report.by_class) return text;
  if (report.classes.empty()) {
    text += "\nno figures by class: the response has more than two values\n";
  }
  for (const RunClassFigures& one : report.classes) text += ClassTable(report, one);
  return text;
}

std::string StatsJson(const StatsReport& report) {
  nlohmann::ordered_json object = {{"set", report.set},
                                   {"columns", ColumnsJson(report, report.columns, false)}};
  if (report.by_class) {
    object["classes"] = nlohmann::ordered_json::array();
    for (const RunClassFigures& one : report.classes) {
      object["classes"].push_back({{"class", one.value},
                                   {"recordCount", one.records},
                                   {"columns", ColumnsJson(report, one.columns, true)}});
    }
  }
  return JsonText(object);
}

}  // namespace tslm5::host
