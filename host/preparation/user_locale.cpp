#include "host/preparation/user_locale.h"

#include <unicode/unum.h>
#include <unicode/ures.h>

#include <cstdlib>
#include <string_view>

namespace tslm5::host {
namespace {

constexpr int kSymbolUnits = 8;

/// Whether ICU has data for the locale; for any other it would serve those of its own default.
bool IsKnown(const std::string& name) {
  UErrorCode status = U_ZERO_ERROR;
  ures_close(ures_open(nullptr, name.c_str(), &status));
  return U_SUCCESS(status) && status != U_USING_DEFAULT_WARNING;
}

}  // namespace

bool HasDecimalComma(const std::string& name) {
  const std::string bare = name.substr(0, name.find_first_of(".@"));
  if (bare.empty() || bare == "C" || bare == "POSIX" || !IsKnown(bare)) return false;
  UErrorCode status = U_ZERO_ERROR;
  UNumberFormat* format =
      unum_open(UNUM_DECIMAL, nullptr, 0, (bare + "@numbers=latn").c_str(), nullptr, &status);
  UChar symbol[kSymbolUnits] = {};
  unum_getSymbol(format, UNUM_DECIMAL_SEPARATOR_SYMBOL, symbol, kSymbolUnits, &status);
  unum_close(format);
  return U_SUCCESS(status) && symbol[0] == u',' && symbol[1] == 0;
}

std::string UserLocaleName() {
  for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
    const char* name = std::getenv(variable);
    if (name != nullptr && *name != '\0') return name;
  }
  return {};
}

bool UserHasDecimalComma() {
  return HasDecimalComma(UserLocaleName());
}

}  // namespace tslm5::host
