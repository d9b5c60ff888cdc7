#include "host/report/report_sections.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/charts/html_text.h"
#include "host/charts/svg_chart.h"
#include "host/preparation/replacement_type.h"

namespace tslm5::host {
namespace {

std::string SourceText(const ReportSet& set) {
  if (!set.load) return "The run does not tell where it comes from.";
  return fmt::format("Loaded from {} on {}.", HtmlLabel(set.load->file), HtmlTime(set.load->time));
}

std::string SetCard(const ReportSet& set) {
  const auto columns = static_cast<std::int64_t>(set.labels.size());
  std::string html = fmt::format(
      "<article class=\"card set\" id=\"set-{0}\"><header><h3>{1} set</h3></header><dl "
      "class=\"shape\"><div><dt>records</dt><dd>{2}</dd></div><div><dt>columns</dt><dd>{3}</dd>"
      "</div><div><dt>missing cells</dt><dd>{4}</dd></div></dl>",
      set.name->name, SetTitle(*set.name), HtmlCount(set.rows), HtmlCount(columns),
      ShareText(set.Missing(), set.rows * columns));
  html += fmt::format("<p class=\"source\">{}{}</p></article>\n", SourceText(set),
                      set.has_labels ? "" : " Its labels are generated.");
  return html;
}

std::string SeriesFigure(const ReportSet& set) {
  const SeriesSketch& series = *set.series;
  const AxisTicks ticks = ChooseTicks(series.Low(), series.High());
  ChartWords words;
  words.id = fmt::format("series-{}", set.name->name);
  words.title = fmt::format("{}, {} set: line over the records", set.labels.back(), set.name->name);
  words.description = fmt::format("{} from {} to {}.", Counted(series.Records(), "record"),
                                  FigureText(series.Low()), FigureText(series.High()));
  std::string html = fmt::format(
      "<figure class=\"card\"><figcaption><span>{}, {} set</span><span>{}</span></figcaption><div "
      "class=\"series-plot\"><div class=\"up\" aria-hidden=\"true\">",
      HtmlLabel(set.labels.back()), set.name->name, Counted(series.Records(), "record"));
  for (const double tick : ticks.at) {
    html += fmt::format("<span style=\"top:{:.2f}%\">{}</span>", 100.0 * (1.0 - ticks.Place(tick)),
                        FigureText(tick));
  }
  html += "</div>" + LineSvg(series, ticks, words) + "<div class=\"axis\" aria-hidden=\"true\">";
  constexpr int kMarks = 4;
  for (int i = 0; i <= kMarks; ++i) {
    const std::int64_t record = 1 + (series.Records() - 1) * i / kMarks;
    const double place =
        (static_cast<double>(record) - 0.5) / static_cast<double>(series.Records());
    html += fmt::format("<span style=\"left:{:.2f}%\">{}</span>", 100.0 * place, CountText(record));
    if (series.Records() == 1) break;
  }
  return html + "</div></div></figure>\n";
}

std::string CategoryRow(const RunCategory& one, std::int64_t highest) {
  const double share = 100.0 * static_cast<double>(one.count) / static_cast<double>(highest);
  return fmt::format(
      "<tr><th scope=\"row\" class=\"text\">{}</th><td class=\"number\">{}</td><td "
      "class=\"number\">{}</td><td aria-hidden=\"true\"><span class=\"meter\"><i "
      "style=\"width:{:.1f}%\"{}></i></span></td></tr>",
      one.text.empty() ? "<span class=\"none\">empty</span>" : HtmlLabel(one.text),
      HtmlFigure(one.code), HtmlCount(one.count), share, one.count == 0 ? " hidden" : "");
}

std::string HowText(std::int32_t type) {
  for (const ReplacementWord& word : kReplacementWords) {
    if (word.type == type) return std::string(word.name);
  }
  return fmt::format("type {}", type);
}

}  // namespace

std::string ColumnLabel(const ReportData& data, std::int32_t column) {
  const auto place = static_cast<std::size_t>(column);
  if (data.groups.empty() || place >= data.groups.front().Labels().size()) {
    return fmt::format("d{}", column);
  }
  return data.groups.front().Labels()[place];
}

std::string Capitalised(std::string text) {
  if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') text[0] = static_cast<char>(text[0] - 32);
  return text;
}

std::string SetTitle(const SetName& set) {
  std::string title = Capitalised(set.name);
  std::replace(title.begin(), title.end(), '-', ' ');
  return title;
}

std::string Counted(std::int64_t count, const std::string& thing) {
  return fmt::format("{} {}{}", CountText(count), thing, count == 1 ? "" : "s");
}

std::string SetsSection(const ReportData& data) {
  std::string cards;
  for (const ReportGroup& group : data.groups) {
    for (const ReportSet& set : group.sets) cards += SetCard(set);
  }
  if (cards.empty()) {
    return "<p class=\"note\">The run has no sets yet; <code>tslm5 load</code> loads one.</p>\n";
  }
  return "<div class=\"cards\">\n" + cards + "</div>\n";
}

std::string SeriesSection(const ReportData& data) {
  std::string html;
  for (const ReportGroup& group : data.groups) {
    for (const ReportSet& set : group.sets) {
      if (set.series && set.series->HasValues()) html += SeriesFigure(set);
    }
  }
  return html;
}

std::string CategoriesSection(const ReportData& data) {
  if (data.categories.empty()) return {};
  constexpr std::size_t kTall = 16;
  std::string html =
      "<p class=\"note\">The number that stands for each text, and how many training records carry "
      "it.</p>\n<div class=\"cards\">\n";
  for (auto first = data.categories.begin(); first != data.categories.end();) {
    const auto last = std::find_if(first, data.categories.end(), [first](const auto& one) {
      return one.column != first->column;
    });
    std::int64_t highest = 1;
    for (auto one = first; one != last; ++one)
      highest = std::max<std::int64_t>(highest, one->count);
    html += fmt::format(
        "<article class=\"card categories{}\" id=\"categories-{}\"><header><h3>{}</h3><p "
        "class=\"badges\"><span class=\"badge\">{}</span></p></header><table><thead><tr><th "
        "scope=\"col\">Category</th><th scope=\"col\" class=\"number\">Code</th><th scope=\"col\" "
        "class=\"number\">Records</th><td></td></tr></thead><tbody>",
        last - first > static_cast<std::ptrdiff_t>(kTall) ? " tall" : "", first->column,
        HtmlLabel(ColumnLabel(data, first->column)), last - first);
    for (; first != last; ++first) html += CategoryRow(*first, highest);
    html += "</tbody></table></article>\n";
  }
  return html + "</div>\n";
}

std::string MissingSection(const ReportData& data) {
  if (data.tokens.empty()) return {};
  std::string html =
      "<p class=\"note\">The texts that stand for a missing value, over both sets, and what is "
      "chosen to replace them.</p>\n<div class=\"card scroll\" role=\"region\" tabindex=\"0\" "
      "aria-labelledby=\"missing-title\"><table id=\"tokens\"><thead><tr><th "
      "scope=\"col\">Column</th><th scope=\"col\">Token</th><th scope=\"col\" "
      "class=\"number\">Cells</th><th scope=\"col\" class=\"number\">Replacement</th><th "
      "scope=\"col\">Chosen as</th></tr></thead><tbody>";
  for (const RunToken& token : data.tokens) {
    html += fmt::format(
        "<tr><th scope=\"row\" class=\"text\">{}</th><td class=\"text\">{}</td><td "
        "class=\"number\">{}</td><td class=\"number\">{}</td><td>{}</td></tr>",
        HtmlLabel(ColumnLabel(data, token.column)),
        token.text.empty() ? "<span class=\"none\">empty</span>" : HtmlLabel(token.text),
        HtmlCount(token.count), HtmlFigure(token.replacement), HowText(token.type));
  }
  return html + "</tbody></table></div>\n";
}

}  // namespace tslm5::host
