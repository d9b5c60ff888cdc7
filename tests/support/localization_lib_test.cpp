#include "support/localization_lib.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/raised.h"
#include "support/locale.h"

namespace tslm5::LocalizationLib {
namespace {

TEST(GetUserLocale, IsTheIdentifierOfTheCurrentLocale) {
  const ScopedLocale locale("de_DE");
  EXPECT_EQ(GetUserLocale(), 1031);
}

TEST(IsEnglishLocale, IsTrueOfTwoCountriesOnly) {
  struct {
    const char* name;
    bool is_english;
  } const cases[] = {{"en_US", true},  {"en_GB", true},  {"C", true},
                     {"en_AU", false}, {"de_DE", false}, {"en_CA", false}};
  for (const auto& c : cases) {
    const ScopedLocale locale(c.name);
    EXPECT_EQ(IsEnglishLocale(), c.is_english) << c.name;
  }
}

TEST(GetLocaleText, GivesAnItemOfAnyLocale) {
  const ScopedLocale locale("fr_FR");
  EXPECT_EQ(GetLocaleText(1031, 14), ",");
  EXPECT_EQ(GetLocaleText(1031, 15), ".");
  EXPECT_EQ(GetLocaleText(2057, 14), ".");
  EXPECT_EQ(GetLocaleText(2057, 15), ",");
}

TEST(GetLocaleText, IsEmptyForWhatIsNotKnown) {
  EXPECT_EQ(GetLocaleText(1031, 9999), "");
  EXPECT_EQ(GetLocaleText(99999, 14), "");
  EXPECT_EQ(GetLocaleText(0, 14), "");
}

TEST(GetDecimalSeparator, FollowsTheLocale) {
  {
    const ScopedLocale locale("de_DE");
    EXPECT_EQ(GetDecimalSeparator(), ",");
  }
  const ScopedLocale locale("en_GB");
  EXPECT_EQ(GetDecimalSeparator(), ".");
}

TEST(FormatInvariant, WritesAPointUnderAnyLocale) {
  for (const char* name : {"en_US", "de_DE", "fr_FR", "ar_EG"}) {
    const ScopedLocale locale(name);
    EXPECT_EQ(FormatInvariant(1.5), "1.5") << name;
  }
}

TEST(FormatInvariant, WritesTheShortestTextThatReadsBack) {
  EXPECT_EQ(FormatInvariant(0.1 + 0.2), "0.30000000000000004");
  EXPECT_EQ(FormatInvariant(1.0), "1");
  EXPECT_EQ(FormatInvariant(-1234567.0), "-1234567");
  EXPECT_EQ(FormatInvariant(1e300), "1E+300");
}

TEST(FormatValueInvariant, ReadsTextAsTheUserWritesNumbers) {
  {
    const ScopedLocale locale("de_DE");
    EXPECT_EQ(FormatValueInvariant("1,5"), "1.5");
    EXPECT_EQ(RaisedNumber([] { FormatValueInvariant("1.5"); }), 13);
  }
  const ScopedLocale locale("en_US");
  EXPECT_EQ(FormatValueInvariant(" 1.50 "), "1.5");
  EXPECT_EQ(RaisedNumber([] { FormatValueInvariant("1,5"); }), 13);
}

TEST(FormatValueInvariant, ConvertsEveryKindThatIsANumber) {
  const ScopedLocale locale("de_DE");
  EXPECT_EQ(FormatValueInvariant(2.5), "2.5");
  EXPECT_EQ(FormatValueInvariant(std::int32_t{-7}), "-7");
  EXPECT_EQ(FormatValueInvariant(true), "-1");
  EXPECT_EQ(FormatValueInvariant(Variant()), "0");
}

TEST(FormatValueInvariant, RaisesOnWhatIsNoNumber) {
  for (const char* text : {"", "abc", "1x", "nan"}) {
    EXPECT_EQ(RaisedNumber([text] { FormatValueInvariant(text); }), 13) << text;
  }
  EXPECT_EQ(RaisedNumber([] { FormatValueInvariant(Null{}); }), 13);
}

}  // namespace
}  // namespace tslm5::LocalizationLib
