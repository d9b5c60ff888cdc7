#ifndef TSLM5_SUPPORT_NULL_HELPER_H_
#define TSLM5_SUPPORT_NULL_HELPER_H_

#include <string_view>

namespace tslm5::NullHelper {

/// Whether `text` is exactly one of the 60 tokens for a missing value: "?", "NULL", "Null",
/// "null", "NA", "na", ".", "._", and "." followed by one of the letters A to Z or a to z.
/// Case counts, blanks count, and the empty text is no token. This is the test of a stored record.
bool IsMissingToken(std::string_view text);

/// The looser test of categorical columns: whether `text` is blank, or without the blanks around
/// it one of the tokens that have no letter after the dot, or starts with "." (before any
/// trimming: meant) while what follows the dot is no number under `decimal`. So ".x" and ".abc"
/// are missing, ".5" and " .x" are not.
bool IsMissingValue(std::string_view text, char decimal);

/// The same under the user's decimal separator.
bool IsMissingValue(std::string_view text);

}  // namespace tslm5::NullHelper

#endif  // TSLM5_SUPPORT_NULL_HELPER_H_
