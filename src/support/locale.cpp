#include "support/locale.h"

#include <unicode/uloc.h>
#include <unicode/unum.h>
#include <unicode/ures.h>
#include <unicode/ustring.h>

#include <cstdlib>
#include <memory>

namespace tslm5 {
namespace {

constexpr std::int32_t kSymbolUnits = 8;
constexpr std::int32_t kSymbolBytes = kSymbolUnits * 3;

const Locale* scoped_locale = nullptr;

/// "de_DE.UTF-8@euro" -> "de_DE"; empty for the locales that stand for none.
std::string BareName(std::string_view name) {
  const std::string_view bare = name.substr(0, name.find_first_of(".@"));
  return bare == "C" || bare == "POSIX" ? std::string() : std::string(bare);
}

/// Whether ICU has data for the language. For any other it would quietly serve the data of its
/// own default locale.
bool IsKnown(const std::string& name) {
  UErrorCode status = U_ZERO_ERROR;
  ures_close(ures_open(nullptr, name.c_str(), &status));
  return U_SUCCESS(status) && status != U_USING_DEFAULT_WARNING;
}

/// `name` with the likeliest country where it has none. Identifiers belong to countries.
std::string WithCountry(const std::string& name) {
  char country[ULOC_COUNTRY_CAPACITY];
  char language[ULOC_LANG_CAPACITY];
  char likely[ULOC_FULLNAME_CAPACITY];
  UErrorCode status = U_ZERO_ERROR;
  if (uloc_getCountry(name.c_str(), country, ULOC_COUNTRY_CAPACITY, &status) > 0) return name;
  uloc_addLikelySubtags(name.c_str(), likely, ULOC_FULLNAME_CAPACITY, &status);
  uloc_getLanguage(likely, language, ULOC_LANG_CAPACITY, &status);
  uloc_getCountry(likely, country, ULOC_COUNTRY_CAPACITY, &status);
  if (U_FAILURE(status)) return name;
  return std::string(language) + "_" + country;
}

std::string Symbol(const UNumberFormat* format, UNumberFormatSymbol which) {
  UErrorCode status = U_ZERO_ERROR;
  UChar units[kSymbolUnits];
  const std::int32_t count = unum_getSymbol(format, which, units, kSymbolUnits, &status);
  char bytes[kSymbolBytes];
  std::int32_t size = 0;
  u_strToUTF8(bytes, kSymbolBytes, &size, units, count, &status);
  return U_SUCCESS(status) ? std::string(bytes, static_cast<std::size_t>(size)) : std::string();
}

}  // namespace

Locale::Locale(std::string_view name) {
  const std::string bare = BareName(name);
  if (bare.empty() || !IsKnown(bare)) return;
  identifier_ = static_cast<std::int32_t>(uloc_getLCID(WithCountry(bare).c_str()));

  // The numbers of data are in ASCII digits, so the symbols are those that go with them.
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UNumberFormat, decltype(&unum_close)> format(
      unum_open(UNUM_DECIMAL, nullptr, 0, (bare + "@numbers=latn").c_str(), nullptr, &status),
      &unum_close);
  if (U_FAILURE(status)) return;
  const std::string decimal = Symbol(format.get(), UNUM_DECIMAL_SEPARATOR_SYMBOL);
  if (decimal.size() == 1) decimal_symbol_ = decimal[0];
  group_symbol_ = Symbol(format.get(), UNUM_GROUPING_SEPARATOR_SYMBOL);
}

Locale Locale::FromEnvironment() {
  for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
    const char* name = std::getenv(variable);
    if (name != nullptr && *name != '\0') return Locale(name);
  }
  return Locale("");
}

bool Locale::FromIdentifier(std::int32_t identifier, Locale& locale) {
  char name[ULOC_FULLNAME_CAPACITY];
  UErrorCode status = U_ZERO_ERROR;
  uloc_getLocaleForLCID(static_cast<std::uint32_t>(identifier), name, ULOC_FULLNAME_CAPACITY,
                        &status);
  if (U_FAILURE(status) || std::string_view(name) == "root") return false;
  locale = Locale(name);
  return true;
}

const Locale& CurrentLocale() {
  if (scoped_locale != nullptr) return *scoped_locale;
  static const Locale environment = Locale::FromEnvironment();
  return environment;
}

ScopedLocale::ScopedLocale(std::string_view name) : locale_(name), previous_(scoped_locale) {
  scoped_locale = &locale_;
}

ScopedLocale::~ScopedLocale() {
  scoped_locale = previous_;
}

}  // namespace tslm5
