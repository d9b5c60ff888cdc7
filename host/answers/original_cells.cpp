#include "host/answers/original_cells.h"

namespace tslm5::host {

OriginalCells::OriginalCells(IRunOriginals& originals, std::int32_t type,
                             const std::vector<std::int32_t>& columns, std::int32_t first_row)
    : reader_(originals.OpenTexts(type, columns, first_row)) {}

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
