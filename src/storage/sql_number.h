#ifndef TSLM5_STORAGE_SQL_NUMBER_H_
#define TSLM5_STORAGE_SQL_NUMBER_H_

#include <cmath>
#include <string>

#include "tslm5/platform/error.h"
#include "tslm5/platform/number_text.h"

namespace tslm5 {

/// The text of a number inside a statement, with a point in every locale. What no statement can
/// hold is refused: not a number raises 13 "Type mismatch", infinity 6 "Overflow".
inline std::string SqlNumber(double value) {
  if (std::isnan(value)) RaiseTypeMismatch();
  if (std::isinf(value)) RaiseOverflow();
  return NumberText(value);
}

}  // namespace tslm5

#endif  // TSLM5_STORAGE_SQL_NUMBER_H_
