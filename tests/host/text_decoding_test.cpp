#include "host/preparation/text_decoding.h"

#include <gtest/gtest.h>

#include <string>

namespace tslm5::host {
namespace {

using namespace std::string_literals;

TEST(HostTextDecoding, KnowsTheEncodings) {
  struct Case {
    const char* name;
    std::string bytes;
    std::string text;
  };
  const Case cases[] = {
      {"ASCII", "a,b\n1,2", "a,b\n1,2"},
      {"UTF-8", "\xC3\xA9\xE2\x82\xAC", "\xC3\xA9\xE2\x82\xAC"},
      {"UTF-8 after many ASCII bytes", "0123456789abcdef\xC3\xA9", "0123456789abcdef\xC3\xA9"},
      {"UTF-8 with mark",
       "\xEF\xBB\xBF"
       "a",
       "a"},
      {"UTF-8 mark before other bytes", "\xEF\xBB\xBF\xE9", "\xC3\xA9"},
      {"Windows-1252", "caf\xE9 \x80", "caf\xC3\xA9 \xE2\x82\xAC"},
      {"cut UTF-8 is Windows-1252", "\xC3", "\xC3\x83"},
      {"overlong UTF-8 is Windows-1252", "\xC0\xAF", "\xC3\x80\xC2\xAF"},
      {"UTF-16, little end first",
       "\xFF\xFE"
       "1\0,\0\xE9\0"s,
       "1,\xC3\xA9"},
      {"UTF-16, big end first",
       "\xFE\xFF\0"
       "1\0\n"s,
       "1\n"},
      {"nothing", "", ""},
  };
  for (const Case& one : cases) EXPECT_EQ(DecodeText(one.bytes), one.text) << one.name;
}

TEST(HostTextDecoding, ReplacesACharacterThatTheEndCutsOff) {
  EXPECT_EQ(DecodeText("\xFF\xFE"
                       "a\0b"s),
            "a\xEF\xBF\xBD");
}

TEST(HostTextDecoding, LooksAtNoByteBehindTheText) {
  const std::string_view bytes = "ab\xC3\xA9\xFF";
  EXPECT_TRUE(IsUtf8(bytes.substr(0, 4)));
  EXPECT_FALSE(IsUtf8(bytes));
}

TEST(HostTextDecoding, ConvertsTextsLongerThanOnePiece) {
  const std::string bytes(200001, '\xE9');
  std::string text;
  for (int i = 0; i < 200001; ++i) text += "\xC3\xA9";
  EXPECT_EQ(DecodeText(bytes), text);
}

}  // namespace
}  // namespace tslm5::host
