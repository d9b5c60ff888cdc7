#include "exact_number.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace tslm5::fuzz {
namespace {

constexpr std::int64_t kExponentCap = 1'000'000;
constexpr std::uint64_t kFractionMask = (std::uint64_t{1} << 52) - 1;
constexpr int kSmallestExponent = -1074;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// The sign of number - (mantissa + half / 2) * 2^exponent, both taken without their signs.
int CompareToHalves(const DecimalNumber& number, std::uint64_t halves, int exponent) {
  BigNumber left = number.digits;
  BigNumber right(halves);
  const int ten = static_cast<int>(number.exponent);
  const int two = exponent - 1;
  if (ten > 0) left.MultiplyByPower(10, ten);
  if (ten < 0) right.MultiplyByPower(10, -ten);
  if (two > 0) right.ShiftLeft(two);
  if (two < 0) left.ShiftLeft(-two);
  return left.Compare(right);
}

}  // namespace

BigNumber::BigNumber(std::uint64_t value) {
  for (; value != 0; value >>= 32) limbs_.push_back(static_cast<std::uint32_t>(value));
}

void BigNumber::MultiplyAdd(std::uint32_t factor, std::uint32_t summand) {
  std::uint64_t carry = summand;
  for (std::uint32_t& limb : limbs_) {
    carry += std::uint64_t{limb} * factor;
    limb = static_cast<std::uint32_t>(carry);
    carry >>= 32;
  }
  if (carry != 0) limbs_.push_back(static_cast<std::uint32_t>(carry));
}

void BigNumber::MultiplyByPower(std::uint32_t base, int exponent) {
  for (; exponent > 0; --exponent) MultiplyAdd(base, 0);
}

int BigNumber::Compare(const BigNumber& other) const {
  if (limbs_.size() != other.limbs_.size()) return limbs_.size() < other.limbs_.size() ? -1 : 1;
  for (std::size_t i = limbs_.size(); i-- > 0;) {
    if (limbs_[i] != other.limbs_[i]) return limbs_[i] < other.limbs_[i] ? -1 : 1;
  }
  return 0;
}

std::optional<DecimalNumber> ReadDecimal(std::string_view text, char decimal) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  DecimalNumber number;
  std::size_t at = 0;
  const auto next = [&] { return at < text.size() ? text[at] : '\0'; };
  if (next() == '+' || next() == '-') number.is_negative = text[at++] == '-';
  bool has_digit = false;
  bool has_decimal = false;
  std::int64_t significant = 0;
  for (; at < text.size() && (IsDigit(text[at]) || (text[at] == decimal && !has_decimal)); ++at) {
    if (text[at] == decimal) {
      has_decimal = true;
      continue;
    }
    has_digit = true;
    number.digits.MultiplyAdd(10, static_cast<std::uint32_t>(text[at] - '0'));
    if (number.is_zero && text[at] != '0') number.is_zero = false;
    if (!number.is_zero) ++significant;
    if (has_decimal) --number.exponent;
  }
  if (!has_digit) return std::nullopt;
  if (next() == 'e' || next() == 'E') {
    ++at;
    bool is_negative = false;
    if (next() == '+' || next() == '-') is_negative = text[at++] == '-';
    if (!IsDigit(next())) return std::nullopt;
    std::int64_t exponent = 0;
    for (; IsDigit(next()); ++at) {
      exponent = std::min(exponent * 10 + (text[at] - '0'), kExponentCap);
    }
    number.exponent += is_negative ? -exponent : exponent;
  }
  if (at != text.size()) return std::nullopt;
  number.magnitude = number.exponent + significant - 1;
  return number;
}

bool IsBeyondDoubles(const DecimalNumber& number) {
  if (number.is_zero || number.magnitude < 308) return false;
  if (number.magnitude > 308) return true;
  // Half a unit beyond the largest double rounds up.
  return CompareToHalves(number, (std::uint64_t{1} << 54) - 1, 971) >= 0;
}

bool IsNearest(const DecimalNumber& number, double value) {
  if (!std::isfinite(value)) return false;
  if (value != 0.0 && std::signbit(value) != number.is_negative) return false;
  if (number.is_zero || number.magnitude < -400) return value == 0.0;
  if (IsBeyondDoubles(number)) return false;
  const auto bits = std::bit_cast<std::uint64_t>(std::fabs(value));
  const auto biased = static_cast<int>(bits >> 52);
  const std::uint64_t mantissa = biased == 0 ? bits : (bits & kFractionMask) | (kFractionMask + 1);
  const int exponent = biased == 0 ? kSmallestExponent : biased + kSmallestExponent - 1;
  const bool is_even = mantissa % 2 == 0;
  const int above = CompareToHalves(number, 2 * mantissa + 1, exponent);
  if (above > 0 || (above == 0 && !is_even)) return false;
  if (mantissa == 0) return true;
  // Below a power of two the doubles lie twice as close.
  const bool is_power = biased > 1 && (bits & kFractionMask) == 0;
  const int below = is_power ? CompareToHalves(number, 4 * mantissa - 1, exponent - 1)
                             : CompareToHalves(number, 2 * mantissa - 1, exponent);
  return below > 0 || (below == 0 && is_even);
}

}  // namespace tslm5::fuzz
