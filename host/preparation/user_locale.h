#ifndef TSLM5_HOST_PREPARATION_USER_LOCALE_H_
#define TSLM5_HOST_PREPARATION_USER_LOCALE_H_

#include <string>

namespace tslm5::host {

/// Whether the decimal symbol of the locale `name` ("de_DE.UTF-8") is a comma.
bool HasDecimalComma(const std::string& name);

/// Whether the user writes decimals with a comma: by LC_ALL, LC_NUMERIC, LANG, the first one set.
bool UserHasDecimalComma();

/// The name of the user's locale by the same variables; empty when none is set.
std::string UserLocaleName();

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_USER_LOCALE_H_
