#ifndef TSLM5_INMEMORY_CATEGORY_CODING_H_
#define TSLM5_INMEMORY_CATEGORY_CODING_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "inmemory/raw_cells.h"

namespace tslm5 {

/// Whether a cell's text stands for a missing value: one of `NullHelper::IsMissingValue` that is
/// no number under `decimal`.
bool IsMissingCell(std::string_view text, char decimal);

/// Gives the texts of one categorical column their codes. Texts are told apart exactly, with their
/// case. The position of a text is the number of texts that came before it; its code is the
/// position, in an input column plus 1. A missing text takes up a position too, but its code is
/// not a number.
class CategoryCoding {
 public:
  static constexpr std::size_t kMostCategories = 10000;  ///< missing ones among them

  CategoryCoding(bool is_response, char decimal);

  /// The position of a text, which is entered when it is new. None when that would be one too many.
  std::optional<RawColumn::Position> Enter(std::string_view text);

  double Code(RawColumn::Position position) const { return codes_[position]; }

  /// The texts by position, handed over.
  TextList TakeTexts() { return std::move(texts_); }

 private:
  /// A place of the hash table: the lower half of a text's hash, and its position plus 1; 0 is
  /// free.
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t number = 0;
  };

  void Grow();

  char decimal_;
  double first_code_;
  TextList texts_;
  std::vector<double> codes_;
  std::vector<Slot> slots_;  // a power of two of them, at most half taken
};

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_CATEGORY_CODING_H_
