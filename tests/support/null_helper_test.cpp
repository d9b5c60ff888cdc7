#include "support/null_helper.h"

#include <gtest/gtest.h>

#include <string>

#include "support/locale.h"

namespace tslm5::NullHelper {
namespace {

constexpr const char* kWords[] = {"?", "NULL", "Null", "null", "NA", "na", ".", "._"};

TEST(IsMissingToken, KnowsSixtyTokensOfAtMostFourCharacters) {
  int tokens = 0;
  for (const char* word : kWords) tokens += IsMissingToken(word) ? 1 : 0;
  for (char c = 'a'; c <= 'z'; ++c) tokens += IsMissingToken(std::string(".") + c) ? 1 : 0;
  for (char c = 'A'; c <= 'Z'; ++c) tokens += IsMissingToken(std::string(".") + c) ? 1 : 0;
  EXPECT_EQ(tokens, 60);
}

TEST(IsMissingToken, HasNoOtherTokenOfOneOrTwoBytes) {
  int tokens = 0;
  for (int first = 0; first < 256; ++first) {
    const std::string one(1, static_cast<char>(first));
    tokens += IsMissingToken(one) ? 1 : 0;
    for (int second = 0; second < 256; ++second) {
      tokens += IsMissingToken(one + static_cast<char>(second)) ? 1 : 0;
    }
  }
  EXPECT_EQ(tokens, 57) << "all but the three of four letters";
}

TEST(IsMissingToken, ComparesExactly) {
  for (const char* text : {"Na", "nA", " NA", "NA ", "..", "", " ", "nULL", "NuLL", "NULL ", "??",
                           ".AB", "._.", ".5", "A", "_", "N/A", "-", "0"}) {
    EXPECT_FALSE(IsMissingToken(text)) << text;
  }
}

TEST(IsMissingValue, TrimsForTheWords) {
  for (const std::string word : kWords) {
    EXPECT_TRUE(IsMissingValue(word, '.')) << word;
    EXPECT_TRUE(IsMissingValue("  " + word + " ", '.')) << word;
  }
  EXPECT_TRUE(IsMissingValue("", '.'));
  EXPECT_TRUE(IsMissingValue("   ", '.'));
}

TEST(IsMissingValue, TakesADotBeforeWhatIsNoNumberForMissing) {
  for (const char* text : {".A", ".x", ".abc", "..", ".x ", ".5x", "._ .", ".-"}) {
    EXPECT_TRUE(IsMissingValue(text, '.')) << text;
  }
  for (const char* text : {".25", ".5 ", ". 5", ".5.5", ".1e5"}) {
    EXPECT_FALSE(IsMissingValue(text, '.')) << text;
  }
}

TEST(IsMissingValue, DoesNotTrimForTheDot) {
  EXPECT_FALSE(IsMissingValue(" .x", '.'));
  EXPECT_FALSE(IsMissingValue(" .5", '.'));
}

TEST(IsMissingValue, IsFalseOfWordsAndNumbers) {
  for (const char* text : {"-", "Na", "nA", "1.5", "abc", "0", "\t", "N.A", "x."}) {
    EXPECT_FALSE(IsMissingValue(text, '.')) << text;
  }
}

TEST(IsMissingValue, FollowsTheUsersDecimalSeparator) {
  const ScopedLocale locale("de_DE");
  EXPECT_FALSE(IsMissingValue(".5"));
  EXPECT_FALSE(IsMissingValue(".5,5"));
  EXPECT_TRUE(IsMissingValue(".5.5"));
  EXPECT_FALSE(IsMissingValue(",5"));
}

}  // namespace
}  // namespace tslm5::NullHelper
