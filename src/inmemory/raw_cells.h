#ifndef TSLM5_INMEMORY_RAW_CELLS_H_
#define TSLM5_INMEMORY_RAW_CELLS_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tslm5/platform/error.h"

namespace tslm5 {

/// Texts one behind the other in one block, numbered from 0.
class TextList {
 public:
  void Add(std::string_view text) {
    texts_ += text;
    ends_.push_back(texts_.size());
  }
  std::size_t Count() const { return ends_.size(); }
  /// The view is good until the next `Add`.
  std::string_view operator[](std::size_t index) const {
    const std::size_t start = index == 0 ? 0 : ends_[index - 1];
    return std::string_view(texts_).substr(start, ends_[index] - start);
  }

 private:
  std::string texts_;
  std::vector<std::size_t> ends_;
};

/// The raw texts of one categorical column: every distinct one once, and which of them each row
/// has. Two bytes a cell.
struct RawColumn {
  using Position = std::uint16_t;

  TextList texts;
  std::vector<Position> positions;  // by row, into `texts`
};

/// The raw texts of the categorical columns of parsed data. Other columns keep none: their cells
/// are numbers. Never changed once the parse has made it, so that copies of a set share it.
class RawCells {
 public:
  explicit RawCells(std::int32_t columns) : columns_(static_cast<std::size_t>(columns)) {}

  void Put(std::int32_t column, RawColumn cells) {
    columns_[static_cast<std::size_t>(column)] = std::move(cells);
  }

  bool IsCategorical(std::int32_t column) const { return !Column(column).positions.empty(); }

  /// REQUIRES: the column is categorical. A row that it lacks raises 9.
  std::string_view Text(std::int32_t row, std::int32_t column) const {
    const RawColumn& cells = Column(column);
    const auto index = static_cast<std::size_t>(row);
    if (row < 0 || index >= cells.positions.size()) RaiseSubscriptOutOfRange();
    return cells.texts[cells.positions[index]];
  }

 private:
  const RawColumn& Column(std::int32_t column) const {
    const auto index = static_cast<std::size_t>(column);
    if (column < 0 || index >= columns_.size()) RaiseSubscriptOutOfRange();
    return columns_[index];
  }

  std::vector<RawColumn> columns_;
};

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_RAW_CELLS_H_
