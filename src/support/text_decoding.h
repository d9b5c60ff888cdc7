#ifndef TSLM5_SUPPORT_TEXT_DECODING_H_
#define TSLM5_SUPPORT_TEXT_DECODING_H_

#include <string>

namespace tslm5::TextDecoding {

/// The text of a file's bytes, as UTF-8 without a byte-order mark. A UTF-16 mark, of either byte
/// order, says that they are UTF-16; otherwise valid UTF-8 is taken as it is, in the same buffer,
/// and anything else is Windows-1252. Never fails: a unit that stands for no character becomes
/// U+FFFD in UTF-16, and a byte that Windows-1252 leaves open the control character of its number.
std::string ToUtf8(std::string bytes);

}  // namespace tslm5::TextDecoding

#endif  // TSLM5_SUPPORT_TEXT_DECODING_H_
