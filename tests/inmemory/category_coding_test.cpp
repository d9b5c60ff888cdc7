#include "inmemory/category_coding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace tslm5 {
namespace {

TEST(CategoryCoding, GivesAPositionToEveryNewText) {
  CategoryCoding coding(false, '.');
  EXPECT_EQ(coding.Enter("b"), 0);
  EXPECT_EQ(coding.Enter("a"), 1);
  EXPECT_EQ(coding.Enter("b"), 0);
  EXPECT_EQ(coding.Enter(""), 2);
  EXPECT_EQ(coding.Enter("ba"), 3);
  EXPECT_EQ(coding.Enter(""), 2);
  const TextList texts = coding.TakeTexts();
  ASSERT_EQ(texts.Count(), 4u);
  EXPECT_EQ(texts[0], "b");
  EXPECT_EQ(texts[1], "a");
  EXPECT_EQ(texts[2], "");
  EXPECT_EQ(texts[3], "ba");
}

TEST(CategoryCoding, CodesAnInputFromOne) {
  CategoryCoding coding(false, '.');
  for (const char* text : {"a", "?", "b"}) coding.Enter(text);
  EXPECT_EQ(coding.Code(0), 1);
  EXPECT_TRUE(std::isnan(coding.Code(1)));
  EXPECT_EQ(coding.Code(2), 3);
}

TEST(CategoryCoding, CodesTheResponseFromZero) {
  CategoryCoding coding(true, '.');
  for (const char* text : {"no", "yes"}) coding.Enter(text);
  EXPECT_EQ(coding.Code(0), 0);
  EXPECT_EQ(coding.Code(1), 1);
}

TEST(CategoryCoding, EndsAtTenThousandTexts) {
  CategoryCoding coding(false, '.');
  for (int i = 0; i < 10000; ++i) ASSERT_EQ(coding.Enter(std::to_string(i)), i);
  EXPECT_EQ(coding.Enter("x"), std::nullopt);
  for (int i = 0; i < 10000; ++i) {
    ASSERT_EQ(coding.Enter(std::to_string(i)), i);
    ASSERT_EQ(coding.Code(static_cast<RawColumn::Position>(i)), i + 1);
  }
  EXPECT_EQ(coding.Enter("10000"), std::nullopt);
}

TEST(CategoryCoding, TakesAMissingCellForNoNumber) {
  for (const char* text : {"", "?", "NA", ".A", ".abc", " null "}) {
    EXPECT_TRUE(IsMissingCell(text, '.')) << text;
  }
  for (const char* text : {"a", "Na", ".5", ".1e309", "1", "-"}) {
    EXPECT_FALSE(IsMissingCell(text, '.')) << text;
  }
  EXPECT_FALSE(IsMissingCell(".5", ',')) << "a word there";
  EXPECT_TRUE(IsMissingCell(".5.", ','));
}

}  // namespace
}  // namespace tslm5
