#ifndef TSLM5_INMEMORY_CELL_ARRAY_H_
#define TSLM5_INMEMORY_CELL_ARRAY_H_

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <utility>

#include "inmemory/raw_cells.h"
#include "tslm5/platform/error.h"

namespace tslm5 {

/// A table of doubles in one block, row after row: a parse writes it from the first byte to the
/// last, and the cells of a record stand side by side. With it go the raw texts of the columns
/// whose cells are codes. Row and column indexes are 0-based; one outside the table raises 9. A
/// plain value, its copies deep.
class CellArray {
 public:
  CellArray() = default;

  /// `rows` times `columns` cells, all 0. A large block comes from the system already cleared, and
  /// is not touched before it is used. Raises 7 when there is not enough memory.
  CellArray(std::int32_t rows, std::int32_t columns);

  CellArray(const CellArray& other);
  CellArray(CellArray&&) = default;
  CellArray& operator=(const CellArray& other);
  CellArray& operator=(CellArray&&) = default;
  ~CellArray() = default;

  std::int32_t Rows() const { return rows_; }
  std::int32_t Columns() const { return columns_; }

  double Get(std::int32_t row, std::int32_t column) const { return cells_[Offset(row, column)]; }
  void Put(std::int32_t row, std::int32_t column, double value) {
    cells_[Offset(row, column)] = value;
  }

  /// The raw texts of the categorical columns; null where there is none. Copies share them.
  const RawCells* Texts() const { return texts_.get(); }
  void PutTexts(std::shared_ptr<const RawCells> texts) { texts_ = std::move(texts); }

  /// The `Columns()` cells of row `row`, which must be there.
  double* Row(std::int32_t row) { return &cells_[RowOffset(row)]; }

 private:
  struct Free {
    void operator()(double* cells) const { std::free(cells); }
  };

  std::size_t RowOffset(std::int32_t row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_);
  }
  std::size_t Offset(std::int32_t row, std::int32_t column) const {
    // One comparison an index: a negative one is a large one without its sign.
    if (static_cast<std::uint32_t>(row) >= static_cast<std::uint32_t>(rows_) ||
        static_cast<std::uint32_t>(column) >= static_cast<std::uint32_t>(columns_)) {
      RaiseSubscriptOutOfRange();
    }
    return RowOffset(row) + static_cast<std::size_t>(column);
  }

  std::int32_t rows_ = 0;
  std::int32_t columns_ = 0;
  std::unique_ptr<double[], Free> cells_;
  std::shared_ptr<const RawCells> texts_;
};

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_CELL_ARRAY_H_
