#ifndef TSLM5_ORIGINAL_CELL_TEXTS_H_
#define TSLM5_ORIGINAL_CELL_TEXTS_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace tslm5 {

/// A table of texts whose characters all stand in one block. It is sized first and filled row by
/// row; a cell of a row that was not filled is "". Indexes are zero-based; one outside the table
/// raises 9.
class CellTexts {
 public:
  CellTexts() = default;
  CellTexts(std::int32_t columns, std::int32_t rows);

  std::int32_t Columns() const { return columns_; }
  std::int32_t Rows() const { return rows_; }
  std::int32_t FilledRows() const { return filled_rows_; }

  /// Fills the next row; raises 9 when all are filled. REQUIRES: as many texts as columns.
  void AppendRow(std::span<const std::string_view> texts);

  /// Replaces every "." by "," in those texts of the row filled last that have their first "."
  /// behind their first character.
  void PutDecimalCommas();

  /// Makes the last cell of a row "1" or "0". Rows up to it that were not filled are now, with "".
  void PutClass(std::int32_t row, bool is_one);

  /// The view lives until the table is changed.
  std::string_view Text(std::int32_t column, std::int32_t row) const;

 private:
  std::size_t CellsBefore(std::int32_t row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_);
  }
  char* MakeRoom(std::size_t size);

  std::int32_t columns_ = 0;
  std::int32_t rows_ = 0;
  std::int32_t filled_rows_ = 0;
  // Of the filled rows alone: where a row starts in the block; where its cells end, from there.
  std::unique_ptr<std::size_t[]> row_starts_;
  std::unique_ptr<std::uint32_t[]> cell_ends_;  // row after row
  // A row takes the characters of its texts, and room for a class where the last one is empty.
  std::unique_ptr<char[]> block_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

}  // namespace tslm5

#endif  // TSLM5_ORIGINAL_CELL_TEXTS_H_
