#ifndef TSLM5_CONTRACTS_MISSING_TOKENS_H_
#define TSLM5_CONTRACTS_MISSING_TOKENS_H_

#include <string_view>

namespace tslm5 {

/// Whether `pText` is exactly one of the words for a missing value: "?", "NULL", "Null", "null",
/// "NA", "na", "." and "._".
inline bool IsMissingWord(std::string_view pText) {
  switch (pText.size()) {
    case 1:
      return pText[0] == '?' || pText[0] == '.';
    case 2:
      return pText == "NA" || pText == "na" || pText == "._";
    case 4:
      return pText == "NULL" || pText == "Null" || pText == "null";
    default:
      return false;
  }
}

/// Whether `pText` is exactly one of the 60 tokens for a missing value: one of the words, or "."
/// followed by one of the letters A to Z or a to z. Case counts, blanks count, and the empty text
/// is no token.
inline bool IsMissingToken(std::string_view pText) {
  if (IsMissingWord(pText)) return true;
  if (pText.size() != 2 || pText[0] != '.') return false;
  const char letter = pText[1];
  return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
}

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_MISSING_TOKENS_H_
