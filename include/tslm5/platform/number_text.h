#ifndef TSLM5_PLATFORM_NUMBER_TEXT_H_
#define TSLM5_PLATFORM_NUMBER_TEXT_H_

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <system_error>

#include "tslm5/platform/short_number.h"

namespace tslm5 {

namespace number_text_internal {

inline constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                          1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                          1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
inline constexpr int kLargestExactPower = 22;
inline constexpr std::uint64_t kLargestExactMantissa = std::uint64_t{1} << 53;
inline constexpr std::ptrdiff_t kDigitsOf64Bits = 19;
inline constexpr int kExponentCap = 100000;  // beyond any double, far from integer overflow

inline bool IsDigit(char c) {
  return static_cast<unsigned char>(c - '0') < 10;
}

/// Whether the number [first, last) of the grammar, which no double can hold, is too large rather
/// than too small: the place of its first non-zero digit, moved by the exponent, decides.
inline bool IsTooLarge(const char* first, const char* last, char decimal, int exponent) {
  std::ptrdiff_t place = 0;
  bool seen_decimal = false;
  bool seen_digit = false;
  for (const char* p = first; p != last && (*p | 0x20) != 'e'; ++p) {
    if (*p == decimal) {
      seen_decimal = true;
    } else {
      seen_digit = seen_digit || *p != '0';
      if (seen_digit && !seen_decimal) ++place;
      if (!seen_digit && seen_decimal) --place;
    }
  }
  return place + exponent > 0;
}

/// The careful way for numbers that the exact product cannot decide. [first, last) has no sign.
inline bool ConvertSlowly(const char* first, const char* last, char decimal, int exponent,
                          double& value) {
  std::string copy;
  const char* from = first;
  const char* to = last;
  if (decimal != '.') {
    copy.assign(first, last);
    for (char& c : copy) {
      if (c == decimal) c = '.';
    }
    from = copy.data();
    to = from + copy.size();
  }
  const auto [end, code] = std::from_chars(from, to, value);
  if (code == std::errc{}) return end == to;
  if (IsTooLarge(first, last, decimal, exponent)) return false;
  value = 0.0;
  return true;
}

}  // namespace number_text_internal

/// Reads `text` as one number of the system's grammar into `value` and returns true; or returns
/// false and leaves `value` alone. The grammar: spaces around; an optional sign; digits with at
/// most one `decimal` separator and at least one digit; an optional exponent, e or E with an
/// optional sign. The value must be finite; one too small for a double reads as 0.
/// Correctly rounded. No thousands separators, hexadecimal, "inf" or "nan".
/// `readable_end`, when it is given, says how far the memory behind `text` may be read: with
/// sixteen bytes from the first digit on, a short number is read faster.
inline bool ParseNumber(std::string_view text, char decimal, double& value,
                        const char* readable_end = nullptr) {
  using namespace number_text_internal;
  const char* p = text.data();
  const char* end = p + text.size();
  while (p != end && *p == ' ') ++p;
  while (p != end && end[-1] == ' ') --end;
  if (p == end) return false;
  const bool negative = *p == '-';
  if (negative || *p == '+') ++p;

  std::uint64_t mantissa = 0;
  std::ptrdiff_t fraction_digits = 0;
  const auto size = static_cast<std::size_t>(end - p);
  if (size != 0 && size <= kShortNumberSize &&
      ParseShortNumber(p, size, decimal, mantissa, fraction_digits,
                       readable_end != nullptr && readable_end - p >= 16) &&
      mantissa <= kLargestExactMantissa) {
    const double exact = static_cast<double>(mantissa) / kPowersOfTen[fraction_digits];
    value = negative ? -exact : exact;
    return true;
  }

  const char* first = p;
  mantissa = 0;
  for (; p != end && IsDigit(*p); ++p) {
    mantissa = mantissa * 10 + static_cast<std::uint64_t>(*p - '0');
  }
  std::ptrdiff_t digits = p - first;
  fraction_digits = 0;
  if (p != end && *p == decimal) {
    const char* fraction = ++p;
    for (; p != end && IsDigit(*p); ++p) {
      mantissa = mantissa * 10 + static_cast<std::uint64_t>(*p - '0');
    }
    fraction_digits = p - fraction;
    digits += fraction_digits;
  }
  if (digits == 0) return false;

  int exponent = 0;
  if (p != end && (*p | 0x20) == 'e') {
    ++p;
    const bool negative_exponent = p != end && *p == '-';
    if (p != end && (*p == '-' || *p == '+')) ++p;
    if (p == end) return false;
    for (; p != end && IsDigit(*p); ++p) {
      if (exponent < kExponentCap) exponent = exponent * 10 + (*p - '0');
    }
    if (!IsDigit(p[-1])) return false;
    if (negative_exponent) exponent = -exponent;
  }
  if (p != end) return false;

  const std::ptrdiff_t power = exponent - fraction_digits;
  double magnitude = 0.0;
  if (digits <= kDigitsOf64Bits && mantissa <= kLargestExactMantissa &&
      power >= -kLargestExactPower && power <= kLargestExactPower) {
    const double exact = static_cast<double>(mantissa);
    magnitude = power < 0 ? exact / kPowersOfTen[-power] : exact * kPowersOfTen[power];
  } else if (!ConvertSlowly(first, end, decimal, exponent, magnitude)) {
    return false;
  }
  value = negative ? -magnitude : magnitude;
  return true;
}

/// Room that `WriteNumber` may need, in bytes.
inline constexpr std::size_t kNumberTextSize = 32;

/// Writes the shortest text that reads back to the same double into `buffer` (at least
/// `kNumberTextSize` bytes) and returns its end. "." is the point; plain notation for decimal
/// exponents -5 to 14, else d.dddE+xx; whole numbers have no point. Not a number: "nan", "inf".
inline char* WriteNumber(char* buffer, double value) {
  char digits[kNumberTextSize];
  const auto written =
      std::to_chars(digits, digits + kNumberTextSize, value, std::chars_format::scientific);
  const char* p = digits;
  const char* end = written.ptr;
  char* out = buffer;
  if (*p == '-') *out++ = *p++;
  const char* mark =
      static_cast<const char*>(std::memchr(p, 'e', static_cast<std::size_t>(end - p)));
  if (mark == nullptr) {  // nan, inf
    std::memcpy(out, p, static_cast<std::size_t>(end - p));
    return out + (end - p);
  }
  int exponent = 0;
  std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, exponent);

  char significant[kNumberTextSize];
  int count = 0;
  significant[count++] = *p;
  for (p += 2; p < mark; ++p) significant[count++] = *p;

  const auto copy = [&out, &significant](int from, int to) {
    for (int i = from; i < to; ++i) *out++ = significant[i];
  };
  if (exponent < -5 || exponent > 14) {
    copy(0, 1);
    if (count > 1) *out++ = '.';
    copy(1, count);
    *out++ = 'E';
    for (const char* q = mark + 1; q != end; ++q) *out++ = *q;
    return out;
  }
  if (exponent < 0) {
    *out++ = '0';
    *out++ = '.';
    for (int i = exponent + 1; i < 0; ++i) *out++ = '0';
    copy(0, count);
    return out;
  }
  const int whole = exponent + 1;
  copy(0, count < whole ? count : whole);
  for (int i = count; i < whole; ++i) *out++ = '0';
  if (count > whole) {
    *out++ = '.';
    copy(whole, count);
  }
  return out;
}

/// Appends the text of `WriteNumber` to `text`.
inline void AppendNumber(std::string& text, double value) {
  char buffer[kNumberTextSize];
  text.append(buffer, WriteNumber(buffer, value));
}

/// The text of `WriteNumber`.
inline std::string NumberText(double value) {
  std::string text;
  AppendNumber(text, value);
  return text;
}

}  // namespace tslm5

#endif  // TSLM5_PLATFORM_NUMBER_TEXT_H_
