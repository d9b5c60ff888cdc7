#ifndef TSLM5_DELIMITED_TEXT_ARENA_H_
#define TSLM5_DELIMITED_TEXT_ARENA_H_

#include <algorithm>
#include <cstddef>
#include <vector>

#include "delimited/delimiter_index.h"

namespace tslm5::delimited {

/// Room for texts that a block of records needs beside the file's own: fields without the quotes
/// that were doubled. What it gave stays in place until `Clear`.
class TextArena {
 public:
  /// `size` bytes, behind which `kReadableBehind` can be read.
  char* Allocate(std::size_t size) {
    const std::size_t needed = size + kReadableBehind;
    if (pieces_.empty() || pieces_.back().size() - used_ < needed) {
      pieces_.emplace_back(std::max(needed, kPieceBytes));
      used_ = 0;
    }
    char* const place = pieces_.back().data() + used_;
    used_ += size;
    return place;
  }

  /// Releases all but one piece.
  void Clear() {
    if (pieces_.size() > 1) pieces_.erase(pieces_.begin(), pieces_.end() - 1);
    used_ = 0;
  }

 private:
  static constexpr std::size_t kPieceBytes = std::size_t{16} * 1024;

  std::vector<std::vector<char>> pieces_;
  std::size_t used_ = 0;  // of the last piece
};

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_TEXT_ARENA_H_
