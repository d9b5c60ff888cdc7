#include "support/locale.h"

#include <gtest/gtest.h>

#include <string>

#include "support/locale_variables.h"

namespace tslm5 {
namespace {

TEST(Locale, KnowsIdentifiersAndSymbols) {
  struct {
    const char* name;
    std::int32_t identifier;
    char decimal;
    const char* group;
  } const cases[] = {
      {"en_US", 1033, '.', ","},       {"en_GB", 2057, '.', ","},
      {"en_US.UTF-8", 1033, '.', ","}, {"de_DE", 1031, ',', "."},
      {"de_DE.UTF-8", 1031, ',', "."}, {"de_DE@euro", 1031, ',', "."},
      {"de_CH.UTF-8", 2055, '.', "’"}, {"fr_FR", 1036, ',', "\u202F"},
      {"pt_BR", 1046, ',', "."},       {"zh_CN", 2052, '.', ","},
  };
  for (const auto& c : cases) {
    const Locale locale(c.name);
    EXPECT_EQ(locale.Identifier(), c.identifier) << c.name;
    EXPECT_EQ(locale.DecimalSymbol(), c.decimal) << c.name;
    EXPECT_EQ(locale.GroupSymbol(), c.group) << c.name;
  }
}

TEST(Locale, TakesTheSymbolsThatGoWithAsciiDigits) {
  EXPECT_EQ(Locale("ar_EG").DecimalSymbol(), '.');
  EXPECT_EQ(Locale("fa_IR").DecimalSymbol(), '.');
  EXPECT_EQ(Locale("ar_EG").GroupSymbol(), ",");
  EXPECT_EQ(Locale("ar_EG").Identifier(), 3073);
}

TEST(Locale, AddsTheLikeliestCountry) {
  EXPECT_EQ(Locale("en").Identifier(), 1033);
  EXPECT_EQ(Locale("de.UTF-8").Identifier(), 1031);
  EXPECT_EQ(Locale("de").DecimalSymbol(), ',');
}

TEST(Locale, IsEnglishOfTheUnitedStatesWhereThereIsNone) {
  const LocaleVariables variables("de_DE.UTF-8", nullptr, "de_DE.UTF-8");
  for (const char* name : {"C", "POSIX", "C.UTF-8", "", "xx_YY", "german", ".UTF-8", "@"}) {
    const Locale locale(name);
    EXPECT_EQ(locale.Identifier(), 1033) << name;
    EXPECT_EQ(locale.DecimalSymbol(), '.') << name;
    EXPECT_EQ(locale.GroupSymbol(), ",") << name;
  }
  EXPECT_EQ(Locale(std::string(5000, 'd')).Identifier(), 1033);
}

TEST(Locale, TakesTheFirstVariableThatIsSet) {
  struct {
    const char* lc_all;
    const char* lc_numeric;
    const char* lang;
    std::int32_t identifier;
  } const cases[] = {
      {"en_GB.UTF-8", "de_DE.UTF-8", "fr_FR.UTF-8", 2057},
      {nullptr, "de_DE.UTF-8", "fr_FR.UTF-8", 1031},
      {"", "de_DE.UTF-8", "fr_FR.UTF-8", 1031},
      {nullptr, nullptr, "fr_FR.UTF-8", 1036},
      {"", "", "fr_FR.UTF-8", 1036},
      {"C", "de_DE.UTF-8", "fr_FR.UTF-8", 1033},
      {nullptr, nullptr, nullptr, 1033},
  };
  for (const auto& c : cases) {
    const LocaleVariables variables(c.lc_all, c.lc_numeric, c.lang);
    EXPECT_EQ(Locale::FromEnvironment().Identifier(), c.identifier);
  }
}

TEST(Locale, IsFoundByItsIdentifier) {
  Locale locale("en_GB");
  EXPECT_TRUE(Locale::FromIdentifier(1031, locale));
  EXPECT_EQ(locale.Identifier(), 1031);
  EXPECT_EQ(locale.DecimalSymbol(), ',');
  for (const std::int32_t identifier : {0, -1, 4096, 99999}) {
    EXPECT_FALSE(Locale::FromIdentifier(identifier, locale)) << identifier;
    EXPECT_EQ(locale.Identifier(), 1031) << identifier;
  }
}

TEST(CurrentLocale, KeepsTheEnvironmentThatItFirstSaw) {
  const char decimal = CurrentLocale().DecimalSymbol();
  const char* const other = decimal == ',' ? "en_US.UTF-8" : "de_DE.UTF-8";
  const LocaleVariables variables(other, other, other);
  EXPECT_EQ(CurrentLocale().DecimalSymbol(), decimal);
  EXPECT_EQ(&CurrentLocale(), &CurrentLocale());
}

TEST(ScopedLocale, NestsAndEnds) {
  const std::int32_t before = CurrentLocale().Identifier();
  {
    const ScopedLocale german("de_DE");
    EXPECT_EQ(CurrentLocale().Identifier(), 1031);
    {
      const ScopedLocale french("fr_FR");
      EXPECT_EQ(CurrentLocale().Identifier(), 1036);
    }
    EXPECT_EQ(CurrentLocale().Identifier(), 1031);
  }
  EXPECT_EQ(CurrentLocale().Identifier(), before);
}

}  // namespace
}  // namespace tslm5
