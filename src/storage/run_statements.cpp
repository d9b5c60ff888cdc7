#include "storage/run_statements.h"

#include "tslm5/platform/error.h"

namespace tslm5 {

std::string FillStatement(
    std::string_view statement,
    std::initializer_list<std::pair<std::string_view, std::string_view>> values) {
  std::string filled;
  while (!statement.empty()) {
    const std::size_t mark = statement.find('<');
    filled += statement.substr(0, mark);
    if (mark == std::string_view::npos) break;
    statement.remove_prefix(mark);
    bool known = false;
    for (const auto& [placeholder, value] : values) {
      if (!statement.starts_with(placeholder)) continue;
      filled += value;
      statement.remove_prefix(placeholder.size());
      known = true;
      break;
    }
    if (!known) {
      filled += '<';
      statement.remove_prefix(1);
    }
  }
  return filled;
}

void RefuseApostrophe(std::string_view text, std::string_view source) {
  if (text.find('\'') == std::string_view::npos) return;
  throw Error(error_number::kBrokenStatement, std::string(source),
              "The value \"" + std::string(text) +
                  "\" holds an apostrophe, which no statement about it can take. Nothing was "
                  "changed; write it without one in the original data.");
}

std::string InsertRowHead(std::string_view table_name) {
  std::string head = FillStatement(run_statement::kInsertRow, {{"<TABLE>", table_name}});
  head.resize(head.find("<VALUES>"));
  return head;
}

}  // namespace tslm5
