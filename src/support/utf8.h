#ifndef TSLM5_SUPPORT_UTF8_H_
#define TSLM5_SUPPORT_UTF8_H_

#include <cstddef>
#include <string_view>

namespace tslm5::Utf8 {

/// Whether `text` is well-formed UTF-8: no overlong forms, no surrogates, nothing past U+10FFFF.
bool IsValid(std::string_view text);

/// How many bytes at the beginning of `text` are well-formed UTF-8.
std::size_t ValidPrefixSize(std::string_view text);

/// The first `count` code points of `text`, all of it when it has fewer. A view into `text`.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

/// `text` without the blanks (U+0020, nothing else) around it. A view into `text`.
inline std::string_view TrimBlanks(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

}  // namespace tslm5::Utf8

#endif  // TSLM5_SUPPORT_UTF8_H_
