#ifndef TSLM5_HOST_PREPARATION_SEPARATORS_H_
#define TSLM5_HOST_PREPARATION_SEPARATORS_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tslm5/contracts/codes.h"

namespace tslm5::host {

/// A separator as the user names it.
struct Separator {
  std::int32_t code;  ///< `separator_code`
  const char* name;
  char character;  ///< 0 for none
};

inline constexpr Separator kSeparators[] = {
    {separator_code::kNone, "none", '\0'},
    {separator_code::kSpace, "space", ' '},
    {separator_code::kTab, "tab", '\t'},
    {separator_code::kComma, "comma", ','},
    {separator_code::kSemicolon, "semicolon", ';'},
    {separator_code::kBar, "bar", '|'},
};

/// The separator called `name`; nullptr when there is none of that name.
const Separator* FindSeparator(std::string_view name);

/// A separator and why it was taken, in words for the user.
struct SeparatorChoice {
  const Separator* separator = nullptr;
  std::string reason;
  /// The lines look separated by commas, which are decimal separators in the user's locale.
  bool is_comma_passed_over = false;
};

/// Finds the separator of `text` by its first 100 lines that are not empty: the one that gives the
/// same number of fields, more than one, in all of them. Of several the first of tab, semicolon,
/// bar, comma, space. When none does, but one occurs in every line or gives the same number in most
/// of them, that one, so that the uneven line is found and named; else none.
/// A comma is not tried when `comma_is_decimal`.
SeparatorChoice GuessSeparator(std::string_view text, bool comma_is_decimal);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_SEPARATORS_H_
