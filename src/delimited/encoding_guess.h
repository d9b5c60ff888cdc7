#ifndef TSLM5_DELIMITED_ENCODING_GUESS_H_
#define TSLM5_DELIMITED_ENCODING_GUESS_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace tslm5::delimited {

/// A byte-order mark at the beginning of a text.
struct Mark {
  const char* encoding = nullptr;
  std::size_t size = 0;  ///< in bytes; 0 where there is none
};
Mark FindMark(std::string_view bytes);

/// "UTF-16LE" or "UTF-16BE" where zero bytes stand in nearly every second place and nowhere else;
/// else nullptr.
const char* GuessUtf16(std::string_view bytes);

/// The encoding of a text that is no well-formed UTF-8, by ICU's detector. Western European text
/// is windows-1252, and so is everything of which the detector is not sure.
std::string GuessEncoding(std::string_view bytes);

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_ENCODING_GUESS_H_
