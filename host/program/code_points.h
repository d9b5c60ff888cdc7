#ifndef TSLM5_HOST_PROGRAM_CODE_POINTS_H_
#define TSLM5_HOST_PROGRAM_CODE_POINTS_H_

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tslm5::host {

/// The code point of `text` that begins at `at`, which moves behind it; below 0 where the bytes are
/// no UTF-8, of which as many are passed as belong together. REQUIRES: `at` < the size.
std::int32_t NextCodePoint(std::string_view text, std::size_t& at);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_CODE_POINTS_H_
