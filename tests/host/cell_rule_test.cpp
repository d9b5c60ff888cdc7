#include "host/preparation/cell_rule.h"

#include <gtest/gtest.h>

namespace tslm5::host {
namespace {

TEST(CellRule, TellsNumbersMissingValuesAndWordsApart) {
  const CellRule rule('.', {});
  for (const char* number : {"5", "-.5e3", "5.", "1e-400"}) {
    EXPECT_EQ(rule.Classify(number), CellClass::kNumber) << number;
  }
  for (const char* missing : {"", "?", ".", "._", ".x", ".abc", "NA", "na", "NULL"}) {
    EXPECT_EQ(rule.Classify(missing), CellClass::kMissing) << missing;
  }
  for (const char* word : {"red", "1,5", "Na", "1e400", "nan", "..5", "x."}) {
    EXPECT_EQ(rule.Classify(word), CellClass::kWord) << word;
  }
}

TEST(CellRule, TakesADecimalCommaWhereTheFileHasOne) {
  const CellRule rule(',', {});
  double value = 0.0;
  EXPECT_EQ(rule.Classify("1,5", value), CellClass::kNumber);
  EXPECT_EQ(value, 1.5);
  EXPECT_EQ(rule.Classify("2.5"), CellClass::kWord);
  EXPECT_EQ(rule.Classify("1.2,3"), CellClass::kWord);
}

TEST(CellRule, TakesNamedTokensLetterForLetter) {
  const CellRule rule('.', {"-9", "none"});
  EXPECT_EQ(rule.Classify("-9"), CellClass::kMissing);
  EXPECT_EQ(rule.Classify("none"), CellClass::kMissing);
  EXPECT_EQ(rule.Classify("-9.0"), CellClass::kNumber);
  EXPECT_EQ(rule.Classify("None"), CellClass::kWord);
  EXPECT_TRUE(rule.IsNamedToken("none"));
  EXPECT_FALSE(rule.IsNamedToken("NA"));
}

}  // namespace
}  // namespace tslm5::host
