#include "host/answers/dialect_text.h"

#include <fmt/format.h>

#include <vector>

#include "host/program/shown_text.h"

namespace tslm5::host {

std::string DialectText(const DelimitedDialect& dialect) {
  std::vector<std::string> parts;
  if (dialect.decimal == ',') parts.emplace_back("decimal comma");
  if (!dialect.has_quotes) parts.emplace_back("quotes are part of the text");
  if (dialect.has_row_names) parts.emplace_back("row names in the first column");
  if (dialect.preamble_lines > 0) {
    parts.push_back(fmt::format("{} line{} skipped", dialect.preamble_lines,
                                dialect.preamble_lines == 1 ? "" : "s"));
  }
  if (dialect.encoding != "UTF-8") parts.push_back(Escaped(dialect.encoding));
  return parts.empty() ? "" : fmt::format("dialect    {}\n", fmt::join(parts, ", "));
}

}  // namespace tslm5::host
