#ifndef TSLM5_HOST_PREPARATION_TEXT_DECODING_H_
#define TSLM5_HOST_PREPARATION_TEXT_DECODING_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace tslm5::host {

inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// Characters of a UTF-16 text that are none: half of a pair without its other half, or half of a
/// unit at the end. Each is read as U+FFFD.
struct BrokenCharacters {
  std::int64_t count = 0;
  std::int64_t first_line = 0;  ///< from 1; 0 where there are none
};

/// The bytes of a text file as UTF-8, by the loader's rule: a UTF-8 mark is dropped, a UTF-16 mark
/// honoured, valid UTF-8 taken as it is, and anything else read as Windows-1252. With `broken`,
/// the broken characters of a UTF-16 text are counted.
std::string DecodeText(std::string bytes, BrokenCharacters* broken = nullptr);

/// Whether `bytes` are text that is taken as it is, but for a UTF-8 mark.
bool IsUtf8(std::string_view bytes);

/// The size of the UTF-8 mark that `bytes` begin with; 0 when there is none.
std::size_t MarkSize(std::string_view bytes);

/// Whether `bytes` begin with the mark of UTF-16.
bool HasUtf16Mark(std::string_view bytes);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_TEXT_DECODING_H_
