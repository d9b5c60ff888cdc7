#ifndef TSLM5_PLATFORM_SHORT_NUMBER_H_
#define TSLM5_PLATFORM_SHORT_NUMBER_H_

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tslm5::number_text_internal {

/// Up to sixteen characters, the first one in the lowest byte, zeros behind the last one.
__extension__ using Characters = unsigned __int128;

inline constexpr std::size_t kShortNumberSize = 16;

template <class Word>
Word LoadWord(const char* from) {
  Word word;
  std::memcpy(&word, from, sizeof(word));
  return word;
}

/// Reads [from, from + size), 1 to 16 characters. With `may_read_16` sixteen bytes are read at once
/// and the excess is blanked out; without it not a byte beside the characters is touched.
inline Characters LoadCharacters(const char* from, std::size_t size, bool may_read_16) {
  if (may_read_16) {
    const auto all = LoadWord<Characters>(from);
    return size == kShortNumberSize ? all : all & ((Characters{1} << (8 * size)) - 1);
  }
  if (size >= 8) {
    const Characters last = LoadWord<std::uint64_t>(from + size - 8);
    return LoadWord<std::uint64_t>(from) | last << (8 * (size - 8));
  }
  if (size >= 4) {
    const std::uint64_t last = LoadWord<std::uint32_t>(from + size - 4);
    return LoadWord<std::uint32_t>(from) | last << (8 * (size - 4));
  }
  const auto byte = [from](std::size_t i) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(from[i])) << (8 * i);
  };
  return byte(0) | byte(size / 2) | byte(size - 1);
}

/// The value of eight decimal digits, the first one in the lowest byte, each as its value 0 to 9.
inline std::uint64_t EightDigits(std::uint64_t digits) {
  digits = digits * 10 + (digits >> 8);
  constexpr std::uint64_t kPairs = 0x000000FF000000FF;
  return ((digits & kPairs) * 0x000F424000000064 + (digits >> 16 & kPairs) * 0x0000271000000001) >>
         32;
}

/// Reads an unsigned number without exponent, `size` <= 16 characters, all at once: true, its
/// digits as `mantissa` and how many of them stand behind the decimal separator; or false when it
/// is anything else (which may still be a number), or on a processor that this way is not made for.
inline bool ParseShortNumber([[maybe_unused]] const char* from, [[maybe_unused]] std::size_t size,
                             [[maybe_unused]] char decimal,
                             [[maybe_unused]] std::uint64_t& mantissa,
                             [[maybe_unused]] std::ptrdiff_t& fraction_digits,
                             [[maybe_unused]] bool may_read_16) {
#if defined(__SSE2__)
  Characters text = LoadCharacters(from, size, may_read_16);
  __m128i bytes;
  std::memcpy(&bytes, &text, sizeof(bytes));
  const __m128i value = _mm_sub_epi8(bytes, _mm_set1_epi8('0'));
  const __m128i capped = _mm_min_epu8(value, _mm_set1_epi8(9));
  const auto digits = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(value, capped)));
  const auto points =
      static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(decimal))));
  const unsigned all = (1U << size) - 1;
  if ((digits | points) != all || (points & (points - 1)) != 0 || digits == 0) return false;

  std::size_t count = size;
  fraction_digits = 0;
  if (points != 0) {
    const auto place = static_cast<unsigned>(std::countr_zero(points));
    const Characters before = (Characters{1} << (8 * place)) - 1;
    text = (text & before) | (text >> 8 & ~before);
    --count;
    fraction_digits = static_cast<std::ptrdiff_t>(count - place);
  }
  text <<= 8 * (kShortNumberSize - count);
  constexpr std::uint64_t kDigitValues = 0x0F0F0F0F0F0F0F0F;
  mantissa = EightDigits(static_cast<std::uint64_t>(text) & kDigitValues) * 100000000 +
             EightDigits(static_cast<std::uint64_t>(text >> 64) & kDigitValues);
  return true;
#else
  return false;
#endif
}

}  // namespace tslm5::number_text_internal

#endif  // TSLM5_PLATFORM_SHORT_NUMBER_H_
