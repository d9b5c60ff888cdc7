#include "support/shared_functions.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/raised.h"
#include "support/temporary_folder.h"

namespace tslm5::SharedFunctions {
namespace {

struct Case {
  std::string before;
  std::string after;
};

std::string CleanedLine(std::string line) {
  CleanLine(line);
  return line;
}

TEST(ReadTextFile, MakesEveryLineEndALineFeedInOnePass) {
  const TemporaryFolder folder;
  const Case cases[] = {
      {"1,2\r\n3,4\r\n", "1,2\n3,4\n"},
      {"1,2\n3,4", "1,2\n3,4"},
      {"1\r2\r", "1\r2\r"},
      {"1\r\r\n2", "1\r\n2"},
      {"\r\n\r\n", "\n\n"},
      {"\r", "\r"},
      {"1\n\r2", "1\n\r2"},
      {"", ""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ReadTextFile(folder.Write("text.csv", c.before)), c.after) << c.before;
  }
}

TEST(ReadTextFile, DropsAMarkAndDecodes) {
  const TemporaryFolder folder;
  EXPECT_EQ(ReadTextFile(folder.Write("marked.csv",
                                      "\xEF\xBB\xBF"
                                      "a,b\r\n1,2")),
            "a,b\n1,2");
  EXPECT_EQ(ReadTextFile(folder.Write("latin.csv", "caf\xE9\r\n1")), "café\n1");
  const std::string wide(
      "\xFF\xFE"
      "a\0\r\0\n\0"
      "1\0",
      10);
  EXPECT_EQ(ReadTextFile(folder.Write("wide.csv", wide)), "a\n1");
}

TEST(ReadTextFile, GivesNothingForNoFile) {
  const TemporaryFolder folder;
  EXPECT_EQ(ReadTextFile(folder.PathOf("absent.csv")), "");
  EXPECT_EQ(ReadTextFile(folder.Path()), "");
}

TEST(ReadTextFile, PassesAReadErrorOn) {
  EXPECT_EQ(RaisedNumber([] { ReadTextFile("/proc/self/mem"); }), 75);
}

TEST(ReadTextFile, ReadsALongFileWithWindowsLineEnds) {
  std::string bytes;
  std::string expected;
  for (int i = 0; i < 200'000; ++i) {
    bytes += "1,2.5\r\n";
    expected += "1,2.5\n";
  }
  const TemporaryFolder folder;
  EXPECT_EQ(ReadTextFile(folder.Write("long.csv", bytes)), expected);
}

TEST(MergeRepeats, ReturnsThePassesNotThePairs) {
  struct {
    const char* before;
    const char* token;
    const char* after;
    std::int32_t passes;
  } const cases[] = {
      {"1,,,,2", ",", "1,2", 2},     {",,,", ",", ",", 2},        {",,", ",", ",", 1},
      {",,,,,", ",", ",", 3},        {"1,2", ",", "1,2", 0},      {"", ",", "", 0},
      {"1,,2,,,3", ",", "1,2,3", 2}, {"a::::b", "::", "a::b", 1},
  };
  for (const auto& c : cases) {
    std::string text = c.before;
    EXPECT_EQ(MergeRepeats(c.token, text), c.passes) << c.before;
    EXPECT_EQ(text, c.after) << c.before;
  }
}

TEST(MergeRepeats, LeavesTheTextAloneForAnEmptyToken) {
  std::string text = "1,,2";
  EXPECT_EQ(MergeRepeats("", text), 0);
  EXPECT_EQ(text, "1,,2");
}

TEST(CleanLine, DeletesTabsAndSemicolons) {
  EXPECT_EQ(CleanedLine("1\t2;3"), "123");
  EXPECT_EQ(CleanedLine(";\t;"), "");
  EXPECT_EQ(CleanedLine(" 1,2 "), " 1,2 ");
  EXPECT_EQ(CleanedLine(""), "");
}

TEST(CleanLine, DeletesPairsOfLineFeedsAndThoseAtTheStart) {
  const Case cases[] = {
      {"a\n\nb", "ab"},  {"a\n\n\nb", "a\nb"}, {"\n\n\na", "a"},  {"a\nb\n", "a\nb\n"},
      {"a\n b", "a\nb"}, {"a\n  b", "a\n b"},  {"1\n \n2", "12"}, {"a\n;\nb", "ab"},
      {"\na\n\n", "a"},  {"\n", ""},           {"\n \n", ""},     {"a \nb", "a \nb"},
  };
  for (const Case& c : cases) EXPECT_EQ(CleanedLine(c.before), c.after) << c.before;
}

TEST(HasLoneReturns, IsTrueOfATextWhoseLinesEndAtThemAlone) {
  for (const char* text : {"1\r2", "1\r2\r", "a,b\r1,2\r\n"})
    EXPECT_TRUE(HasLoneReturns(text)) << text;
  for (const char* text : {"", "1", "1\r", "1\r\n", "1\r2\n3", "1\n2\r3"}) {
    EXPECT_FALSE(HasLoneReturns(text)) << text;
  }
}

}  // namespace
}  // namespace tslm5::SharedFunctions
