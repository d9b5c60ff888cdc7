#include "host/answers/stored_text.h"

#include <fmt/format.h>

#include <cstdint>

#include "host/program/shown_text.h"

namespace tslm5::host {

std::vector<std::string> WarningsOfStoredText(const RunSession& session, const SetName& set,
                                              const std::vector<std::string>& labels) {
  std::vector<std::int32_t> counts;
  session.Sets().CountTexts(set.type, counts);
  std::vector<std::string> warnings;
  for (std::size_t column = 0; column < labels.size() && column < counts.size(); ++column) {
    const std::int32_t count = counts[column];
    if (count == 0) continue;
    warnings.push_back(fmt::format(
        "{} holds text in {} cell{} of the {} set: the mean counts a text as 0 and the maximum is "
        "0; medoid and deviation are of the numbers alone",
        Escaped(labels[column]), count, count == 1 ? "" : "s", set.name));
  }
  return warnings;
}

}  // namespace tslm5::host
