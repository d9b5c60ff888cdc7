#include "support/text_decoding.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "support/utf8.h"

namespace tslm5::TextDecoding {
namespace {

std::string Utf16(std::u16string_view units, bool little_endian) {
  std::string bytes = little_endian ? "\xFF\xFE" : "\xFE\xFF";
  for (const char16_t unit : units) {
    const char low = static_cast<char>(unit & 0xFF);
    const char high = static_cast<char>(unit >> 8);
    bytes += little_endian ? low : high;
    bytes += little_endian ? high : low;
  }
  return bytes;
}

TEST(TextDecoding, TakesValidUtf8AsItIsInTheSameBuffer) {
  std::string bytes = "Größe, 1.5 €\n" + std::string(100, 'x');
  const std::string expected = bytes;
  const char* const buffer = bytes.data();
  const std::string text = ToUtf8(std::move(bytes));
  EXPECT_EQ(text, expected);
  EXPECT_EQ(text.data(), buffer);
}

TEST(TextDecoding, DropsOneUtf8Mark) {
  EXPECT_EQ(ToUtf8("\xEF\xBB\xBF"
                   "a,b\n1,2"),
            "a,b\n1,2");
  EXPECT_EQ(ToUtf8("\xEF\xBB\xBF"), "");
  EXPECT_EQ(ToUtf8("\xEF\xBB\xBF\xEF\xBB\xBFz"), "\xEF\xBB\xBFz");
  EXPECT_EQ(ToUtf8("a\xEF\xBB\xBF"), "a\xEF\xBB\xBF") << "only at the start";
}

TEST(TextDecoding, ReadsAnythingElseAsWindows1252) {
  EXPECT_EQ(ToUtf8("\xE9"), "é");
  EXPECT_EQ(ToUtf8("Stra\xDF"
                   "e,\x80 5\n"),
            "Straße,€ 5\n");
  EXPECT_EQ(ToUtf8("\xC3\xA9 \xE9"), "Ã© é") << "one ill-formed sequence makes the whole file so";
  EXPECT_EQ(ToUtf8("\xEF\xBB\xBF\xE9"), "é") << "a mark is no text even then";
  EXPECT_EQ(ToUtf8("\xEF\xBB"), "ï»") << "half a mark";
}

TEST(TextDecoding, GivesEveryByteOfWindows1252ACharacter) {
  std::string bytes;
  for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
  const std::string text = ToUtf8(bytes);
  EXPECT_TRUE(Utf8::IsValid(text));
  EXPECT_EQ(text.find("\uFFFD"), std::string::npos);
  EXPECT_EQ(text.substr(0, 127), bytes.substr(0, 127));
  EXPECT_EQ(Utf8::FirstCharacters(text, 255), text);
  EXPECT_NE(Utf8::FirstCharacters(text, 254), text) << "255 characters";
}

TEST(TextDecoding, KeepsTheBytesThatWindows1252LeavesOpen) {
  EXPECT_EQ(ToUtf8("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");
}

TEST(TextDecoding, KeepsZeroBytes) {
  const std::string valid("1\0002", 3);
  const std::string other("\xE9\0z", 3);
  EXPECT_EQ(ToUtf8(valid), valid);
  EXPECT_EQ(ToUtf8(other), std::string("\xC3\xA9\0z", 4));
}

TEST(TextDecoding, HonoursBothUtf16Marks) {
  for (const bool little_endian : {true, false}) {
    EXPECT_EQ(ToUtf8(Utf16(u"é,€\r\n1,😀", little_endian)), "é,€\r\n1,😀") << little_endian;
    EXPECT_EQ(ToUtf8(Utf16(u"", little_endian)), "") << little_endian;
  }
}

TEST(TextDecoding, NeverFailsOnBrokenUtf16) {
  EXPECT_EQ(ToUtf8(Utf16(u"a", true) + "b"), "a\uFFFD") << "half a unit at the end";
  EXPECT_EQ(ToUtf8(Utf16(std::u16string{u'a', char16_t{0xDC00}, u'b'}, false)), "a\uFFFDb");
  EXPECT_EQ(ToUtf8(Utf16(std::u16string{u'a', char16_t{0xD800}}, true)), "a\uFFFD");
}

TEST(TextDecoding, ReadsLongUtf16AcrossEveryBuffer) {
  std::u16string units;
  std::string expected;
  for (int i = 0; i < 30'000; ++i) {
    units += u"1,é😀\n";
    expected += "1,é😀\n";
  }
  EXPECT_EQ(ToUtf8(Utf16(units, true)), expected);
  EXPECT_EQ(ToUtf8(Utf16(units, false)), expected);
}

TEST(TextDecoding, WidensALongWindows1252Text) {
  std::string bytes;
  std::string expected;
  for (int i = 0; i < 30'000; ++i) {
    bytes += "caf\xE9 \x80\n";
    expected += "café €\n";
  }
  EXPECT_EQ(ToUtf8(std::move(bytes)), expected);
}

}  // namespace
}  // namespace tslm5::TextDecoding
