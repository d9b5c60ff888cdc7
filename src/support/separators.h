#ifndef TSLM5_SUPPORT_SEPARATORS_H_
#define TSLM5_SUPPORT_SEPARATORS_H_

#include <cstdint>
#include <string>
#include <string_view>

/// The separators of delimited text and their codes (`separator_code`).
namespace tslm5::SharedFunctions {

/// The text of a separator code; empty for -1, one column. Raises 41012, without words, for any
/// code outside -1 to 4. The view lives for ever.
std::string_view SeparatorToString(std::int32_t code);

/// 1 when `separator` is empty, else 1 plus the number of separators in the first line of `text`
/// that is not empty.
std::int32_t CountColumns(std::string_view text, std::string_view separator);

/// Whether numbers of the user have a decimal comma.
bool DecimalSeparatorIsComma();

/// Whether the separator of `code` occurs in `text`; that of -1 occurs in every text. Raises 41012
/// for an unknown code.
bool TextContainsSeparator(std::string_view text, std::int32_t code);

/// Whether `text` holds any other separator than that of `code`, be it one blank; a comma does not
/// count where it is the user's decimal separator. False for -1 and unknown codes.
bool HasMixedSeparators(std::string_view text, std::int32_t code);

/// Deletes every separator from a text of one column; a comma stays where it is the user's decimal
/// separator. Line feeds stay.
void StripSeparators(std::string& text);

}  // namespace tslm5::SharedFunctions

#endif  // TSLM5_SUPPORT_SEPARATORS_H_
