#include "support/text_cleanup.h"

#include <gtest/gtest.h>

#include <string>

namespace tslm5::TextCleanup {
namespace {

struct Case {
  std::string before;
  std::string after;
};

std::string Collapsed(std::string text, char c) {
  CollapseRuns(text, c);
  return text;
}

std::string Cleaned(std::string text) {
  CleanLines(text);
  return text;
}

std::string Separated(std::string text, std::string_view separator) {
  ReplaceSeparator(text, separator);
  return text;
}

TEST(ReplaceSeparator, TurnsEveryOneIntoABlank) {
  EXPECT_EQ(Separated("1,2,,3\n,4,", ","), "1 2  3\n 4 ");
  EXPECT_EQ(Separated("1\t2|3", "\t"), "1 2|3");
  EXPECT_EQ(Separated("no such thing", ","), "no such thing");
  EXPECT_EQ(Separated(",", ","), " ");
  EXPECT_EQ(Separated("", ","), "");
}

TEST(ReplaceSeparator, TakesALongSeparatorAsAWhole) {
  EXPECT_EQ(Separated("1::2:3:::4", "::"), "1 2:3 :4");
  EXPECT_EQ(Separated("1é2é", "é"), "1 2 ");
}

TEST(ReplaceSeparator, LeavesTheTextAloneWhenItIsEmptyOrABlank) {
  EXPECT_EQ(Separated("1,2 3", ""), "1,2 3");
  EXPECT_EQ(Separated("1,2 3", " "), "1,2 3");
}

TEST(ReplaceToken, ReplacesInOnePassAndSaysWhether) {
  std::string text = "aaa b aa";
  EXPECT_TRUE(ReplaceToken(text, "aa", "a"));
  EXPECT_EQ(text, "aa b a");
  EXPECT_TRUE(ReplaceToken(text, "a", ""));
  EXPECT_EQ(text, " b ");
  EXPECT_FALSE(ReplaceToken(text, "a", ""));
  EXPECT_FALSE(ReplaceToken(text, "", "x"));
  EXPECT_EQ(text, " b ");
}

TEST(CollapseRuns, LeavesOneOfEachRun) {
  const Case cases[] = {{"1,,,,2", "1,2"}, {",,a,,", ",a,"},   {",,,", ","}, {",,", ","},
                        {",", ","},        {"1,2,3", "1,2,3"}, {"", ""},     {"1  2", "1  2"}};
  for (const Case& c : cases) EXPECT_EQ(Collapsed(c.before, ','), c.after) << c.before;
}

TEST(CollapseRuns, ReturnsTheLongestRun) {
  std::string text = "a  b    c   d";
  EXPECT_EQ(CollapseRuns(text, ' '), 4u);
  EXPECT_EQ(CollapseRuns(text, ' '), 0u);
  std::string ends_with_zero("a\0", 2);
  EXPECT_EQ(CollapseRuns(ends_with_zero, '\0'), 0u) << "the terminator is no part of the text";
}

TEST(CleanLines, KeepsACleanTextAndItsEnd) {
  for (const char* text : {"1 2\n3 4\n", "1 2\n3 4", "1", "x\n", "\r", "1\r\n2"}) {
    EXPECT_EQ(Cleaned(text), text);
  }
}

TEST(CleanLines, DropsEmptyAndBlankLinesWithoutJoiningRows) {
  const Case cases[] = {
      {"1 2\n \n3 4", "1 2\n3 4"},
      {"1 2\n\n\n3 4\n\n", "1 2\n3 4\n"},
      {"\n\n1\n2", "1\n2"},
      {"   \n1", "1"},
      {"1\n2\n  ", "1\n2\n"},
      {"1\n   2\n", "1\n   2\n"},
      {"1  \n2", "1  \n2"},
      {" \n\n  \n", ""},
      {"   ", ""},
      {"\n", ""},
      {"", ""},
  };
  for (const Case& c : cases) EXPECT_EQ(Cleaned(c.before), c.after) << c.before;
}

TEST(CleanLines, DeletesTabsAndSemicolonsBeforeItJudgesALine) {
  const Case cases[] = {
      {"1\t2;3", "123"},
      {"1;5 2\n3 4\n", "15 2\n3 4\n"},
      {"1 2\n;\n3 4", "1 2\n3 4"},
      {"1 2\n \t ;\n3 4", "1 2\n3 4"},
      {";\t", ""},
      {"1\n;", "1\n"},
      {"1;\n2\t", "1\n2"},
      {"\t1\n;;2", "1\n2"},
      {"a\n b;c\nd", "a\n bc\nd"},
  };
  for (const Case& c : cases) EXPECT_EQ(Cleaned(c.before), c.after) << c.before;
}

TEST(CountLines, CountsLineFeedsAndOne) {
  EXPECT_EQ(CountLines(""), 0u);
  EXPECT_EQ(CountLines("1"), 1u);
  EXPECT_EQ(CountLines("1\n"), 2u);
  EXPECT_EQ(CountLines("1\n2\r3"), 2u);
  for (std::size_t feeds = 0; feeds < 1000; feeds += 37) {
    EXPECT_EQ(CountLines(std::string(feeds, '\n') + "x"), feeds + 1);
  }
}

TEST(DropFirstLine, TakesItsLineFeedWithIt) {
  const Case cases[] = {{"a b\n1 2\n", "1 2\n"}, {"a b\n", ""}, {"a b", ""}, {"\n1", "1"}, {"", ""},
                        {"a\n\n1", "\n1"}};
  for (const Case& c : cases) {
    EXPECT_EQ(c.before.substr(SecondLineOffset(c.before)), c.after) << c.before;
    std::string text = c.before;
    DropFirstLine(text);
    EXPECT_EQ(text, c.after) << c.before;
  }
}

TEST(TextCleanup, DropsTheBlanksBesideASeparator) {
  const struct {
    const char* text;
    const char* cleaned;
  } cases[] = {{"", ""},           {"1,2", "1,2"},
               {"1, 2", "1,2"},    {"1 ,2", "1,2"},
               {"1  ,  2", "1,2"}, {"1 2, 3", "1 2,3"},
               {" , ", ","},       {", ,", ",,"},
               {" 1,2 ", " 1,2 "}, {"1, \n 2 ,3", "1,\n 2,3"},
               {"a b", "a b"},     {"1 ;2", "1 ;2"},
               {"1, ", "1,"},      {" ", " "}};
  for (const auto& [text, cleaned] : cases) {
    std::string result = text;
    TextCleanup::DropBlanksBeside(result, ',');
    EXPECT_EQ(result, cleaned) << "of \"" << text << "\"";
  }
}

}  // namespace
}  // namespace tslm5::TextCleanup
