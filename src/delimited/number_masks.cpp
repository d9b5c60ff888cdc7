#include "delimited/number_masks.h"

#if defined(__x86_64__) && defined(__GNUC__)
#define TSLM5_HAS_X86_VECTORS
#include <immintrin.h>
#endif

namespace tslm5::delimited {
namespace {

constexpr char kCaseBit = 0x20;  // tells a small letter from a capital

void MaskPortably(const char* text, std::size_t chunks, NumberSigns signs, NumberMasks* masks) {
  for (; chunks != 0; --chunks, ++masks) {
    *masks = {};
    for (unsigned i = 0; i < kChunkBytes; ++i) {
      const char c = *text++;
      masks->digits |= std::uint64_t{c >= '0' && c <= '9'} << i;
      masks->points |= std::uint64_t{c == signs.decimal} << i;
      masks->signs |= std::uint64_t{c == '+' || c == '-'} << i;
      masks->exponents |= std::uint64_t{(c | kCaseBit) == 'e'} << i;
      masks->separators |= std::uint64_t{c == signs.separator} << i;
      masks->feeds |= std::uint64_t{c == '\n'} << i;
    }
  }
}

#if defined(TSLM5_HAS_X86_VECTORS)

void MaskBySse2(const char* text, std::size_t chunks, NumberSigns signs, NumberMasks* masks) {
  const __m128i zero = _mm_set1_epi8('0');
  const __m128i nine = _mm_set1_epi8(9);
  const __m128i decimal = _mm_set1_epi8(signs.decimal);
  const __m128i plus = _mm_set1_epi8('+');
  const __m128i minus = _mm_set1_epi8('-');
  const __m128i case_bit = _mm_set1_epi8(kCaseBit);
  const __m128i exponent = _mm_set1_epi8('e');
  const __m128i separator = _mm_set1_epi8(signs.separator);
  const __m128i feed = _mm_set1_epi8('\n');
  const auto bits = [](__m128i found, unsigned i) {
    return std::uint64_t{static_cast<unsigned>(_mm_movemask_epi8(found))} << i;
  };
  for (; chunks != 0; --chunks, ++masks) {
    NumberMasks found{};
    for (unsigned i = 0; i < kChunkBytes; i += sizeof(__m128i), text += sizeof(__m128i)) {
      const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
      const __m128i value = _mm_sub_epi8(bytes, zero);
      found.digits |= bits(_mm_cmpeq_epi8(value, _mm_min_epu8(value, nine)), i);
      found.points |= bits(_mm_cmpeq_epi8(bytes, decimal), i);
      found.signs |=
          bits(_mm_or_si128(_mm_cmpeq_epi8(bytes, plus), _mm_cmpeq_epi8(bytes, minus)), i);
      found.exponents |= bits(_mm_cmpeq_epi8(_mm_or_si128(bytes, case_bit), exponent), i);
      found.separators |= bits(_mm_cmpeq_epi8(bytes, separator), i);
      found.feeds |= bits(_mm_cmpeq_epi8(bytes, feed), i);
    }
    *masks = found;
  }
}

__attribute__((target("avx2"))) void MaskByAvx2(const char* text, std::size_t chunks,
                                                NumberSigns signs, NumberMasks* masks) {
  const __m256i zero = _mm256_set1_epi8('0');
  const __m256i nine = _mm256_set1_epi8(9);
  const __m256i decimal = _mm256_set1_epi8(signs.decimal);
  const __m256i plus = _mm256_set1_epi8('+');
  const __m256i minus = _mm256_set1_epi8('-');
  const __m256i case_bit = _mm256_set1_epi8(kCaseBit);
  const __m256i exponent = _mm256_set1_epi8('e');
  const __m256i separator = _mm256_set1_epi8(signs.separator);
  const __m256i feed = _mm256_set1_epi8('\n');
  for (; chunks != 0; --chunks, ++masks) {
    NumberMasks found{};
    for (unsigned i = 0; i < kChunkBytes; i += sizeof(__m256i), text += sizeof(__m256i)) {
      const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(text));
      const __m256i value = _mm256_sub_epi8(bytes, zero);
      const auto digits = static_cast<unsigned>(
          _mm256_movemask_epi8(_mm256_cmpeq_epi8(value, _mm256_min_epu8(value, nine))));
      const auto points =
          static_cast<unsigned>(_mm256_movemask_epi8(_mm256_cmpeq_epi8(bytes, decimal)));
      const auto any_sign = static_cast<unsigned>(_mm256_movemask_epi8(
          _mm256_or_si256(_mm256_cmpeq_epi8(bytes, plus), _mm256_cmpeq_epi8(bytes, minus))));
      const auto exponents = static_cast<unsigned>(
          _mm256_movemask_epi8(_mm256_cmpeq_epi8(_mm256_or_si256(bytes, case_bit), exponent)));
      const auto separators =
          static_cast<unsigned>(_mm256_movemask_epi8(_mm256_cmpeq_epi8(bytes, separator)));
      const auto feeds =
          static_cast<unsigned>(_mm256_movemask_epi8(_mm256_cmpeq_epi8(bytes, feed)));
      found.digits |= std::uint64_t{digits} << i;
      found.points |= std::uint64_t{points} << i;
      found.signs |= std::uint64_t{any_sign} << i;
      found.exponents |= std::uint64_t{exponents} << i;
      found.separators |= std::uint64_t{separators} << i;
      found.feeds |= std::uint64_t{feeds} << i;
    }
    *masks = found;
  }
}

#endif

}  // namespace

NumberMaskFunction NumberMaskFunctionOf(MaskWay way) {
#if defined(TSLM5_HAS_X86_VECTORS)
  if (way == MaskWay::kAvx2) return MaskByAvx2;
  if (way == MaskWay::kSse2) return MaskBySse2;
#endif
  static_cast<void>(way);
  return MaskPortably;
}

}  // namespace tslm5::delimited
