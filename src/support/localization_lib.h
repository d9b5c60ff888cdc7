#ifndef TSLM5_SUPPORT_LOCALIZATION_LIB_H_
#define TSLM5_SUPPORT_LOCALIZATION_LIB_H_

#include <cstdint>
#include <string>

#include "tslm5/platform/variant.h"

namespace tslm5::LocalizationLib {

/// The items that `GetLocaleText` knows.
inline constexpr std::int32_t kDecimalSeparatorItem = 14;
inline constexpr std::int32_t kGroupSeparatorItem = 15;

/// The 32-bit identifier of the user's locale.
std::int32_t GetUserLocale();

/// Whether the user's locale is 1033 (United States) or 2057 (United Kingdom).
bool IsEnglishLocale();

/// Item `item` of the locale `locale_identifier`; empty for a locale or an item that is not known.
std::string GetLocaleText(std::int32_t locale_identifier, std::int32_t item);

/// The decimal separator of the user's locale.
std::string GetDecimalSeparator();

/// The shortest text that reads back to the same double, with "." whatever the user's locale.
std::string FormatInvariant(double value);

/// `value` as a double, and that by `FormatInvariant`. A text is read as the user writes numbers,
/// so "1,5" gives "1.5" where the decimal separator is ",". Raises 13 "Type mismatch" for what is
/// no number.
std::string FormatValueInvariant(const Variant& value);

}  // namespace tslm5::LocalizationLib

#endif  // TSLM5_SUPPORT_LOCALIZATION_LIB_H_
