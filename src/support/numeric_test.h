#ifndef TSLM5_SUPPORT_NUMERIC_TEST_H_
#define TSLM5_SUPPORT_NUMERIC_TEST_H_

#include <string_view>

#include "tslm5/platform/number_text.h"

namespace tslm5 {

/// Whether `text` is a number of the system's one grammar (see `ParseNumber`) with `decimal` as
/// its decimal separator: "." in the invariant form, else the user's, asked once an operation.
inline bool IsNumeric(std::string_view text, char decimal) {
  double value = 0.0;
  return ParseNumber(text, decimal, value);
}

}  // namespace tslm5

#endif  // TSLM5_SUPPORT_NUMERIC_TEST_H_
