#include "support/label_test.h"

#include <gtest/gtest.h>

namespace tslm5 {
namespace {

TEST(AreLabels, IsNotSoWithANumberAmongThem) {
  EXPECT_TRUE(AreLabels({"a", "b1", "1x"}, '.'));
  EXPECT_FALSE(AreLabels({"a", "1.5"}, '.'));
  EXPECT_TRUE(AreLabels({"a", "1.5"}, ','));
  EXPECT_FALSE(AreLabels({"1,5"}, ','));
}

TEST(AreLabels, IsNotSoWithOneTwice) {
  EXPECT_FALSE(AreLabels({"A", "b", "a"}, '.'));
  EXPECT_FALSE(AreLabels({"\xC3\x89", "\xC3\xA9"}, '.'));  // one letter in both cases
  EXPECT_TRUE(AreLabels({}, '.'));
}

TEST(LabelWords, StandBetweenSeparatorsAndRunsOfBlanks) {
  EXPECT_EQ(LabelWords(" a, b,,c ", ","), (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_EQ(LabelWords("a,b c\x05 d", ""), (std::vector<std::string>{"a,b", "c ", "d"}));
  EXPECT_TRUE(LabelWords(" , ", ",").empty());
}

TEST(PlainLabel, HasBlanksForCharactersOfCode5) {
  EXPECT_EQ(PlainLabel("blood\x05pressure\x05"), "blood pressure ");
  EXPECT_EQ(PlainLabel("a b"), "a b");
}

}  // namespace
}  // namespace tslm5
