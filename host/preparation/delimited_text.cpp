#include "host/preparation/delimited_text.h"

#include <fmt/format.h>

#include <vector>

#include "host/preparation/lines.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"

namespace tslm5::host {

std::string Transposed(std::string_view text, const Separator& separator) {
  std::vector<std::string> columns;
  LineCursor lines(text);
  std::string_view line;
  std::size_t width = 0;
  while (lines.Next(line)) {
    StopIfInterrupted();
    std::size_t k = 0;
    for (std::string_view rest = line; !line.empty(); ++k) {
      const std::size_t size = rest.find(separator.character);
      if (lines.Number() == 1) columns.emplace_back();
      if (k == columns.size()) {
        Refuse(
            fmt::format("line {} has more fields than the first line, which has {}; with "
                        "the layout columns every line must hold one value a record",
                        lines.Number(), width));
      }
      if (lines.Number() > 1) columns[k] += separator.character;
      columns[k] += rest.substr(0, size);
      if (size == std::string_view::npos) break;
      rest.remove_prefix(size + 1);
    }
    if (lines.Number() == 1) width = columns.size();
  }
  std::string joined;
  for (const std::string& column : columns) {
    if (&column != columns.data()) joined += '\n';
    joined += column;
  }
  return joined;
}

}  // namespace tslm5::host
