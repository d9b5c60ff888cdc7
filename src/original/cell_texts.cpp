#include "original/cell_texts.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "tslm5/platform/error.h"

namespace tslm5 {

CellTexts::CellTexts(std::int32_t columns, std::int32_t rows)
    : columns_(columns),
      rows_(rows),
      row_starts_(std::make_unique_for_overwrite<std::size_t[]>(static_cast<std::size_t>(rows))),
      cell_ends_(std::make_unique_for_overwrite<std::uint32_t[]>(CellsBefore(rows))) {}

/// Room for `size` more characters. It grows to what all rows will take if they are as long as
/// those so far, so that the block is hardly ever moved twice.
char* CellTexts::MakeRoom(std::size_t size) {
  if (size > capacity_ - size_) {
    constexpr std::size_t kSmallest = std::size_t{1} << 16;
    const auto filled = static_cast<std::size_t>(std::max(filled_rows_, 1));
    const std::size_t expected = size_ / filled * static_cast<std::size_t>(rows_);
    const std::size_t capacity =
        std::max({size_ + size, size_ + size_ / 2, expected + expected / 32, kSmallest});
    auto block = std::make_unique_for_overwrite<char[]>(capacity);
    if (size_ > 0) std::memcpy(block.get(), block_.get(), size_);
    block_ = std::move(block);
    capacity_ = capacity;
  }
  return block_.get() + size_;
}

void CellTexts::AppendRow(std::span<const std::string_view> texts) {
  if (filled_rows_ >= rows_) RaiseSubscriptOutOfRange();
  std::size_t total = texts.empty() ? 0 : std::size_t{texts.back().empty()};
  for (const std::string_view text : texts) total += text.size();
  char* const first = MakeRoom(total);
  char* next = first;
  std::uint32_t* end = cell_ends_.get() + CellsBefore(filled_rows_);
  for (const std::string_view text : texts) {
    if (!text.empty()) std::memcpy(next, text.data(), text.size());
    next += text.size();
    *end++ = static_cast<std::uint32_t>(next - first);
  }
  row_starts_[static_cast<std::size_t>(filled_rows_)] = size_;
  size_ += total;
  ++filled_rows_;
}

void CellTexts::PutDecimalCommas() {
  for (std::int32_t column = 0; column < columns_; ++column) {
    const std::string_view text = Text(column, filled_rows_ - 1);
    const std::size_t point = text.find('.');
    if (point == std::string_view::npos || point == 0) continue;
    char* const first = block_.get() + (text.data() - block_.get());
    std::replace(first, first + text.size(), '.', ',');
  }
}

void CellTexts::PutClass(std::int32_t row, bool is_one) {
  if (row < 0 || row >= rows_ || columns_ == 0) RaiseSubscriptOutOfRange();
  if (row >= filled_rows_) {
    const std::vector<std::string_view> empty(static_cast<std::size_t>(columns_));
    while (row >= filled_rows_) AppendRow(empty);
  }
  std::uint32_t* const end = cell_ends_.get() + CellsBefore(row + 1) - 1;
  const std::uint32_t begin = columns_ > 1 ? end[-1] : 0;
  block_[row_starts_[static_cast<std::size_t>(row)] + begin] = is_one ? '1' : '0';
  *end = begin + 1;
}

std::string_view CellTexts::Text(std::int32_t column, std::int32_t row) const {
  if (column < 0 || column >= columns_ || row < 0 || row >= rows_) RaiseSubscriptOutOfRange();
  if (row >= filled_rows_) return {};
  const std::uint32_t* const ends = cell_ends_.get() + CellsBefore(row);
  const std::uint32_t begin = column > 0 ? ends[column - 1] : 0;
  return {block_.get() + row_starts_[static_cast<std::size_t>(row)] + begin, ends[column] - begin};
}

}  // namespace tslm5
