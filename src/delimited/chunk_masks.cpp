#include "delimited/chunk_masks.h"

#if defined(__x86_64__) && defined(__GNUC__)
#define TSLM5_HAS_X86_VECTORS
#include <immintrin.h>
#endif

namespace tslm5::delimited {
namespace {

void MaskPortably(const char* text, std::size_t chunks, SeparatorPair separators,
                  ChunkMasks* masks) {
  for (; chunks != 0; --chunks, ++masks) {
    *masks = {};
    for (unsigned i = 0; i < kChunkBytes; ++i) {
      const char c = *text++;
      const bool delimits =
          c == separators.first || c == separators.second || c == '\n' || c == '\r';
      masks->delimiters |= std::uint64_t{delimits} << i;
      masks->quotes |= std::uint64_t{c == '"'} << i;
    }
  }
}

#if defined(TSLM5_HAS_X86_VECTORS)

void MaskBySse2(const char* text, std::size_t chunks, SeparatorPair separators, ChunkMasks* masks) {
  const __m128i first = _mm_set1_epi8(separators.first);
  const __m128i second = _mm_set1_epi8(separators.second);
  const __m128i line_feed = _mm_set1_epi8('\n');
  const __m128i carriage_return = _mm_set1_epi8('\r');
  const __m128i quote = _mm_set1_epi8('"');
  for (; chunks != 0; --chunks, ++masks) {
    std::uint64_t delimiters = 0;
    std::uint64_t quotes = 0;
    for (unsigned i = 0; i < kChunkBytes; i += sizeof(__m128i), text += sizeof(__m128i)) {
      const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
      const __m128i separates =
          _mm_or_si128(_mm_cmpeq_epi8(bytes, first), _mm_cmpeq_epi8(bytes, second));
      const __m128i ends =
          _mm_or_si128(_mm_cmpeq_epi8(bytes, line_feed), _mm_cmpeq_epi8(bytes, carriage_return));
      const auto found = static_cast<unsigned>(_mm_movemask_epi8(_mm_or_si128(separates, ends)));
      const auto quoted = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, quote)));
      delimiters |= std::uint64_t{found} << i;
      quotes |= std::uint64_t{quoted} << i;
    }
    *masks = {delimiters, quotes};
  }
}

__attribute__((target("avx2"))) void MaskByAvx2(const char* text, std::size_t chunks,
                                                SeparatorPair separators, ChunkMasks* masks) {
  const __m256i first = _mm256_set1_epi8(separators.first);
  const __m256i second = _mm256_set1_epi8(separators.second);
  const __m256i line_feed = _mm256_set1_epi8('\n');
  const __m256i carriage_return = _mm256_set1_epi8('\r');
  const __m256i quote = _mm256_set1_epi8('"');
  for (; chunks != 0; --chunks, ++masks) {
    std::uint64_t delimiters = 0;
    std::uint64_t quotes = 0;
    for (unsigned i = 0; i < kChunkBytes; i += sizeof(__m256i), text += sizeof(__m256i)) {
      const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(text));
      const __m256i separates =
          _mm256_or_si256(_mm256_cmpeq_epi8(bytes, first), _mm256_cmpeq_epi8(bytes, second));
      const __m256i ends = _mm256_or_si256(_mm256_cmpeq_epi8(bytes, line_feed),
                                           _mm256_cmpeq_epi8(bytes, carriage_return));
      const auto found =
          static_cast<unsigned>(_mm256_movemask_epi8(_mm256_or_si256(separates, ends)));
      const auto quoted =
          static_cast<unsigned>(_mm256_movemask_epi8(_mm256_cmpeq_epi8(bytes, quote)));
      delimiters |= std::uint64_t{found} << i;
      quotes |= std::uint64_t{quoted} << i;
    }
    *masks = {delimiters, quotes};
  }
}

#endif

}  // namespace

bool IsAvailable(MaskWay way) {
#if defined(TSLM5_HAS_X86_VECTORS)
  return way != MaskWay::kAvx2 || __builtin_cpu_supports("avx2") != 0;
#else
  return way == MaskWay::kPortable;
#endif
}

MaskWay BestMaskWay() {
  static const MaskWay best = IsAvailable(MaskWay::kAvx2)   ? MaskWay::kAvx2
                              : IsAvailable(MaskWay::kSse2) ? MaskWay::kSse2
                                                            : MaskWay::kPortable;
  return best;
}

MaskFunction MaskFunctionOf(MaskWay way) {
#if defined(TSLM5_HAS_X86_VECTORS)
  if (way == MaskWay::kAvx2) return MaskByAvx2;
  if (way == MaskWay::kSse2) return MaskBySse2;
#endif
  static_cast<void>(way);
  return MaskPortably;
}

}  // namespace tslm5::delimited
