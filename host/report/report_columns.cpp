// The part of report_sections.h that tells of the columns.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "host/charts/html_text.h"
#include "host/charts/svg_chart.h"
#include "host/report/report_sections.h"

namespace tslm5::host {
namespace {

constexpr std::size_t kMostBarNames = 12;
constexpr std::int64_t kMostTicks = 5;

/// One column of a group, as a card tells it.
struct Card {
  const ReportData& data;
  const ReportGroup& group;
  std::size_t group_index;
  std::size_t column;
  DisplayBins bins;

  const std::string& Label() const { return group.Labels()[column]; }
  bool IsResponse() const {
    return group.Labels().size() > 1 && column + 1 == group.Labels().size();
  }
  std::string Id() const { return fmt::format("g{}-column-{}", group_index, column); }
};

/// The text of the category that has a code of its own; else the code.
std::string CodeText(const ReportData& data, std::int32_t column, double code) {
  const RunCategory* found = nullptr;
  for (const RunCategory& one : data.categories) {
    if (one.column != column || one.code != code) continue;
    if (found != nullptr) return FigureText(code);
    found = &one;
  }
  return found == nullptr ? FigureText(code) : found->text;
}

std::vector<std::size_t> SlotsOf(const ReportGroup& group) {
  return group.has_classes ? group.classes.SlotsInOrder() : std::vector<std::size_t>{0};
}

std::string Legend(const ReportData& data, const ReportGroup& group) {
  if (!group.has_classes) return {};
  const auto response = static_cast<std::int32_t>(group.Labels().size()) - 1;
  std::string html =
      fmt::format("<ul class=\"legend\"><li class=\"name\"><span>{}, the response:</span></li>",
                  HtmlLabel(group.Labels().back()));
  std::size_t colour = 0;
  for (const std::size_t slot : SlotsOf(group)) {
    const double value = group.classes.Values()[slot];
    const std::string text = std::isnan(value) ? "missing" : CodeText(data, response, value);
    html += fmt::format("<li><span class=\"key c{}\"></span>{}</li>", colour++, HtmlLabel(text));
  }
  return html + "</ul>\n";
}

std::int64_t Highest(const std::vector<ClassCounts>& counts) {
  std::int64_t highest = 1;
  for (const ClassCounts& one : counts) {
    highest = std::max(highest, std::accumulate(one.begin(), one.end(), std::int64_t{0}));
  }
  return highest;
}

/// How the values of one set are spread.
std::string Histogram(const Card& card, const ReportSet& set) {
  const ValueSketch& sketch = set.columns[card.column];
  std::string html = "<figure class=\"histogram\">";
  if (sketch.Bins().empty()) {
    return html +
           fmt::format("<figcaption>{}</figcaption><p class=\"empty\">no values</p></figure>",
                       set.name->name);
  }
  const std::vector<ClassCounts> counts = CountsIn(card.bins, sketch);
  const std::int64_t highest = Highest(counts);
  ChartWords words;
  words.id = fmt::format("{}-{}", card.Id(), set.name->name);
  words.title = fmt::format("{}, {} set: histogram", card.Label(), set.name->name);
  words.description = fmt::format(
      "{} from {} to {} in {}; the highest bar is {}.", Counted(sketch.Values(), "value"),
      FigureText(*sketch.Minimum()), FigureText(*sketch.Maximum()),
      Counted(static_cast<std::int64_t>(card.bins.count), "bar"), CountText(highest));
  html += fmt::format("<figcaption><span>{}</span><span>highest bar {}</span></figcaption>",
                      set.name->name, CountText(highest));
  return html + HistogramSvg(card.bins, counts, SlotsOf(card.group), highest, words) + "</figure>";
}

std::string AxisMark(double place, double width, const std::string& text) {
  return fmt::format("<span style=\"left:{:.2f}%;max-width:{:.2f}%\">{}</span>", 100.0 * place,
                     100.0 * width, text);
}

/// The name of every bar where there are few, else round numbers.
std::string Axis(const Card& card) {
  const DisplayBins& bins = card.bins;
  if (bins.count == 0) return {};
  std::string html = "<div class=\"axis\" aria-hidden=\"true\">";
  const auto count = static_cast<double>(bins.count);
  if (bins.is_discrete && bins.count <= kMostBarNames) {
    for (std::size_t i = 0; i < bins.count; ++i) {
      const std::string text =
          CodeText(card.data, static_cast<std::int32_t>(card.column), bins.Edge(i));
      html += AxisMark((static_cast<double>(i) + 0.5) / count, 1.0 / count, HtmlText(text));
    }
    return html + "</div>";
  }
  std::int64_t every = 1;
  for (const std::int64_t one : {1, 2, 4, 10, 20}) {
    every = bins.digit == 5 || one != 4 ? one : 5;
    if (static_cast<std::int64_t>(bins.count) <= every * kMostTicks) break;
  }
  for (std::size_t i = 0; i <= bins.count; ++i) {
    if ((bins.first + static_cast<std::int64_t>(i)) % every != 0) continue;
    if (bins.is_discrete && i == bins.count) continue;
    const double place = static_cast<double>(i) + (bins.is_discrete ? 0.5 : 0.0);
    html += AxisMark(place / count, 0.4, FigureText(bins.Edge(i)));
  }
  return html + "</div>";
}

std::string Badges(const Card& card) {
  const bool is_nominal = card.group.is_nominal[card.column];
  std::string html = fmt::format("<p class=\"badges\"><span class=\"badge\">{}</span>",
                                 is_nominal ? "categorical" : "numeric");
  if (card.IsResponse()) html += "<span class=\"badge response\">response</span>";
  return html + "</p>";
}

template <class Cell>
void AppendFigures(std::string& html, const Card& card, const char* title, Cell cell) {
  html += fmt::format("<tr><th scope=\"row\">{}</th>", title);
  for (const ReportSet& set : card.group.sets) {
    html += fmt::format("<td class=\"number\">{}</td>", cell(set));
  }
  html += "</tr>";
}

std::string Figures(const Card& card) {
  std::string html =
      "<table class=\"figures\"><thead><tr><th scope=\"col\"><span "
      "class=\"hidden\">Figure</span></th>";
  for (const ReportSet& set : card.group.sets) {
    html += fmt::format("<th scope=\"col\" class=\"number\">{}</th>", set.name->name);
  }
  html += "</tr></thead><tbody>";
  const std::pair<const char*, std::optional<double> RunFigures::*> figures[] = {
      {"Mean", &RunFigures::centroid},       {"Median", &RunFigures::medoid},
      {"Deviation", &RunFigures::deviation}, {"Minimum", &RunFigures::minimum},
      {"Maximum", &RunFigures::maximum},
  };
  for (const auto& [title, figure] : figures) {
    const auto member = figure;
    AppendFigures(html, card, title, [&card, member](const ReportSet& set) {
      return HtmlFigure(set.figures[card.column].*member);
    });
  }
  AppendFigures(html, card, "Missing", [&card](const ReportSet& set) {
    const std::int64_t missing = set.columns[card.column].Missing();
    if (missing == 0) return HtmlCount(0);
    return fmt::format("<span class=\"share\">{}</span> {}", ShareText(missing, set.rows),
                       HtmlCount(missing));
  });
  return html + "</tbody></table>";
}

std::string CardHtml(const Card& card) {
  std::string html = fmt::format(
      "<article class=\"card column\" id=\"{}\"><header><h3>{}</h3>{}"
      "</header>",
      card.Id(), HtmlLabel(card.Label()), Badges(card));
  for (const ReportSet& set : card.group.sets) html += Histogram(card, set);
  return html + Axis(card) + Figures(card) + "</article>\n";
}

/// "Training and testing set".
std::string GroupTitle(const ReportGroup& group) {
  const std::string title = SetTitle(*group.sets.front().name);
  if (group.sets.size() == 1) return title + " set";
  return fmt::format("{} and {} set", title, group.sets.back().name->name);
}

}  // namespace

std::string ColumnsSection(const ReportData& data) {
  std::string html;
  bool has_statistics = true;
  for (const ReportGroup& group : data.groups) {
    for (const ReportSet& set : group.sets) has_statistics = has_statistics && set.has_statistics;
  }
  if (!has_statistics && !data.groups.empty()) {
    html +=
        "<p class=\"note\">The run does not keep the statistics of every set; where it does not, "
        "there is no median. <code>tslm5 stats</code> computes them.</p>\n";
  }
  for (std::size_t g = 0; g < data.groups.size(); ++g) {
    const ReportGroup& group = data.groups[g];
    if (data.groups.size() > 1) {
      html += fmt::format("<h3 class=\"group\">{}</h3>\n", GroupTitle(group));
    }
    html += Legend(data, group) + "<div class=\"cards\">\n";
    for (std::size_t column = 0; column < group.Labels().size(); ++column) {
      std::vector<const ValueSketch*> sketches;
      for (const ReportSet& set : group.sets) sketches.push_back(&set.columns[column]);
      html += CardHtml({data, group, g, column, ChooseBins(sketches)});
    }
    html += "</div>\n";
  }
  return html;
}

}  // namespace tslm5::host
