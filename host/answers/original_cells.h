#ifndef TSLM5_HOST_ANSWERS_ORIGINAL_CELLS_H_
#define TSLM5_HOST_ANSWERS_ORIGINAL_CELLS_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tslm5/engine/data_reader.h"
#include "tslm5/platform/ref.h"
#include "tslm5/run/run_originals.h"

namespace tslm5::host {

/// Walks the untransformed texts of a set's records, in the set's order, joined by the records'
/// keys. Let it go before the run.
class OriginalCells {
 public:
  /// Of the records of set `type` from `first_row` (0-based) on, the cells of `columns` (0-based).
  OriginalCells(IRunOriginals& originals, std::int32_t type,
                const std::vector<std::int32_t>& columns, std::int32_t first_row);
  OriginalCells(const OriginalCells&) = delete;
  OriginalCells& operator=(const OriginalCells&) = delete;
  ~OriginalCells();

  /// Moves to the next record. Past the last one, every text is missing.
  void Next() { has_record_ = reader_->Read(); }
  /// The text of the i-th of the columns; nothing when the run kept none for the record.
  std::optional<std::string> Text(std::size_t i) const;

 private:
  Ref<IDataReader> reader_;
  bool has_record_ = false;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_ORIGINAL_CELLS_H_
