#ifndef TSLM5_SUPPORT_BYTE_BLOCK_H_
#define TSLM5_SUPPORT_BYTE_BLOCK_H_

#include <bit>
#include <cstddef>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tslm5::ByteScan {

/// Sixteen bytes of a text, compared all at once. A comparison gives one bit a byte, bit i for
/// byte i.
class ByteBlock {
 public:
  static constexpr std::size_t kSize = 16;

  /// Reads [from, from + kSize).
  explicit ByteBlock(const char* from) {
#if defined(__SSE2__)
    bytes_ = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
#else
    std::memcpy(bytes_, from, kSize);
#endif
  }

  /// The bytes that are `c`.
  unsigned Equal(char c) const {
#if defined(__SSE2__)
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes_, _mm_set1_epi8(c))));
#else
    unsigned bits = 0;
    for (std::size_t i = 0; i < kSize; ++i) bits |= static_cast<unsigned>(bytes_[i] == c) << i;
    return bits;
#endif
  }

  /// The bytes that are ASCII digits.
  unsigned Digits() const {
#if defined(__SSE2__)
    const __m128i values = _mm_sub_epi8(bytes_, _mm_set1_epi8('0'));
    const __m128i capped = _mm_min_epu8(values, _mm_set1_epi8(9));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(values, capped)));
#else
    unsigned bits = 0;
    for (std::size_t i = 0; i < kSize; ++i) {
      bits |= static_cast<unsigned>(bytes_[i] >= '0' && bytes_[i] <= '9') << i;
    }
    return bits;
#endif
  }

  /// The bytes outside ASCII.
  unsigned NotAscii() const {
#if defined(__SSE2__)
    return static_cast<unsigned>(_mm_movemask_epi8(bytes_));
#else
    unsigned bits = 0;
    for (std::size_t i = 0; i < kSize; ++i) {
      bits |= (static_cast<unsigned char>(bytes_[i]) >> 7u & 1u) << i;
    }
    return bits;
#endif
  }

 private:
#if defined(__SSE2__)
  __m128i bytes_;
#else
  char bytes_[kSize];
#endif
};

/// The first place in [first, last) that matches, or `last`. `in_block(p)` answers for the sixteen
/// places from p on and may read `kLookAhead` bytes past them; `at(p)` answers for one place and
/// never reads `last`.
template <std::size_t kLookAhead = 0, class InBlock, class At>
const char* Find(const char* first, const char* last, InBlock in_block, At at) {
  const char* p = first;
  while (static_cast<std::size_t>(last - p) >= ByteBlock::kSize + kLookAhead) {
    if (const unsigned bits = in_block(p); bits != 0) return p + std::countr_zero(bits);
    p += ByteBlock::kSize;
  }
  while (p != last && !at(p)) ++p;
  return p;
}

}  // namespace tslm5::ByteScan

#endif  // TSLM5_SUPPORT_BYTE_BLOCK_H_
