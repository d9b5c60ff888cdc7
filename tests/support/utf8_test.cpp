#include "support/utf8.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tslm5::Utf8 {
namespace {

struct Case {
  const char* name;
  std::string_view bytes;
};

TEST(Utf8, TakesEveryWellFormedSequence) {
  const Case cases[] = {
      {"empty", ""},
      {"ASCII", "plain text, 1.5"},
      {"first of two bytes", "\xC2\x80"},
      {"last of two bytes", "\xDF\xBF"},
      {"first of three bytes", "\xE0\xA0\x80"},
      {"before the surrogates", "\xED\x9F\xBF"},
      {"after the surrogates", "\xEE\x80\x80"},
      {"last of three bytes", "\xEF\xBF\xBF"},
      {"first of four bytes", "\xF0\x90\x80\x80"},
      {"middle of four bytes", "\xF1\x80\xBF\x80"},
      {"last code point", "\xF4\x8F\xBF\xBF"},
      {"zero byte", std::string_view("a\0b", 3)},
  };
  for (const Case& c : cases) EXPECT_TRUE(IsValid(c.bytes)) << c.name;
}

constexpr Case kIllFormed[] = {
    {"lone trail", "\x80"},
    {"last lone trail", "\xBF"},
    {"overlong of two, C0", "\xC0\x80"},
    {"overlong of two, C1", "\xC1\xBF"},
    {"overlong of three", "\xE0\x9F\xBF"},
    {"first surrogate", "\xED\xA0\x80"},
    {"last surrogate", "\xED\xBF\xBF"},
    {"overlong of four", "\xF0\x8F\xBF\xBF"},
    {"past the last code point", "\xF4\x90\x80\x80"},
    {"lead F5", "\xF5\x80\x80\x80"},
    {"lead FF", "\xFF"},
    {"two bytes cut", "\xC3"},
    {"three bytes cut", "\xE2\x82"},
    {"four bytes cut", "\xF0\x9F\x98"},
    {"ASCII for a trail", "\xC3("},
    {"lead for a trail", "\xE2\x82\xC3\xA9"},
    {"third byte of four no trail", "\xF0\x9F(\x80"},
    {"fourth byte no trail", "\xF0\x9F\x98("},
};

TEST(Utf8, RefusesEveryIllFormedSequence) {
  for (const Case& c : kIllFormed) EXPECT_FALSE(IsValid(c.bytes)) << c.name;
}

TEST(Utf8, RefusesAnIllFormedSequenceAtAnyPlaceOfALongText) {
  for (const Case& c : kIllFormed) {
    for (std::size_t place = 0; place < 40; ++place) {
      std::string text(place, 'a');
      text += c.bytes;
      EXPECT_FALSE(IsValid(text)) << c.name << " at the end, place " << place;
      EXPECT_FALSE(IsValid(text + std::string(40, 'b'))) << c.name << ", place " << place;
    }
  }
}

// Buffers of the exact size: the address sanitizer sees what the answer alone would not tell.
TEST(Utf8, DoesNotReadPastTheEnd) {
  for (const std::string_view character : {"é", "€", "😀"}) {
    const std::string text = std::string(15, 'a').append(character);
    EXPECT_TRUE(IsValid(text)) << character;
    for (std::size_t missing = 1; missing < character.size(); ++missing) {
      const std::vector<char> cut(text.begin(), text.end() - static_cast<std::ptrdiff_t>(missing));
      EXPECT_FALSE(IsValid({cut.data(), cut.size()})) << character;
    }
  }
}

TEST(Utf8, CountsCharactersNotBytes) {
  std::string text;
  std::string expected;
  for (int i = 0; i < 19; ++i) text += "é";
  for (int i = 0; i < 15; ++i) expected += "é";
  EXPECT_EQ(FirstCharacters(text, 15), expected);
}

TEST(Utf8, GivesAllOfAShortTextAndNothingForNone) {
  EXPECT_EQ(FirstCharacters("a€😀", 4), "a€😀");
  EXPECT_EQ(FirstCharacters("a€😀", 3), "a€😀");
  EXPECT_EQ(FirstCharacters("a€😀", 2), "a€");
  EXPECT_EQ(FirstCharacters("a€😀", 1), "a");
  EXPECT_EQ(FirstCharacters("€", 0), "");
  EXPECT_EQ(FirstCharacters("", 15), "");
}

TEST(Utf8, TrimsBlanksAndNothingElse) {
  EXPECT_EQ(TrimBlanks("  a b  "), "a b");
  EXPECT_EQ(TrimBlanks(" \ta\r "), "\ta\r");
  EXPECT_EQ(TrimBlanks("\xC2\xA0 a"), "\xC2\xA0 a");
  EXPECT_EQ(TrimBlanks("   "), "");
  EXPECT_EQ(TrimBlanks(""), "");
}

}  // namespace
}  // namespace tslm5::Utf8
