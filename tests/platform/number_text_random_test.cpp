// Reading and writing numbers, held to `std::from_chars` on a million random cases each.

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

#include "tslm5/platform/number_text.h"

namespace tslm5 {
namespace {

constexpr int kCases = 1'000'000;
constexpr double kUntouched = 123.456;

class RandomNumbers {
 public:
  std::uint64_t Bits() { return engine_(); }
  int Below(int limit) { return static_cast<int>(engine_() % static_cast<unsigned>(limit)); }
  int Between(int first, int last) { return first + Below(last - first + 1); }
  bool Chance(int percent) { return Below(100) < percent; }

  std::string Digits(int count) {
    std::string digits;
    for (int i = 0; i < count; ++i) digits += static_cast<char>('0' + Below(10));
    return digits;
  }

  /// An unsigned number text of one of many shapes, with "." and without spaces.
  std::string Text() {
    switch (Below(8)) {
      case 0:  // whole, short
        return Digits(Between(1, 6));
      case 1:  // whole, as long as the exact mantissa and longer
        return Digits(Between(15, 25));
      case 2:  // a fraction of a table
        return Digits(Between(1, 5)).append(".").append(Digits(Between(0, 5)));
      case 3:  // many digits on both sides
        return Digits(Between(0, 12)).append(".").append(Digits(Between(13, 25)));
      case 4:  // small exponents, around the exact powers of ten
        return Digits(Between(1, 19)).append(Fraction()).append(Exponent(-30, 30));
      case 5:  // the whole range of exponents, and past it
        return Digits(Between(1, 25)).append(Fraction()).append(Exponent(-360, 330));
      case 6:  // leading zeros
        return Zeros(Between(1, 25))
            .append(Digits(Between(0, 17)))
            .append(".")
            .append(Zeros(Between(0, 25)))
            .append(Digits(Between(1, 17)));
      default:
        return Shortest();
    }
  }

 private:
  static std::string Zeros(int count) { return std::string(static_cast<std::size_t>(count), '0'); }

  std::string Fraction() {
    return Chance(50) ? std::string(".").append(Digits(Between(0, 6))) : std::string();
  }

  /// The shortest text of any double.
  std::string Shortest() {
    const double value = std::bit_cast<double>(Bits() & ~(std::uint64_t{1} << 63));
    if (!std::isfinite(value)) return "0";
    char buffer[kNumberTextSize];
    return {buffer, std::to_chars(buffer, buffer + kNumberTextSize, value).ptr};
  }

  std::string Exponent(int first, int last) {
    const int exponent = Between(first, last);
    std::string text = Chance(50) ? "e" : "E";
    if (exponent >= 0 && Chance(50)) text += '+';
    return text + std::to_string(exponent);
  }

  std::mt19937_64 engine_{20240229};
};

/// What the grammar makes of an unsigned text that it accepts, by `from_chars` alone.
/// False for a number too large.
bool Reference(const std::string& text, double& value) {
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value);
  EXPECT_EQ(result.ptr, end) << text;
  if (result.ec == std::errc{}) return true;
  // No shape has so many digits that its exponent's sign would not decide.
  const bool too_small =
      text.find("e-") != std::string::npos || text.find("E-") != std::string::npos;
  if (too_small) value = 0.0;
  return too_small;
}

TEST(ParseNumberRandom, EqualsFromCharsBitForBit) {
  RandomNumbers random;
  int too_large = 0;
  for (int i = 0; i < kCases; ++i) {
    std::string text = random.Text();
    double expected = kUntouched;
    const bool accepted = Reference(text, expected);
    too_large += accepted ? 0 : 1;

    const char decimal = random.Chance(30) ? ',' : '.';
    if (const auto point = text.find('.'); point != std::string::npos) text[point] = decimal;
    const bool spaces = random.Chance(20);
    const int sign = random.Below(4);
    std::string field = spaces ? "  " : "";
    if (sign == 0) field += '+';
    if (sign == 1) field += '-';
    field += text;
    if (spaces) field += ' ';
    if (sign == 1 && accepted) expected = -expected;

    double value = kUntouched;
    ASSERT_EQ(ParseNumber(field, decimal, value), accepted) << field;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(value), std::bit_cast<std::uint64_t>(expected)) << field;
  }
  EXPECT_GT(too_large, 0);
  EXPECT_LT(too_large, kCases / 10);
}

TEST(WriteNumberRandom, ReadsBackToTheSameBits) {
  RandomNumbers random;
  for (int i = 0; i < kCases; ++i) {
    const std::uint64_t bits = random.Bits();
    const double value = std::bit_cast<double>(bits);
    if (!std::isfinite(value)) continue;
    char buffer[kNumberTextSize];
    const char* const end = WriteNumber(buffer, value);
    const std::string_view text(buffer, static_cast<std::size_t>(end - buffer));

    double by_library = kUntouched;
    ASSERT_EQ(std::from_chars(buffer, end, by_library).ptr, end) << text;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(by_library), bits) << text;
    double by_grammar = kUntouched;
    ASSERT_TRUE(ParseNumber(text, '.', by_grammar)) << text;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(by_grammar), bits) << text;
  }
}

TEST(WriteNumberRandom, IsPlainAndShortestBetweenTheLimits) {
  RandomNumbers random;
  for (int i = 0; i < kCases; ++i) {
    // A binary exponent around the range of plain notation, 1e-5 to below 1e15.
    const auto exponent = static_cast<std::uint64_t>(random.Between(1023 - 25, 1023 + 60));
    const double value = std::bit_cast<double>((random.Bits() >> 12) | exponent << 52);
    const std::string text = NumberText(value);
    const bool plain = value >= 1e-5 && value < 1e15;
    ASSERT_EQ(text.find('E') == std::string::npos, plain) << text;

    double back = kUntouched;
    ASSERT_TRUE(ParseNumber(text, '.', back)) << text;
    ASSERT_EQ(back, value) << text;

    if (!plain) continue;
    char shortest[kNumberTextSize];
    const char* const end =
        std::to_chars(shortest, shortest + kNumberTextSize, value, std::chars_format::fixed).ptr;
    ASSERT_EQ(text, std::string_view(shortest, static_cast<std::size_t>(end - shortest)));
  }
}

}  // namespace
}  // namespace tslm5
