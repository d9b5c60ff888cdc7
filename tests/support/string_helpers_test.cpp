#include "support/string_helpers.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/raised.h"

namespace tslm5::StringHelpers {
namespace {

constexpr std::int32_t kTransposed = 2;
constexpr std::int32_t kFirstToLast = 3;

struct Case {
  const char* text;
  const char* separator;
  const char* expected;
};

TEST(RearrangeText, TransposesRowsAndColumns) {
  const Case cases[] = {
      {"1,2,3\n4,5,6", ",", "1,4\n2,5\n3,6"},
      {"1,2\n3,4\n5,6", ",", "1,3,5\n2,4,6"},
      {"1::2\n3::4", "::", "1::3\n2::4"},
      {"1", ",", "1"},
      {"1\n2", ",", "1,2"},
      {"1,2", ",", "1\n2"},
      {"", ",", ""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(RearrangeText(c.text, c.separator, kTransposed), c.expected) << c.text;
  }
}

TEST(RearrangeText, TransposesATextThatEndsWithALineFeed) {
  EXPECT_EQ(RearrangeText("1,2\n3,4\n", ",", kTransposed), "1,3\n2,4");
}

TEST(RearrangeText, KeepsEmptyFieldsInATransposition) {
  EXPECT_EQ(RearrangeText("1,,3\n,5,", ",", kTransposed), "1,\n,5\n3,");
}

TEST(RearrangeText, LeavesShortLinesShortInATransposition) {
  EXPECT_EQ(RearrangeText("1,2,3\n4,5", ",", kTransposed), "1,4\n2,5\n3");
  EXPECT_EQ(RearrangeText("1,2\n\n3,4", ",", kTransposed), "1,3\n2,4");
}

TEST(RearrangeText, RaisesOnALineLongerThanTheFirst) {
  const Error error = Raised([] { RearrangeText("1,2\n3,4\n5,6,7", ",", kTransposed); });
  EXPECT_EQ(error.Number(), 9);
  EXPECT_EQ(error.Source(), "RearrangeText");
  EXPECT_EQ(error.Description(), "Line 3 has more fields than the first line, which has 2.");
  EXPECT_EQ(RaisedNumber([] { RearrangeText("1,2\n3,4,5", ",", kTransposed); }), 9);
  EXPECT_EQ(RaisedNumber([] { RearrangeText("\n1", ",", kTransposed); }), 9);
}

TEST(RearrangeText, TransposesBackToTheSameLargeText) {
  std::string text;
  for (int row = 0; row < 300; ++row) {
    if (row != 0) text += '\n';
    for (int column = 0; column < 70; ++column) {
      if (column != 0) text += ' ';
      text += std::to_string(row * 7919 + column);
    }
  }
  const std::string transposed = RearrangeText(text, " ", kTransposed);
  EXPECT_EQ(transposed.substr(0, 12), "0 7919 15838");
  EXPECT_EQ(RearrangeText(transposed, " ", kTransposed), text);
}

TEST(RearrangeText, TransposesOneColumnWithoutASeparatorIntoOneField) {
  EXPECT_EQ(RearrangeText("1\n2\n3", "", kTransposed), "123");
}

TEST(RearrangeText, MovesTheFirstFieldToTheEnd) {
  const Case cases[] = {
      {"y,a,b\n1,2,3", ",", "a,b,y\n2,3,1"},
      {"1,2,3\n", ",", "2,3,1\n"},
      {"\n1,2\n\n3,4,5", ",", "\n2,1\n\n4,5,3"},
      {"response,x", ",", "x,response"},
      {"1,,3", ",", ",3,1"},
      {",2", ",", "2,"},
      {"1,", ",", ",1"},
      {",", ",", ","},
      {"1", ",", "1"},
      {"11::2::333", "::", "2::333::11"},
      {"a b", "", "a b"},
      {"", ",", ""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(RearrangeText(c.text, c.separator, kFirstToLast), c.expected) << c.text;
  }
}

TEST(RearrangeText, LeavesTheTextOfAnyOtherLayoutAlone) {
  for (const std::int32_t layout : {1, 0, 4, -1, 100}) {
    EXPECT_EQ(RearrangeText("1,2\n3,4,5\n", ",", layout), "1,2\n3,4,5\n") << layout;
  }
}

}  // namespace
}  // namespace tslm5::StringHelpers
