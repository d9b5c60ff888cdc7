#ifndef TSLM5_INMEMORY_DELIMITER_CURSOR_H_
#define TSLM5_INMEMORY_DELIMITER_CURSOR_H_

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "support/byte_block.h"

namespace tslm5 {

/// Gives the places of a text's separators and line feeds one after the other. It looks at 64 bytes
/// at once and keeps what it found as bits, so that a short field costs a few instructions.
class DelimiterCursor {
 public:
  /// With "\n" as `separator`, it gives line feeds alone.
  DelimiterCursor(std::string_view text, char separator)
      : separator_(separator), next_(text.data()), last_(text.data() + text.size()) {}

  /// The next separator or line feed, and at last the text's end, again and again.
  const char* Next() {
    while (bits_ == 0) {
      if (next_ == last_) return last_;
      Scan();
    }
    const char* const found = block_ + std::countr_zero(bits_);
    bits_ &= bits_ - 1;
    return found;
  }

 private:
  using Block = ByteScan::ByteBlock;
  static constexpr std::size_t kBytes = 64;

  void Scan() {
    block_ = next_;
    const auto left = static_cast<std::size_t>(last_ - next_);
    if (left >= kBytes) {
      bits_ = Bits(next_);
      next_ += kBytes;
    } else {
      char rest[kBytes] = {};
      std::copy(next_, last_, rest);
      bits_ = Bits(rest) & ((std::uint64_t{1} << left) - 1);
      next_ = last_;
    }
  }

  std::uint64_t Bits(const char* from) const {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < kBytes; i += Block::kSize) {
      const Block block(from + i);
      bits |= std::uint64_t{block.Equal(separator_) | block.Equal('\n')} << i;
    }
    return bits;
  }

  char separator_;
  const char* block_ = nullptr;  // where bit 0 of bits_ stands
  const char* next_;             // the first byte not looked at yet
  const char* last_;
  std::uint64_t bits_ = 0;
};

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_DELIMITER_CURSOR_H_
