#include "support/math_helper.h"

#include <cmath>
#include <limits>

#include "support/locale.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::MathHelper {
namespace {

double NotInfinite(double value) {
  if (std::isinf(value)) RaiseOverflow();
  return value;
}

double Divide(double numerator, double denominator) {
  if (denominator == 0.0) RaiseDivisionByZero();
  return NotInfinite(numerator / denominator);
}

bool FitsInteger(double value) {
  return value >= std::numeric_limits<std::int32_t>::min() &&
         value <= std::numeric_limits<std::int32_t>::max();
}

}  // namespace

double Standardize(double value, double mean, double deviation) {
  return Divide(NotInfinite(value - mean), deviation);
}

double Normalize(double value, double maximum, double minimum) {
  return Divide(NotInfinite(value - minimum), NotInfinite(maximum - minimum));
}

double Rescale(double value, double old_maximum, double old_minimum, double new_maximum,
               double new_minimum) {
  const double share = Normalize(value, old_maximum, old_minimum);
  const double span = NotInfinite(new_maximum - new_minimum);
  return NotInfinite(share * span + new_minimum);
}

std::int32_t FloorValue(double value) {
  double nearest = std::nearbyint(value);
  if (nearest > value) nearest -= 1.0;
  if (!FitsInteger(nearest)) RaiseOverflow();
  return static_cast<std::int32_t>(nearest);
}

std::int32_t Successor(std::int32_t value) {
  if (value == std::numeric_limits<std::int32_t>::max()) RaiseOverflow();
  return value + 1;
}

bool IsWholeNumber(std::string_view text, char decimal) {
  double value = 0.0;
  if (!ParseNumber(text, decimal, value)) return false;
  return FitsInteger(value) && value == std::nearbyint(value);
}

bool IsWholeNumber(std::string_view text) {
  return IsWholeNumber(text, CurrentLocale().DecimalSymbol());
}

}  // namespace tslm5::MathHelper
