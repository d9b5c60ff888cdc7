#include "support/numeric_test.h"

#include <gtest/gtest.h>

namespace tslm5 {
namespace {

TEST(IsNumeric, TakesWhatTheGrammarTakes) {
  for (const char* text : {"5", "-5", "+5", ".5", "5.", "1e5", " 5 ", "1E-5", "1e+5", "-0"}) {
    EXPECT_TRUE(IsNumeric(text, '.')) << text;
  }
}

TEST(IsNumeric, RefusesEverythingElse) {
  for (const char* text : {"", "-", ".", "1,5", "1.2.3", "nan", "inf", "0x10", "1e400", "1d5", "5x",
                           "1,234.", " ", "e5", "1e", "$5", "(5)", "\t5", "5\r"}) {
    EXPECT_FALSE(IsNumeric(text, '.')) << text;
  }
}

TEST(IsNumeric, FollowsTheDecimalSeparator) {
  EXPECT_TRUE(IsNumeric("1,5", ','));
  EXPECT_TRUE(IsNumeric(",5", ','));
  EXPECT_FALSE(IsNumeric("1.5", ','));
  EXPECT_FALSE(IsNumeric(".5", ','));
}

}  // namespace
}  // namespace tslm5
