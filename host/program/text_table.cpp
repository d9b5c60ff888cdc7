#include "host/program/text_table.h"

#include <algorithm>

#include "host/program/shown_text.h"

namespace tslm5::host {

std::string AlignedTable(const std::vector<TableLine>& lines, std::size_t figures) {
  std::vector<std::size_t> widths(figures + 1);
  for (const TableLine& line : lines) {
    for (std::size_t i = 0; i <= figures; ++i) {
      widths[i] = std::max(widths[i], DisplayWidth(line[i]));
    }
  }
  std::string text;
  for (const TableLine& line : lines) {
    text += line[0];
    text.append(widths[0] - DisplayWidth(line[0]), ' ');
    for (std::size_t i = 1; i <= figures; ++i) {
      text.append(2 + widths[i] - DisplayWidth(line[i]), ' ');
      text += line[i];
    }
    if (line.size() > figures + 1 && !line.back().empty()) text += "  " + line.back();
    text += '\n';
  }
  return text;
}

}  // namespace tslm5::host
