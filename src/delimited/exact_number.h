#ifndef TSLM5_DELIMITED_EXACT_NUMBER_H_
#define TSLM5_DELIMITED_EXACT_NUMBER_H_

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "support/byte_block.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::delimited {

/// How many bytes from the first one on `ParseExactNumber` may read, however short the number.
inline constexpr std::size_t kExactNumberReads = 18;

namespace exact_number_internal {

inline constexpr int kLargestPower = number_text_internal::kLargestExactPower;
inline constexpr std::size_t kMostCharacters = ByteScan::ByteBlock::kSize;

/// A number is divided by one of these and multiplied by the other; the one that its power of ten
/// does not need is 1, so that neither is a choice to be guessed. Index: the power + kLargestPower.
using PowerTable = std::array<double, 2 * kLargestPower + 1>;

constexpr PowerTable MakePowers(int sign) {
  PowerTable table{};
  int power = -kLargestPower;
  for (double& entry : table) {
    const int exponent = sign * power;
    entry = exponent > 0 ? number_text_internal::kPowersOfTen[exponent] : 1.0;
    ++power;
  }
  return table;
}

inline constexpr PowerTable kDivisors = MakePowers(-1);
inline constexpr PowerTable kFactors = MakePowers(1);

constexpr unsigned LowBits(unsigned count) {
  return (1U << count) - 1;
}

/// Reads the exponent in the characters [from, size) of a number, of which `digits` has the digits:
/// a sign or none, and one or two digits.
inline bool ReadExponent(const char* number, unsigned from, unsigned size, unsigned digits,
                         int& exponent) {
  const char sign = number[from];
  from += static_cast<unsigned>(sign == '-' || sign == '+');
  const unsigned count = size - from;
  if (count - 1 > 1 || (digits >> from & LowBits(count)) != LowBits(count)) return false;
  exponent = number[from] - '0';
  if (count == 2) exponent = exponent * 10 + (number[from + 1] - '0');
  if (sign == '-') exponent = -exponent;
  return true;
}

/// The first `count` <= 8 digits at `from`, of which eight bytes are read.
inline std::uint64_t ReadUpToEight(const char* from, unsigned count) {
  constexpr std::uint64_t kDigitValues = 0x0F0F0F0F0F0F0F0F;
  const auto text = number_text_internal::LoadWord<std::uint64_t>(from);
  const std::uint64_t any = -std::uint64_t{count != 0};
  return number_text_internal::EightDigits(text << (64 - 8 * count) % 64 & any & kDigitValues);
}

inline constexpr std::uint64_t kTens[] = {1,      10,      100,      1000,     10000,
                                          100000, 1000000, 10000000, 100000000};

/// The `count` digits among the first characters of a number as one whole number; at `gap` stands
/// the decimal separator, which is left out, or nothing does when it `has_none`. `size` is that of
/// both together. No branch asks whether there is one.
inline std::uint64_t ReadDigits(const char* number, unsigned size, unsigned gap, bool has_none) {
  using namespace number_text_internal;
  constexpr std::uint64_t kDigitValues = 0x0F0F0F0F0F0F0F0F;
  const unsigned count = size - !has_none;
  if (size <= 8) {
    const auto text = LoadWord<std::uint64_t>(number);
    const std::uint64_t before =
        ((std::uint64_t{1} << (8 * gap % 64)) - 1) | -std::uint64_t{has_none};
    const std::uint64_t closed = (text & before) | (text >> 8 & ~before);
    return EightDigits(closed << (8 * (8 - count)) & kDigitValues);
  }
  if (const unsigned behind = count - gap; gap <= 8 && behind <= 8) {
    return ReadUpToEight(number, gap) * kTens[behind] + ReadUpToEight(number + gap + 1, behind);
  }
  const auto text = LoadWord<Characters>(number);
  const Characters before = ((Characters{1} << (8 * gap % 128)) - 1) | -Characters{has_none};
  const Characters closed = ((text & before) | (text >> 8 & ~before)) << (8 * (16 - count));
  return EightDigits(static_cast<std::uint64_t>(closed) & kDigitValues) * 100000000 +
         EightDigits(static_cast<std::uint64_t>(closed >> 64) & kDigitValues);
}

}  // namespace exact_number_internal

/// A number as it was read, before the one step that makes a double of it.
struct ExactParts {
  std::uint64_t mantissa = 0;  ///< at most 2^53; the top bit is the sign
  std::uint32_t power = 0;     ///< its power of ten + the largest one
};

/// The value of the parts, correctly rounded.
inline double Compose(const ExactParts& parts) {
  using namespace exact_number_internal;
  constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
  const auto mantissa = static_cast<double>(static_cast<std::int64_t>(parts.mantissa & ~kSign));
  const double magnitude = mantissa / kDivisors[parts.power] * kFactors[parts.power];
  return std::bit_cast<double>(std::bit_cast<std::uint64_t>(magnitude) | (parts.mantissa & kSign));
}

/// `ParseNumber` for the usual number in a long text: up to sixteen characters behind a minus sign
/// or none, an exponent of up to two digits, a value that one exact step gives. True, and the same
/// value; false leaves the answer to `ParseNumber`. Hardly a branch depends on the number, so that
/// mixed ones cost no more than uniform ones.
/// REQUIRES: [first, first + kExactNumberReads) can be read.
[[gnu::always_inline]] inline bool ParseExactParts(const char* first, std::size_t length,
                                                   char decimal, ExactParts& parts) {
  using namespace exact_number_internal;
  if constexpr (std::endian::native != std::endian::little) return false;
  const bool is_negative = *first == '-';
  const char* const number = first + is_negative;
  length -= is_negative;
  if (length - 1 >= kMostCharacters) return false;  // none, or too many

  auto size = static_cast<unsigned>(length);
  const ByteScan::ByteBlock block(number);
  const unsigned digits = block.Digits();
  unsigned points = block.Equal(decimal);
  int exponent = 0;
  if (const unsigned others = ~(digits | points) & LowBits(size); others != 0) {
    const auto mark = static_cast<unsigned>(std::countr_zero(others));
    if ((number[mark] | 0x20) != 'e' || !ReadExponent(number, mark + 1, size, digits, exponent)) {
      return false;
    }
    size = mark;
  }
  points &= LowBits(size);
  if ((points & (points - 1)) != 0 || (digits & LowBits(size)) == 0) return false;

  const bool is_whole = points == 0;
  const auto whole_digits = static_cast<unsigned>(std::countr_zero(points | 1U << size));
  const std::uint64_t mantissa = ReadDigits(number, size, whole_digits, is_whole);
  const auto fraction_digits = static_cast<int>(size - !is_whole - whole_digits);
  const auto power = static_cast<unsigned>(exponent - fraction_digits + kLargestPower);
  if (mantissa > number_text_internal::kLargestExactMantissa || power >= kDivisors.size()) {
    return false;
  }
  parts = {mantissa | std::uint64_t{is_negative} << 63, power};
  return true;
}

/// The same, with the value.
/// REQUIRES: as above.
inline bool ParseExactNumber(const char* first, std::size_t length, char decimal, double& value) {
  ExactParts parts;
  if (!ParseExactParts(first, length, decimal, parts)) return false;
  value = Compose(parts);
  return true;
}

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_EXACT_NUMBER_H_
