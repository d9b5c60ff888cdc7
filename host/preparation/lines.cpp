#include "host/preparation/lines.h"

#include "host/preparation/separators.h"

namespace tslm5::host {
namespace {

template <class Take>
void ForEachField(std::string_view line, const Separator& separator, Take take) {
  line = Trimmed(line);
  if (separator.character == '\0') return take(line);
  for (;;) {
    const std::size_t size = line.find(separator.character);
    take(Trimmed(line.substr(0, size)));
    if (size == std::string_view::npos) return;
    line.remove_prefix(size + 1);
    if (separator.character == ' ') line = Trimmed(line);
  }
}

}  // namespace

void SplitAtBlanks(std::string_view text, std::vector<std::string_view>& fields) {
  fields.clear();
  if (text.empty()) return;
  for (std::size_t from = 0;;) {
    const std::size_t blank = text.find(' ', from);
    fields.push_back(text.substr(from, blank - from));
    if (blank == std::string_view::npos) return;
    from = blank + 1;
  }
}

void SplitLine(std::string_view line, const Separator& separator,
               std::vector<std::string_view>& fields) {
  fields.clear();
  ForEachField(line, separator, [&fields](std::string_view field) { fields.push_back(field); });
}

std::size_t CountFields(std::string_view line, const Separator& separator) {
  std::size_t count = 0;
  ForEachField(line, separator, [&count](std::string_view) { ++count; });
  return count;
}

}  // namespace tslm5::host
