#include "host/preparation/label_list.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>

#include "host/preparation/lines.h"
#include "host/program/failure.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

constexpr std::size_t kShownLabels = 12;

}  // namespace

std::optional<std::int32_t> FindColumn(std::string_view name,
                                       const std::vector<std::string>& labels) {
  const auto label = std::find(labels.begin(), labels.end(), name);
  if (label != labels.end()) return static_cast<std::int32_t>(label - labels.begin());
  for (std::size_t column = 0; column < labels.size(); ++column) {
    if (name == fmt::format("d{}", column)) return static_cast<std::int32_t>(column);
  }
  return std::nullopt;
}

std::int32_t RequireColumn(std::string_view place, std::string_view name,
                           const std::vector<std::string>& labels) {
  const auto column = FindColumn(name, labels);
  if (column) return *column;
  const auto trimmed = FindColumn(Trimmed(name), labels);
  if (trimmed) return *trimmed;
  Misuse(fmt::format("{}: there is no column {}; the labels are {}", place, Quoted(name),
                     LabelList(labels)));
}

std::string LabelList(const std::vector<std::string>& labels) {
  std::string list;
  const std::size_t shown = std::min(labels.size(), kShownLabels);
  for (std::size_t i = 0; i < shown; ++i) {
    if (i > 0) list += ", ";
    list += Cut(labels[i]);
  }
  if (shown < labels.size()) list += fmt::format(" and {} more", labels.size() - shown);
  return list;
}

std::vector<std::int32_t> ChooseColumns(const std::vector<std::string>& words,
                                        const std::vector<std::string>& labels) {
  std::vector<std::int32_t> columns;
  if (words.empty()) {
    columns.resize(labels.size());
    std::iota(columns.begin(), columns.end(), 0);
    return columns;
  }
  for (const std::string& word : words) {
    if (const auto column = FindColumn(word, labels)) {
      columns.push_back(*column);
      continue;
    }
    std::string_view rest = word;
    for (std::size_t comma = 0; comma != std::string_view::npos; rest.remove_prefix(comma + 1)) {
      comma = rest.find(',');
      columns.push_back(RequireColumn("--columns", rest.substr(0, comma), labels));
      if (comma == std::string_view::npos) break;
    }
  }
  return columns;
}

}  // namespace tslm5::host
