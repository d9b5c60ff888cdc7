#include "support/text_split.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tslm5 {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

template <class Cursor>
std::vector<std::string> All(Cursor cursor) {
  std::vector<std::string> pieces;
  std::string_view piece;
  while (cursor.Next(piece)) pieces.emplace_back(piece);
  return pieces;
}

std::vector<std::string> Fields(std::string_view line, std::string_view separator) {
  return All(FieldCursor(line, separator));
}

TEST(FieldCursor, GivesTheFieldsInOrder) {
  EXPECT_THAT(Fields("1,22,333", ","), ElementsAre("1", "22", "333"));
  EXPECT_THAT(Fields("one", ","), ElementsAre("one"));
}

TEST(FieldCursor, KeepsEmptyFields) {
  EXPECT_THAT(Fields(",a,,b,", ","), ElementsAre("", "a", "", "b", ""));
  EXPECT_THAT(Fields(",", ","), ElementsAre("", ""));
}

TEST(FieldCursor, FindsNoFieldInTheEmptyText) {
  EXPECT_THAT(Fields("", ","), IsEmpty());
  EXPECT_THAT(Fields("", ""), IsEmpty());
  EXPECT_THAT(Fields({}, ","), IsEmpty());
}

TEST(FieldCursor, TakesTheWholeTextWhenTheSeparatorIsEmpty) {
  EXPECT_THAT(Fields("a b,c", ""), ElementsAre("a b,c"));
}

TEST(FieldCursor, TakesALongSeparatorAsAWhole) {
  EXPECT_THAT(Fields("a::b:c::", "::"), ElementsAre("a", "b:c", ""));
  EXPECT_THAT(Fields("a:::b", "::"), ElementsAre("a", ":b"));
}

TEST(FieldCursor, GivesViewsIntoTheText) {
  const std::string text = "1,2";
  std::string_view field;
  FieldCursor fields(text, ",");
  ASSERT_TRUE(fields.Next(field));
  EXPECT_EQ(field.data(), text.data());
  ASSERT_TRUE(fields.Next(field));
  EXPECT_EQ(field.data(), text.data() + 2);
}

TEST(FieldCursor, LeavesTheFieldAloneAtTheEnd) {
  std::string_view field = "kept";
  FieldCursor none("", ",");
  EXPECT_TRUE(none.AtEnd());
  EXPECT_FALSE(none.Next(field));
  EXPECT_EQ(field, "kept");

  FieldCursor two("a,", ",");
  EXPECT_TRUE(two.Next(field));
  EXPECT_FALSE(two.AtEnd());
  EXPECT_TRUE(two.Next(field));
  EXPECT_EQ(field, "");
  EXPECT_TRUE(two.AtEnd());
  EXPECT_FALSE(two.Next(field));
}

TEST(LineCursor, EndsALineAtALineFeedAlone) {
  EXPECT_THAT(All(LineCursor("1 2\r\n3\r4\n\n5")), ElementsAre("1 2\r", "3\r4", "", "5"));
}

TEST(LineCursor, GivesAnEmptyLineAfterALastLineFeed) {
  EXPECT_THAT(All(LineCursor("1\n2\n")), ElementsAre("1", "2", ""));
  EXPECT_THAT(All(LineCursor("\n")), ElementsAre("", ""));
  EXPECT_THAT(All(LineCursor("")), IsEmpty());
}

TEST(LineCursor, TakesALineOfAnyLength) {
  const std::string long_line(3'000'000, 'x');
  const auto lines = All(LineCursor(long_line + "\n" + long_line + "y"));
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].size(), long_line.size());
  EXPECT_EQ(lines[1].back(), 'y');
}

}  // namespace
}  // namespace tslm5
