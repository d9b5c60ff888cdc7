#include "support/localization_lib.h"

#include "support/locale.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::LocalizationLib {
namespace {

constexpr std::int32_t kUnitedStates = 1033;
constexpr std::int32_t kUnitedKingdom = 2057;

double ToUserDouble(const Variant& value) {
  if (value.GetKind() != Variant::Kind::kString) return value.ToDouble();
  double number = 0.0;
  if (!ParseNumber(value.ToString(), CurrentLocale().DecimalSymbol(), number)) RaiseTypeMismatch();
  return number;
}

}  // namespace

std::int32_t GetUserLocale() {
  return CurrentLocale().Identifier();
}

bool IsEnglishLocale() {
  const std::int32_t identifier = GetUserLocale();
  return identifier == kUnitedStates || identifier == kUnitedKingdom;
}

std::string GetLocaleText(std::int32_t locale_identifier, std::int32_t item) {
  Locale locale("");
  if (!Locale::FromIdentifier(locale_identifier, locale)) return {};
  switch (item) {
    case kDecimalSeparatorItem:
      return std::string(1, locale.DecimalSymbol());
    case kGroupSeparatorItem:
      return locale.GroupSymbol();
    default:
      return {};
  }
}

std::string GetDecimalSeparator() {
  return std::string(1, CurrentLocale().DecimalSymbol());
}

std::string FormatInvariant(double value) {
  return NumberText(value);
}

std::string FormatValueInvariant(const Variant& value) {
  return FormatInvariant(ToUserDouble(value));
}

}  // namespace tslm5::LocalizationLib
