#include "delimited/exact_number.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace tslm5::delimited {
namespace {

/// Whether the number, with other text behind it, is decided at once; if so, its value.
bool Decide(std::string_view number, char decimal, double& value) {
  const std::string text = std::string(number) + ",9.5e7;8,77777777777777777777";
  return ParseExactNumber(text.data(), number.size(), decimal, value);
}

TEST(ExactNumber, DecidesTheUsualNumbers) {
  const struct {
    const char* text;
    double value;
  } kCases[] = {
      {"0", 0},
      {"7", 7},
      {"-7", -7},
      {"5.", 5},
      {".5", .5},
      {"-.5", -.5},
      {"12345678", 12345678},
      {"123456789", 123456789},
      {"1234567.8", 1234567.8},
      {"12345678.", 12345678},
      {"0.00000001", 1e-8},
      {"1234567890123456", 1234567890123456},
      {"-123456789012345.", -123456789012345},
      {"900719925474.099", 900719925474.099},
      {"9007199254740992", 9007199254740992},
      {"1e5", 1e5},
      {"1E5", 1e5},
      {"-1.5e+3", -1500},
      {"1.5e-03", .0015},
      {"1e22", 1e22},
      {"1e-22", 1e-22},
      {"25.e1", 250},
      {".25e1", 2.5},
      {"1234567.8e10", 1234567.8e10},
  };
  for (const auto& [text, expected] : kCases) {
    double value = -1;
    EXPECT_TRUE(Decide(text, '.', value)) << text;
    EXPECT_EQ(value, expected) << text;
  }
}

TEST(ExactNumber, KeepsTheSignOfZero) {
  double value = 1;
  ASSERT_TRUE(Decide("-0.0", '.', value));
  EXPECT_TRUE(std::signbit(value));
  ASSERT_TRUE(Decide("0", '.', value));
  EXPECT_FALSE(std::signbit(value));
}

TEST(ExactNumber, LeavesEverythingElseToTheGrammar) {
  for (const char* text : {"",
                           "-",
                           ".",
                           "-.",
                           "+5",
                           "--5",
                           "1-2",
                           "1.2.3",
                           "1,5",
                           "e5",
                           ".e5",
                           "1e",
                           "1e+",
                           "1e-",
                           "1e5.",
                           "1e.5",
                           "1ee5",
                           "1e5e",
                           "1x",
                           "x",
                           " 1",
                           "1 ",
                           "nan",
                           "inf",
                           "0x10",
                           "1d5",
                           "1e100",
                           "1e23",
                           "1e-23",
                           "12345678901234567",
                           "9007199254740993",
                           "-12345678901234567",
                           "1e+-5"}) {
    double value = 42;
    EXPECT_FALSE(Decide(text, '.', value)) << text;
    EXPECT_EQ(value, 42) << text;
  }
}

TEST(ExactNumber, TakesTheDecimalSeparatorOfTheUser) {
  double value = 0;
  ASSERT_TRUE(Decide("-1,25e1", ',', value));
  EXPECT_EQ(value, -12.5);
  EXPECT_FALSE(Decide("1.25", ',', value));
}

/// A random text of characters that numbers are made of; most are no numbers.
std::string RandomCharacters(std::mt19937_64& random) {
  std::string text(1 + random() % 18, ' ');
  for (char& c : text) c = "0123456789012345678901234567890123456789..-+eE,"[random() % 47];
  return text;
}

/// A random number; some are longer than sixteen characters.
std::string RandomNumber(std::mt19937_64& random) {
  std::string text = std::to_string(random() >> (random() % 64));
  if (random() % 2 != 0) text.insert(random() % (text.size() + 1), 1, '.');
  if (random() % 3 == 0) text.insert(0, 1, '-');
  if (random() % 4 == 0) text += 'e' + std::to_string(static_cast<int>(random() % 80) - 40);
  return text;
}

TEST(ExactNumber, AgreesWithTheGrammarAndWithFromChars) {
  std::mt19937_64 random(11);
  int decided = 0;
  for (int i = 0; i < 400'000; ++i) {
    const std::string text = i % 2 == 0 ? RandomNumber(random) : RandomCharacters(random);
    double value = 0;
    if (!Decide(text, '.', value)) continue;
    ++decided;
    double by_grammar = 1;
    ASSERT_TRUE(ParseNumber(text, '.', by_grammar)) << text;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(value), std::bit_cast<std::uint64_t>(by_grammar))
        << text;
    double by_library = 1;
    const char* const end = text.data() + text.size();
    ASSERT_EQ(std::from_chars(text.data(), end, by_library).ptr, end) << text;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(value), std::bit_cast<std::uint64_t>(by_library))
        << text;
  }
  EXPECT_GT(decided, 100'000);
}

}  // namespace
}  // namespace tslm5::delimited
