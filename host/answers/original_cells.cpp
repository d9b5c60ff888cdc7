#include "host/answers/original_cells.h"

#include <fmt/format.h>

namespace tslm5::host {

OriginalCells::OriginalCells(IConnection& connection, std::string_view table,
                             const std::vector<std::int32_t>& columns, std::int32_t first_row) {
  std::string cells;
  for (const std::int32_t column : columns) cells += fmt::format("od.d{}, ", column);
  reader_ = connection.ExecuteReader(
      fmt::format("SELECT {}od.row FROM {} t LEFT JOIN OriginalData od ON od.row = t.row "
                  "ORDER BY t.rowid LIMIT -1 OFFSET {}",
                  cells, table, first_row));
}

OriginalCells::~OriginalCells() {
  try {
    reader_->Close();
  } catch (const Error&) {  // it is let go all the same
  }
}

std::optional<std::string> OriginalCells::Text(std::size_t i) const {
  const auto field = static_cast<std::int32_t>(i);
  if (!has_record_ || reader_->IsNull(field)) return std::nullopt;
  return reader_->GetString(field);
}

}  // namespace tslm5::host
