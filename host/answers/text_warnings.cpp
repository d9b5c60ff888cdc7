#include "host/answers/text_warnings.h"

#include <fmt/format.h>

#include "host/program/shown_text.h"

namespace tslm5::host {

std::vector<std::string> TextWarnings(const TextSource& source) {
  std::vector<std::string> warnings;
  const std::string name = Escaped(source.Name());
  if (source.HasReturnsAlone()) {
    warnings.push_back(fmt::format(
        "{}: the lines end with a carriage return alone, which is taken as a line end", name));
  }
  if (const BrokenCharacters& broken = source.Broken(); broken.count > 0) {
    warnings.push_back(fmt::format(
        "{}: {} broken character{} of the UTF-16 text {} read as U+FFFD; the first: line {}", name,
        broken.count, broken.count == 1 ? "" : "s", broken.count == 1 ? "is" : "are",
        broken.first_line));
  }
  return warnings;
}

}  // namespace tslm5::host
