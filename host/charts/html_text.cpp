#include "host/charts/html_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "host/program/shown_text.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

constexpr std::string_view kMinus = "\u2212";
constexpr std::string_view kNarrowSpace = "\u202F";
constexpr std::string_view kTimesTen = "\u202F\u00D7\u202F10";
constexpr std::string_view kRaisedMinus = "\u207B";
constexpr std::string_view kRaised[] = {"\u2070", "\u00B9", "\u00B2", "\u00B3", "\u2074",
                                        "\u2075", "\u2076", "\u2077", "\u2078", "\u2079"};
constexpr std::size_t kGroup = 3;

}  // namespace

std::string HtmlText(std::string_view text) {
  std::string html;
  for (const char c : Escaped(text)) {
    switch (c) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      case '\'':
        html += "&#39;";
        break;
      default:
        html += c;
    }
  }
  return html;
}

std::string HtmlLabel(std::string_view text) {
  return "<bdi>" + HtmlText(text) + "</bdi>";
}

std::string CountText(std::int64_t count) {
  const std::string digits = fmt::format("{}", std::abs(count));
  std::string text(count < 0 ? kMinus : "");
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % kGroup == 0) text += kNarrowSpace;
    text += digits[i];
  }
  return text;
}

std::string FigureText(double value) {
  if (std::isnan(value)) return "\u2013";
  if (std::isinf(value)) return value < 0 ? std::string(kMinus) + "\u221E" : "\u221E";
  std::string text = fmt::format("{:.6g}", std::abs(value));
  const std::size_t power = text.find('e');
  if (power != std::string::npos) {
    const int exponent = std::stoi(text.substr(power + 1));
    text.resize(power);
    text += kTimesTen;
    if (exponent < 0) text += kRaisedMinus;
    for (const char digit : fmt::format("{}", std::abs(exponent))) text += kRaised[digit - '0'];
  }
  return value < 0 ? std::string(kMinus) + text : text;
}

std::string HtmlFigure(const std::optional<double>& value) {
  if (!value) return "<span class=\"none\">\u2013</span>";
  return fmt::format("<data value=\"{}\">{}</data>", NumberText(*value), FigureText(*value));
}

std::string HtmlTime(std::string_view time) {
  constexpr std::string_view kForm = "0000-00-00T00:00:00Z";
  constexpr std::size_t kDay = 10;
  constexpr std::size_t kMinute = 16;
  std::string shown(time);
  if (time.size() == kForm.size() && time[kDay] == 'T' && time.back() == 'Z') {
    shown =
        fmt::format("{} {} UTC", time.substr(0, kDay), time.substr(kDay + 1, kMinute - kDay - 1));
  }
  return fmt::format("<time datetime=\"{}\">{}</time>", HtmlText(time), HtmlText(shown));
}

std::string HtmlCount(std::int64_t count) {
  return fmt::format("<data value=\"{}\">{}</data>", count, CountText(count));
}

std::string ShareText(std::int64_t part, std::int64_t whole) {
  if (part <= 0 || whole <= 0) return "0\u202F%";
  if (part >= whole) return "100\u202F%";
  const double percent = 100.0 * static_cast<double>(part) / static_cast<double>(whole);
  constexpr double kLeast = 0.1;
  constexpr double kMost = 99.9;
  if (percent < kLeast) return "below\u00A00.1\u202F%";
  return fmt::format("{:.1f}\u202F%", std::min(percent, kMost));
}

}  // namespace tslm5::host
