#include "host/program/nearest_texts.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <utility>

#include "host/program/code_points.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

constexpr std::size_t kComparedCharacters = 60;
constexpr std::size_t kShownTexts = 12;

std::vector<std::int32_t> Characters(std::string_view text) {
  std::vector<std::int32_t> characters;
  for (std::size_t at = 0; at < text.size() && characters.size() < kComparedCharacters;) {
    characters.push_back(NextCodePoint(text, at));
  }
  return characters;
}

}  // namespace

std::size_t EditDistance(std::string_view left, std::string_view right) {
  const std::vector<std::int32_t> from = Characters(left);
  const std::vector<std::int32_t> to = Characters(right);
  std::vector<std::size_t> distances(to.size() + 1);
  std::iota(distances.begin(), distances.end(), std::size_t{0});
  for (std::size_t i = 0; i < from.size(); ++i) {
    std::size_t diagonal = distances[0];
    distances[0] = i + 1;
    for (std::size_t j = 0; j < to.size(); ++j) {
      const std::size_t changed = diagonal + (from[i] == to[j] ? 0 : 1);
      diagonal = distances[j + 1];
      distances[j + 1] = std::min({changed, distances[j] + 1, distances[j + 1] + 1});
    }
  }
  return distances.back();
}

std::string NearestList(std::string_view name, const std::vector<std::string>& texts) {
  if (texts.empty()) return "none";
  std::vector<std::pair<std::size_t, std::size_t>> order;  // distance, place
  for (std::size_t i = 0; i < texts.size(); ++i) {
    order.emplace_back(EditDistance(name, texts[i]), i);
  }
  std::sort(order.begin(), order.end());
  std::string list;
  const std::size_t shown = std::min(order.size(), kShownTexts);
  for (std::size_t i = 0; i < shown; ++i) {
    if (i > 0) list += ", ";
    list += Quoted(texts[order[i].second]);
  }
  if (shown < order.size()) list += fmt::format(" and {} more", order.size() - shown);
  return list;
}

}  // namespace tslm5::host
