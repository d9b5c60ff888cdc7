#include "host/program/shown_text.h"

#include <gtest/gtest.h>

namespace tslm5::host {
namespace {

TEST(ShownText, EscapesWhatCouldDisturbATerminal) {
  EXPECT_EQ(Escaped("a\nb\tc\rd"), "a\\nb\\tc\\rd");
  EXPECT_EQ(Escaped("\x1b[31m"), "\\u{001B}[31m");
  EXPECT_EQ(Escaped("x\xE2\x80\xAEy"), "x\\u{202E}y");  // right-to-left override
  EXPECT_EQ(Escaped("\xE2\x80\xA8"), "\\u{2028}");      // line separator
  EXPECT_EQ(Escaped("a\x85\xFFz"), "a\\x85\\xFFz");
  EXPECT_EQ(Escaped("\xC3\xA9\xE6\x97\xA5 '\"\\"), "\xC3\xA9\xE6\x97\xA5 '\"\\");
}

TEST(ShownText, CutsAfterSixtyCharactersNotBytes) {
  std::string sixty;
  for (int i = 0; i < 60; ++i) sixty += "\xC3\xA9";
  EXPECT_EQ(Quoted(sixty), '"' + sixty + '"');
  EXPECT_EQ(Quoted(sixty + "b"), '"' + sixty + "...\"");
  EXPECT_EQ(Escaped(sixty + "b"), sixty + "b");
}

TEST(ShownText, MeasuresTheWidthOnATerminal) {
  EXPECT_EQ(DisplayWidth("abc"), 3U);
  EXPECT_EQ(DisplayWidth("\xC3\xA9"), 1U);
  EXPECT_EQ(DisplayWidth("e\xCC\x81"), 1U);                 // a combining accent
  EXPECT_EQ(DisplayWidth("\xE6\x97\xA5\xE6\x9C\xAC"), 4U);  // two wide characters
  EXPECT_EQ(DisplayWidth(""), 0U);
}

}  // namespace
}  // namespace tslm5::host
