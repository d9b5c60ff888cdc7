#ifndef TSLM5_DELIMITED_CHUNK_MASKS_H_
#define TSLM5_DELIMITED_CHUNK_MASKS_H_

#include <cstddef>
#include <cstdint>

namespace tslm5::delimited {

/// The bytes of a text that are looked at together, and one bit for each in a mask.
inline constexpr std::size_t kChunkBytes = 64;

/// What stands in 64 bytes: bit i is for byte i.
struct ChunkMasks {
  std::uint64_t delimiters;  ///< separators and line ends, whether in quotes or not
  std::uint64_t quotes;      ///< double quotes
};

/// The two characters that separate fields, which may be the same. For a text without a separator
/// both are '\n'. Line ends are '\n' and '\r' in any case.
struct SeparatorPair {
  char first;
  char second;
};

/// The ways to the same masks: plain C++, the vectors that every x86-64 has, and wider ones.
enum class MaskWay { kPortable, kSse2, kAvx2 };

/// Whether this machine has the way.
bool IsAvailable(MaskWay way);
/// The fastest way that this machine has; found out once.
MaskWay BestMaskWay();

/// Looks at `chunks` times 64 bytes from `text` on and writes as many masks.
using MaskFunction = void (*)(const char* text, std::size_t chunks, SeparatorPair separators,
                              ChunkMasks* masks);
MaskFunction MaskFunctionOf(MaskWay way);

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_CHUNK_MASKS_H_
