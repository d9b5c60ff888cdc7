#include "support/null_helper.h"

#include "support/locale.h"
#include "support/numeric_test.h"
#include "support/utf8.h"
#include "tslm5/contracts/missing_tokens.h"

namespace tslm5::NullHelper {

bool IsMissingToken(std::string_view text) {
  return tslm5::IsMissingToken(text);
}

bool IsMissingValue(std::string_view text, char decimal) {
  const std::string_view trimmed = Utf8::TrimBlanks(text);
  if (trimmed.empty() || IsMissingWord(trimmed)) return true;
  return text.front() == '.' && !IsNumeric(text.substr(1), decimal);
}

bool IsMissingValue(std::string_view text) {
  return IsMissingValue(text, CurrentLocale().DecimalSymbol());
}

}  // namespace tslm5::NullHelper
