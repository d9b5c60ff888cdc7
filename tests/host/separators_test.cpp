#include "host/preparation/separators.h"

#include <gtest/gtest.h>

#include <string>

namespace tslm5::host {
namespace {

TEST(Separators, AreFoundByWhatGivesTheSameNumberOfFields) {
  struct Case {
    const char* name;
    std::string text;
    std::string separator;
    std::string reason;
  };
  const Case cases[] = {
      {"comma", "a,b\n1,2\n", "comma", "it gives 2 fields in each of the 2 lines looked at"},
      {"tab", "a\tb\n1\t2", "tab", "it gives 2 fields in each of the 2 lines looked at"},
      {"bar", "1|2|3", "bar", "it gives 3 fields in each of the 1 line looked at"},
      {"blanks in runs", "  a   b\n 1 2 \n", "space",
       "it gives 2 fields in each of the 2 lines looked at"},
      {"decimal commas", "1,5;2,5\n3;4,5\n", "semicolon",
       "it gives 2 fields in each of the 2 lines looked at"},
      {"tie: semicolon before comma", "1,2;3\n4,5;6\n", "semicolon",
       "it gives 2 fields in each of the 2 lines looked at"},
      {"label with a blank", "height in cm,weight\n1,2\n", "comma",
       "it gives 2 fields in each of the 2 lines looked at"},
      {"empty lines do not count", "\n\na,b\n\n1,2\n\n", "comma",
       "it gives 2 fields in each of the 2 lines looked at"},
      {"one column", "a\n1\n2\n", "none", "every line looked at is one field"},
      {"one column, label with a blank", "my label\n1\n2\n3", "none",
       "no separator gives the same number of fields in every line"},
      {"an uneven line", "a,b\n1,2\n3,4,5\n", "comma",
       "it gives 2 fields in 2 of the 3 lines looked at"},
      {"every line uneven", "1,2\n3,4,5\n", "comma",
       "it gives 3 fields in 1 of the 2 lines looked at"},
      {"nothing", "\n \n", "none", "every line looked at is one field"},
  };
  for (const Case& one : cases) {
    const SeparatorChoice choice = GuessSeparator(one.text, false);
    EXPECT_EQ(choice.separator->name, one.separator) << one.name;
    EXPECT_EQ(choice.reason, one.reason) << one.name;
  }
}

TEST(Separators, ADecimalCommaSeparatesNothing) {
  EXPECT_STREQ(GuessSeparator("1,5\n2,5\n", true).separator->name, "none");
  EXPECT_STREQ(GuessSeparator("1,5\n2,5\n", false).separator->name, "comma");
}

TEST(Separators, OnlyTheFirstHundredLinesAreLookedAt) {
  std::string text;
  for (int i = 0; i < 100; ++i) text += "1,2\n";
  EXPECT_EQ(GuessSeparator(text + "3\n", false).reason,
            "it gives 2 fields in each of the 100 lines looked at");
}

TEST(Separators, HaveNamesAndCodes) {
  EXPECT_EQ(FindSeparator("none")->code, separator_code::kNone);
  EXPECT_EQ(FindSeparator("space")->code, separator_code::kSpace);
  EXPECT_EQ(FindSeparator("tab")->code, separator_code::kTab);
  EXPECT_EQ(FindSeparator("comma")->code, separator_code::kComma);
  EXPECT_EQ(FindSeparator("semicolon")->code, separator_code::kSemicolon);
  EXPECT_EQ(FindSeparator("bar")->code, separator_code::kBar);
  EXPECT_EQ(FindSeparator("auto"), nullptr);
}

}  // namespace
}  // namespace tslm5::host
