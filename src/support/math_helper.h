#ifndef TSLM5_SUPPORT_MATH_HELPER_H_
#define TSLM5_SUPPORT_MATH_HELPER_H_

#include <cstdint>
#include <string_view>

namespace tslm5::MathHelper {

/// The arithmetic of normalisation. A zero denominator raises 11 "Division by zero", whatever the
/// numerator; a result or an intermediate value past the largest double raises 6 "Overflow".

/// (value - mean) / deviation
double Standardize(double value, double mean, double deviation);

/// (value - minimum) / (maximum - minimum)
double Normalize(double value, double maximum, double minimum);

/// Maps [old_minimum, old_maximum] onto [new_minimum, new_maximum].
double Rescale(double value, double old_maximum, double old_minimum, double new_maximum,
               double new_minimum);

/// The largest whole number that is not above `value`. Raises 6 "Overflow" when 32 bits cannot
/// hold it.
std::int32_t FloorValue(double value);

/// value + 1, such as the number of the row at an index. Raises 6 "Overflow" behind the last one.
std::int32_t Successor(std::int32_t value);

/// Whether `text` is a number (with `decimal` as its decimal separator) that is whole and that 32
/// bits can hold. Never fails.
bool IsWholeNumber(std::string_view text, char decimal);

/// The same under the user's decimal separator.
bool IsWholeNumber(std::string_view text);

}  // namespace tslm5::MathHelper

#endif  // TSLM5_SUPPORT_MATH_HELPER_H_
