#ifndef TSLM5_DELIMITED_NUMBER_MASKS_H_
#define TSLM5_DELIMITED_NUMBER_MASKS_H_

#include <cstddef>
#include <cstdint>

#include "delimited/chunk_masks.h"

namespace tslm5::delimited {

/// Which of 64 bytes are of which class: bit i is for byte i. A byte in none of them stands in no
/// text of plain numbers.
struct NumberMasks {
  std::uint64_t digits;
  std::uint64_t points;     ///< the decimal sign
  std::uint64_t signs;      ///< "+" and "-"
  std::uint64_t exponents;  ///< "e" and "E"
  std::uint64_t separators;
  std::uint64_t feeds;
};

/// What tells the classes apart. The separator is '\n' where lines are single fields; a character
/// that is both separator and decimal sign is in both classes.
struct NumberSigns {
  char separator;
  char decimal;
};

/// Looks at `chunks` times 64 bytes from `text` on and writes as many masks.
using NumberMaskFunction = void (*)(const char* text, std::size_t chunks, NumberSigns signs,
                                    NumberMasks* masks);
NumberMaskFunction NumberMaskFunctionOf(MaskWay way);

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_NUMBER_MASKS_H_
