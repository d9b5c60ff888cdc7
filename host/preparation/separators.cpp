#include "host/preparation/separators.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <vector>

#include "host/preparation/lines.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

constexpr std::size_t kLinesLookedAt = 100;
constexpr std::string_view kPreference[] = {"tab", "semicolon", "bar", "comma", "space"};

std::vector<std::string_view> FirstLines(std::string_view text) {
  std::vector<std::string_view> lines;
  LineCursor cursor(text);
  std::string_view line;
  while (lines.size() < kLinesLookedAt && cursor.Next(line)) {
    if (line.find_first_not_of(" \r") != std::string_view::npos) lines.push_back(line);
  }
  return lines;
}

/// How the lines come out when they are split at one separator.
struct Trial {
  std::size_t fewest_fields = 0;
  std::size_t usual_fields = 0;  ///< the number that most lines have
  std::size_t usual_lines = 0;   ///< how many have it
};

Trial Try(const Separator& separator, const std::vector<std::string_view>& lines) {
  std::map<std::size_t, std::size_t> lines_by_fields;
  for (const std::string_view line : lines) ++lines_by_fields[CountFields(line, separator)];
  Trial trial;
  trial.fewest_fields = lines_by_fields.begin()->first;
  for (const auto& [fields, count] : lines_by_fields) {
    if (count < trial.usual_lines) continue;
    trial.usual_fields = fields;
    trial.usual_lines = count;
  }
  return trial;
}

/// Whether the comma gives the same number of fields in all lines, which are more than numbers with
/// a decimal comma.
bool LooksSeparatedByCommas(const std::vector<std::string_view>& lines) {
  if (lines.empty()) return false;
  const Trial trial = Try(*FindSeparator("comma"), lines);
  if (trial.usual_fields < 2 || trial.usual_lines != lines.size()) return false;
  return std::any_of(lines.begin(), lines.end(), [](std::string_view line) {
    double value = 0.0;
    if (line.ends_with('\r')) line.remove_suffix(1);
    return !ParseNumber(line, ',', value);
  });
}

}  // namespace

const Separator* FindSeparator(std::string_view name) {
  const auto* found = std::find_if(std::begin(kSeparators), std::end(kSeparators),
                                   [name](const Separator& one) { return one.name == name; });
  return found == std::end(kSeparators) ? nullptr : found;
}

SeparatorChoice GuessSeparator(std::string_view text, bool comma_is_decimal) {
  const std::vector<std::string_view> lines = FirstLines(text);
  SeparatorChoice uneven;
  bool all_single = true;
  for (const std::string_view name : kPreference) {
    if (lines.empty() || (name == "comma" && comma_is_decimal)) continue;
    const Separator* separator = FindSeparator(name);
    const Trial trial = Try(*separator, lines);
    all_single = all_single && trial.usual_fields == 1 && trial.usual_lines == lines.size();
    const std::string looked_at =
        fmt::format("{} line{} looked at", lines.size(), lines.size() == 1 ? "" : "s");
    if (trial.usual_fields > 1 && trial.usual_lines == lines.size()) {
      return {separator,
              fmt::format("it gives {} fields in each of the {}", trial.usual_fields, looked_at)};
    }
    const bool is_usual = trial.usual_fields > 1 && trial.usual_lines * 2 > lines.size();
    if (uneven.separator == nullptr && (trial.fewest_fields > 1 || is_usual)) {
      uneven = {separator, fmt::format("it gives {} fields in {} of the {}", trial.usual_fields,
                                       trial.usual_lines, looked_at)};
    }
  }
  if (uneven.separator != nullptr) return uneven;
  if (comma_is_decimal && LooksSeparatedByCommas(lines)) {
    return {FindSeparator("none"),
            "every line looked at is one field; commas are decimal separators in your locale",
            true};
  }
  return {FindSeparator("none"),
          all_single ? "every line looked at is one field"
                     : "no separator gives the same number of fields in every line"};
}

}  // namespace tslm5::host
