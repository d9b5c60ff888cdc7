#include "support/separators.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/raised.h"
#include "support/locale.h"

namespace tslm5::SharedFunctions {
namespace {

TEST(SeparatorToString, GivesTheTextOfEachCode) {
  EXPECT_EQ(SeparatorToString(-1), "");
  EXPECT_EQ(SeparatorToString(0), " ");
  EXPECT_EQ(SeparatorToString(1), "\t");
  EXPECT_EQ(SeparatorToString(2), ",");
  EXPECT_EQ(SeparatorToString(3), ";");
  EXPECT_EQ(SeparatorToString(4), "|");
}

TEST(SeparatorToString, RaisesOnUnknownCodesWithoutWords) {
  for (const std::int32_t code : {-2, 5, 2147483647, -2147483647 - 1}) {
    const Error error = Raised([code] { SeparatorToString(code); });
    EXPECT_EQ(error.Number(), 41012) << code;
    EXPECT_EQ(error.Description(), "") << code;
  }
}

TEST(CountColumns, CountsOnTheFirstLineThatIsNotEmpty) {
  EXPECT_EQ(CountColumns("\n\n1,2,3", ","), 3);
  EXPECT_EQ(CountColumns("\n\n1,2,3\n4", ","), 3);
  EXPECT_EQ(CountColumns("1\n2,3", ","), 1);
}

TEST(CountColumns, CountsEverySeparatorAlsoATrailingOne) {
  EXPECT_EQ(CountColumns("1,2,", ","), 3);
  EXPECT_EQ(CountColumns(",,", ","), 3);
  EXPECT_EQ(CountColumns("1::2:3::", "::"), 3);
}

TEST(CountColumns, IsOneWithoutASeparatorOrAText) {
  EXPECT_EQ(CountColumns("a b", ""), 1);
  EXPECT_EQ(CountColumns("", ""), 1);
  EXPECT_EQ(CountColumns("", ","), 1);
  EXPECT_EQ(CountColumns("\n\n", ","), 1);
}

TEST(DecimalSeparatorIsComma, FollowsTheLocale) {
  {
    const ScopedLocale locale("de_DE");
    EXPECT_TRUE(DecimalSeparatorIsComma());
  }
  const ScopedLocale locale("en_US");
  EXPECT_FALSE(DecimalSeparatorIsComma());
}

TEST(TextContainsSeparator, LooksForTheTextOfTheCode) {
  EXPECT_TRUE(TextContainsSeparator("1|2", 4));
  EXPECT_FALSE(TextContainsSeparator("1,2", 4));
  EXPECT_TRUE(TextContainsSeparator("1\t2", 1));
  EXPECT_FALSE(TextContainsSeparator("", 0));
  EXPECT_TRUE(TextContainsSeparator("1", -1)) << "nothing is in every text";
  EXPECT_TRUE(TextContainsSeparator("", -1));
  EXPECT_EQ(RaisedNumber([] { TextContainsSeparator("1", 5); }), 41012);
}

TEST(HasMixedSeparators, FindsEveryOtherSeparatorWhereverItStands) {
  const ScopedLocale locale("en_US");
  constexpr std::string_view kAll = " \t,;|";
  for (std::int32_t code = 0; code < 5; ++code) {
    const char own = kAll[static_cast<std::size_t>(code)];
    for (const char other : kAll) {
      for (std::size_t place = 0; place < 40; ++place) {
        std::string text(40, own);
        text[place] = other;
        EXPECT_EQ(HasMixedSeparators(text, code), other != own) << code << other << place;
      }
    }
  }
}

TEST(HasMixedSeparators, CountsOneBlankInACommaText) {
  const ScopedLocale locale("en_US");
  EXPECT_TRUE(HasMixedSeparators("a b,c\n1,2", 2));
  EXPECT_FALSE(HasMixedSeparators("ab,c\n1,2", 2));
}

TEST(HasMixedSeparators, DoesNotCountADecimalComma) {
  const ScopedLocale locale("de_DE");
  for (const std::int32_t code : {0, 1, 3, 4}) {
    EXPECT_FALSE(HasMixedSeparators("1,5" + std::string(SeparatorToString(code)) + "2,5", code));
  }
  EXPECT_TRUE(HasMixedSeparators("1,5;2|5", 3));
  EXPECT_TRUE(HasMixedSeparators("1,5 2", 2));
  const ScopedLocale english("en_GB");
  EXPECT_TRUE(HasMixedSeparators("1,5;2,5", 3));
}

TEST(HasMixedSeparators, IsFalseForNoSeparatorAndUnknownCodes) {
  for (const std::int32_t code : {-1, 5, 7, -2}) {
    EXPECT_FALSE(HasMixedSeparators("1 2,3;4|5\t6", code)) << code;
  }
  EXPECT_FALSE(HasMixedSeparators("", 2));
}

TEST(StripSeparators, DeletesAllSeparatorsButLineFeeds) {
  const ScopedLocale locale("en_US");
  std::string text = " 1,0|2;\n3\t 4\r\n;";
  StripSeparators(text);
  EXPECT_EQ(text, "102\n34\r\n");
  text = ",|; \t";
  StripSeparators(text);
  EXPECT_EQ(text, "");
}

TEST(StripSeparators, KeepsADecimalComma) {
  const ScopedLocale locale("de_DE");
  std::string text = "1,5; \n2,5|";
  StripSeparators(text);
  EXPECT_EQ(text, "1,5\n2,5");
}

}  // namespace
}  // namespace tslm5::SharedFunctions
