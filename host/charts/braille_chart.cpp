#include "host/charts/braille_chart.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdlib>
#include <string_view>

#include "host/charts/value_range.h"

namespace tslm5::host {
namespace {

constexpr std::size_t kDotsAcross = 2;  // of one character
constexpr std::size_t kDotsDown = 4;

/// The dots of a chart; (0, 0) is at the top on the left.
class DotField {
 public:
  DotField(std::size_t columns, std::size_t lines)
      : columns_(columns), lines_(lines), cells_(columns * lines) {}

  std::int64_t Width() const { return static_cast<std::int64_t>(columns_ * kDotsAcross); }
  std::int64_t Height() const { return static_cast<std::int64_t>(lines_ * kDotsDown); }

  void Dot(std::int64_t x, std::int64_t y) {
    // The bit of each dot of a braille character, line by line.
    constexpr unsigned char kBits[kDotsDown][kDotsAcross] = {
        {0x01, 0x08}, {0x02, 0x10}, {0x04, 0x20}, {0x40, 0x80}};
    const auto column = static_cast<std::size_t>(x);
    const auto line = static_cast<std::size_t>(y);
    unsigned char& cell = cells_[line / kDotsDown * columns_ + column / kDotsAcross];
    cell = static_cast<unsigned char>(cell | kBits[line % kDotsDown][column % kDotsAcross]);
  }

  void Line(std::int64_t x0, std::int64_t y0, std::int64_t x1, std::int64_t y1) {
    const std::int64_t steps = std::max(std::abs(x1 - x0), std::abs(y1 - y0));
    for (std::int64_t i = 0; i <= steps; ++i) {
      const double part = steps == 0 ? 0.0 : static_cast<double>(i) / static_cast<double>(steps);
      Dot(x0 + std::llround(part * static_cast<double>(x1 - x0)),
          y0 + std::llround(part * static_cast<double>(y1 - y0)));
    }
  }

  /// One line of characters, blanks at its end left away.
  std::string Text(std::size_t line) const {
    std::string text;
    std::size_t end = 0;
    for (std::size_t column = 0; column < columns_; ++column) {
      const unsigned char cell = cells_[line * columns_ + column];
      if (cell == 0) {
        text += ' ';
        continue;
      }
      // U+2800 and the dots, as UTF-8.
      text += '\xE2';
      text += static_cast<char>(0xA0 | cell >> 6);
      text += static_cast<char>(0x80 | (cell & 0x3F));
      end = text.size();
    }
    text.resize(end);
    return text;
  }

 private:
  std::size_t columns_;
  std::size_t lines_;
  std::vector<unsigned char> cells_;
};

void Draw(const std::vector<double>& values, const ValueRange& range, DotField& field) {
  const auto last = static_cast<double>(std::max<std::size_t>(values.size() - 1, 1));
  bool is_joined = false;
  std::int64_t x0 = 0;
  std::int64_t y0 = 0;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!std::isfinite(values[i])) {
      is_joined = false;
      continue;
    }
    const double across = static_cast<double>(i) / last;
    const std::int64_t x = std::llround(across * static_cast<double>(field.Width() - 1));
    const std::int64_t y =
        std::llround((1.0 - range.Place(values[i])) * static_cast<double>(field.Height() - 1));
    if (is_joined) {
      field.Line(x0, y0, x, y);
    } else {
      field.Dot(x, y);
    }
    x0 = x;
    y0 = y;
    is_joined = true;
  }
}

std::string NumberLabel(double value) {
  return fmt::format("{:.6g}", value);
}

}  // namespace

std::string BrailleChart(const std::vector<double>& values, ChartSize size) {
  constexpr std::size_t kAxisLines = 2;
  const ValueRange range = ValueRange::Of(values);
  if (range.IsEmpty()) return "";
  const std::size_t lines = static_cast<std::size_t>(size.height) - kAxisLines;
  std::vector<std::string> labels(lines);
  const bool is_flat = range.low == range.high;
  if (!is_flat) {
    labels.front() = NumberLabel(range.high);
    labels.back() = NumberLabel(range.low);
  }
  if (lines % 2 == 1) labels[lines / 2] = NumberLabel(range.Middle());
  if (is_flat) labels[(lines - 1) / 2] = NumberLabel(range.high);
  std::size_t margin = 0;
  for (const std::string& label : labels) margin = std::max(margin, label.size());

  const std::size_t columns = static_cast<std::size_t>(size.width) - margin - 2;
  DotField field(columns, lines);
  Draw(values, range, field);
  std::string text;
  for (std::size_t line = 0; line < lines; ++line) {
    const std::string dots = field.Text(line);
    text +=
        fmt::format("{:>{}} {}{}\n", labels[line], margin, labels[line].empty() ? "│" : "┤", dots);
  }
  text += fmt::format("{:>{}} └", "", margin);
  for (std::size_t column = 0; column < columns; ++column) text += "─";
  const std::string last = fmt::format("{}", values.size());
  text += fmt::format("\n{:>{}}1{:>{}}\n", "", margin + 2, values.size() > 1 ? last : "",
                      values.size() > 1 ? columns - 1 : 0);
  return text;
}

}  // namespace tslm5::host
