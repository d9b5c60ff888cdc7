#ifndef TSLM5_FUZZ_EXACT_NUMBER_H_
#define TSLM5_FUZZ_EXACT_NUMBER_H_

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tslm5::fuzz {

/// A non-negative whole number of any size.
class BigNumber {
 public:
  explicit BigNumber(std::uint64_t value = 0);

  void MultiplyAdd(std::uint32_t factor, std::uint32_t summand);
  void MultiplyByPower(std::uint32_t base, int exponent);
  void ShiftLeft(int bits) { MultiplyByPower(2, bits); }

  /// Negative, 0 or positive as this is less than, equal to or greater than `other`.
  int Compare(const BigNumber& other) const;

 private:
  std::vector<std::uint32_t> limbs_;  ///< the lowest first; no zero on top
};

/// A number as it is written: `digits` * 10^`exponent`, negative or not.
struct DecimalNumber {
  bool is_negative = false;
  BigNumber digits;
  bool is_zero = true;
  std::int64_t exponent = 0;   ///< of the last digit
  std::int64_t magnitude = 0;  ///< of the first digit that is not 0
};

/// The number of the system's grammar that `text` is, read a character at a time; or nothing.
std::optional<DecimalNumber> ReadDecimal(std::string_view text, char decimal);

/// Whether `value` is the double next to the number, the even one of two equally near.
bool IsNearest(const DecimalNumber& number, double value);

/// Whether every double is too small to hold the number, once it is rounded.
bool IsBeyondDoubles(const DecimalNumber& number);

}  // namespace tslm5::fuzz

#endif  // TSLM5_FUZZ_EXACT_NUMBER_H_
