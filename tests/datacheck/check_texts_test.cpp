#include "datacheck/check_texts.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "datacheck/data_check.h"
#include "support/locale.h"

namespace tslm5::check_text {
namespace {

TEST(CheckTexts, GroupNumbersByThree) {
  EXPECT_EQ(Grouped(0), "0");
  EXPECT_EQ(Grouped(7), "7");
  EXPECT_EQ(Grouped(999), "999");
  EXPECT_EQ(Grouped(1000), "1,000");
  EXPECT_EQ(Grouped(12345), "12,345");
  EXPECT_EQ(Grouped(999999), "999,999");
  EXPECT_EQ(Grouped(1234567), "1,234,567");
  EXPECT_EQ(Grouped(std::numeric_limits<std::int64_t>::max()), "9,223,372,036,854,775,807");
}

TEST(CheckTexts, GroupNumbersBelowZeroWithoutACommaBehindTheSign) {
  EXPECT_EQ(Grouped(-1), "-1");
  EXPECT_EQ(Grouped(-123), "-123");
  EXPECT_EQ(Grouped(-1000), "-1,000");
  EXPECT_EQ(Grouped(-123456), "-123,456");
  EXPECT_EQ(Grouped(-1234567), "-1,234,567");
  EXPECT_EQ(Grouped(std::numeric_limits<std::int64_t>::min()), "-9,223,372,036,854,775,808");
}

TEST(CheckTexts, GroupWithCommasWhateverTheLocale) {
  for (const char* name : {"de_DE", "fr_FR", "de_CH"}) {
    const ScopedLocale locale(name);
    EXPECT_EQ(Grouped(1234567), "1,234,567") << name;
  }
}

TEST(CheckTexts, TellTheRowUnderWay) {
  EXPECT_EQ(CheckingRow(1), "Checking row 1");
  EXPECT_EQ(CheckingRow(20000001), "Checking row 20,000,001");
}

TEST(CheckTexts, TellTheUsualLimitOfRowsUngrouped) {
  EXPECT_EQ(TooManyRows(DataCheckRules().most_row_index),
            "The number of rows must be less than or equal to 20000000.");
}

TEST(CheckTexts, TellARowOfMissingValues) {
  EXPECT_EQ(MissingInRow(1234), "Invalid <DATASET>. Missing value(s) in row 1,234.");
}

TEST(CheckTexts, TellAWrongNumberOfColumns) {
  EXPECT_EQ(ColumnCount(1234),
            "Unable to proceed: Row number 1234 has an invalid number of columns.\r\n\r\nPlease "
            "make sure this is a valid record or remove it from the dataset.");
}

TEST(CheckTexts, TellAMissingResponse) {
  EXPECT_EQ(MissingResponse(1234, 5678),
            "Unable to proceed: Invalid input in row 1234, column 5678.\r\n\r\nThe response "
            "variable has missing values, which is not supported.\r\nPlease make sure you remove "
            "all missing values from the response.");
}

TEST(CheckTexts, TellAnInvalidValue) {
  EXPECT_EQ(InvalidValue(1234, 5678, "x"),
            "Invalid <DATASET>. Value in row 1,234, column 5678. is invalid: x");
  EXPECT_EQ(InvalidValue(1, 2, ""), "Invalid <DATASET>. Value in row 1, column 2. is invalid: ");
}

TEST(CheckTexts, CutAnInvalidValueAfterFifteenCharacters) {
  const std::string head = "Invalid <DATASET>. Value in row 1, column 2. is invalid: ";
  EXPECT_EQ(InvalidValue(1, 2, "abcdefghijklmno"), head + "abcdefghijklmno");
  EXPECT_EQ(InvalidValue(1, 2, "abcdefghijklmnop"), head + "abcdefghijklmno");
  EXPECT_EQ(InvalidValue(1, 2, "äöüäöüäöüäöüäöüx"), head + "äöüäöüäöüäöüäöü");
}

TEST(CheckTexts, LoseEveryPrefixAndNothingElse) {
  EXPECT_EQ(WithoutPrefix("Invalid <DATASET>. The data"), "The data");
  EXPECT_EQ(WithoutPrefix("Invalid <DATASET>. a Invalid <DATASET>. b"), "a b");
  EXPECT_EQ(WithoutPrefix("Invalid <DATASET>."), "Invalid <DATASET>.");
  EXPECT_EQ(WithoutPrefix("invalid <DATASET>. x"), "invalid <DATASET>. x");
  EXPECT_EQ(WithoutPrefix(""), "");
}

}  // namespace
}  // namespace tslm5::check_text
