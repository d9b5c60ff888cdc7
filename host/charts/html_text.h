#ifndef TSLM5_HOST_CHARTS_HTML_TEXT_H_
#define TSLM5_HOST_CHARTS_HTML_TEXT_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tslm5::host {

/// `text` as it may stand in an element or between quotes in an attribute: marks of HTML are
/// written as entities, and what would disturb the page as `Escaped` shows it.
std::string HtmlText(std::string_view text);

/// A text of the data, kept apart from the direction of the words around it.
std::string HtmlLabel(std::string_view text);

/// A count with its digits in groups of three, a narrow space between them.
std::string CountText(std::int64_t count);

/// Six digits of a figure, with a true minus sign; very large and small ones with a power of ten.
std::string FigureText(double value);

/// A figure for the eye, with every digit in the attribute `value`; a dash where there is none.
std::string HtmlFigure(const std::optional<double>& value);

/// A moment as it is noted, 2026-01-31T12:00:00Z, for the eye: 2026-01-31 12:00 UTC. Any other text
/// stays as it is.
std::string HtmlTime(std::string_view time);

/// A count for the eye, with its plain digits in the attribute `value`.
std::string HtmlCount(std::int64_t count);

/// `part` of `whole` in percent: "0 %", "below 0.1 %", "12.5 %"; only all is "100 %".
std::string ShareText(std::int64_t part, std::int64_t whole);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_CHARTS_HTML_TEXT_H_
