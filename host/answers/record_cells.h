#ifndef TSLM5_HOST_ANSWERS_RECORD_CELLS_H_
#define TSLM5_HOST_ANSWERS_RECORD_CELLS_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>

namespace tslm5::host {

/// What stands in one cell: a number, not a number where it is missing; a text; or nothing, where
/// there is no text for it.
using RecordCell = std::variant<std::monostate, double, std::string>;

/// Walks the records that are to be written, one after the other. It starts before the first.
class RecordCells {
 public:
  virtual ~RecordCells() = default;

  /// Moves to the next record; false behind the last.
  virtual bool Next() = 0;
  /// The 0-based number of the record.
  virtual std::int32_t Row() const = 0;
  /// The cell of the i-th title.
  virtual RecordCell Cell(std::size_t i) const = 0;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_RECORD_CELLS_H_
