#include "support/null_helper.h"

#include "support/locale.h"
#include "support/numeric_test.h"
#include "support/utf8.h"

namespace tslm5::NullHelper {
namespace {

bool IsWordToken(std::string_view text) {
  switch (text.size()) {
    case 1:
      return text[0] == '?' || text[0] == '.';
    case 2:
      return text == "NA" || text == "na" || text == "._";
    case 4:
      return text == "NULL" || text == "Null" || text == "null";
    default:
      return false;
  }
}

bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

}  // namespace

bool IsMissingToken(std::string_view text) {
  return IsWordToken(text) || (text.size() == 2 && text[0] == '.' && IsLetter(text[1]));
}

bool IsMissingValue(std::string_view text, char decimal) {
  const std::string_view trimmed = Utf8::TrimBlanks(text);
  if (trimmed.empty() || IsWordToken(trimmed)) return true;
  return text.front() == '.' && !IsNumeric(text.substr(1), decimal);
}

bool IsMissingValue(std::string_view text) {
  return IsMissingValue(text, CurrentLocale().DecimalSymbol());
}

}  // namespace tslm5::NullHelper
