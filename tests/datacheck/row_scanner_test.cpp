#include "datacheck/row_scanner.h"

#include <gmock/gmock.h>

#include <string>
#include <string_view>

namespace tslm5 {
namespace {

/// The only row of a text.
RowScanner::Row OnlyRow(std::string_view text, char decimal = '.') {
  RowScanner scanner(text, decimal);
  const RowScanner::Row row = scanner.Next();
  EXPECT_TRUE(scanner.AtEnd()) << text;
  return row;
}

TEST(RowScanner, CountsTheFieldsBetweenSingleBlanks) {
  EXPECT_EQ(OnlyRow("1").fields, 1);
  EXPECT_EQ(OnlyRow("1 2 3").fields, 3);
  EXPECT_EQ(OnlyRow("1 2 3").first_invalid, -1);
  EXPECT_EQ(OnlyRow("1 2 3").last_field, "3");
}

TEST(RowScanner, LeavesOutTheBlanksAroundARow) {
  const RowScanner::Row row = OnlyRow("   1 2  \n");
  EXPECT_EQ(row.fields, 2);
  EXPECT_EQ(row.last_field, "2");
  EXPECT_FALSE(row.is_empty);
}

TEST(RowScanner, FindsAnEmptyFieldBetweenTwoBlanks) {
  const RowScanner::Row row = OnlyRow("1  2\n");
  EXPECT_EQ(row.fields, 3);
  EXPECT_EQ(row.first_invalid, 1);
  EXPECT_EQ(row.invalid_field, "");
}

TEST(RowScanner, TellsAnEmptyRowFromABlankOne) {
  EXPECT_TRUE(OnlyRow("\n").is_empty);
  EXPECT_EQ(OnlyRow("\n").fields, 0);
  EXPECT_FALSE(OnlyRow("  \n").is_empty);
  EXPECT_EQ(OnlyRow("  \n").fields, 0);
}

TEST(RowScanner, IsAtTheEndBehindTheLastLineFeed) {
  EXPECT_TRUE(RowScanner("", '.').AtEnd());
  RowScanner scanner("1 2\n\n3", '.');
  EXPECT_EQ(scanner.Next().fields, 2);
  EXPECT_TRUE(scanner.Next().is_empty);
  EXPECT_EQ(scanner.Next().last_field, "3");
  EXPECT_TRUE(scanner.AtEnd());
}

TEST(RowScanner, NamesTheFirstFieldThatIsNoNumber) {
  const RowScanner::Row row = OnlyRow("1 x 2 y 3");
  EXPECT_EQ(row.first_invalid, 1);
  EXPECT_EQ(row.invalid_field, "x");
  EXPECT_EQ(row.last_field, "3");
}

TEST(RowScanner, ReadsNumbersInTheUsersForm) {
  EXPECT_EQ(OnlyRow("1.5 2", '.').first_invalid, -1);
  EXPECT_EQ(OnlyRow("1,5 2", '.').first_invalid, 0);
  EXPECT_EQ(OnlyRow("1,5 2", ',').first_invalid, -1);
  EXPECT_EQ(OnlyRow("1.5 2", ',').first_invalid, 0);
}

TEST(RowScanner, DecidesAlikeInTheMiddleOfATextAndAtItsEnd) {
  const std::string numbers[] = {"5",    "-5",    "+.5",    "5.",         "1e5",
                                 "1E-5", "1e300", "1e-400", "-1.5e+0005", "123456789012345.678e-3"};
  const std::string others[] = {
      ".",     "-",   "e5",   "1e",  "1e+", "1e1.",  "1e1e1", "--1", "1-",   "1.2.3",
      "1e400", "nan", "0x10", "1d5", "x",   "1e-+5", "+-1",   "\r",  "1e1-", "123456789012345x"};
  const std::string behind = " 1 2 3 4 5 6 7 8 9";
  for (const std::string& number : numbers) {
    EXPECT_EQ(OnlyRow("1 " + number).first_invalid, -1) << number;
    EXPECT_EQ(OnlyRow("1 " + number + behind).first_invalid, -1) << number;
  }
  for (const std::string& other : others) {
    EXPECT_EQ(OnlyRow("1 " + other + "\n").invalid_field, other);
    EXPECT_EQ(OnlyRow("1 " + other).first_invalid, 1) << other;
    EXPECT_EQ(OnlyRow("1 " + other + behind).first_invalid, 1) << other;
    EXPECT_EQ(OnlyRow("1 " + other + behind).invalid_field, other);
  }
}

TEST(HasEmptyRowInside, IsTrueBetweenTwoRowsAlone) {
  EXPECT_TRUE(HasEmptyRowInside("1\n\n2"));
  EXPECT_TRUE(HasEmptyRowInside("1\n \t;\n2\n"));
  EXPECT_FALSE(HasEmptyRowInside("1\n2\n\n"));
  EXPECT_FALSE(HasEmptyRowInside("\n\n1\n2"));
  EXPECT_FALSE(HasEmptyRowInside("1\n;2\n 3\n\t4"));
}

TEST(HasEmptyRowInside, IsFalseOfATextThatHoldsNothing) {
  EXPECT_FALSE(HasEmptyRowInside(""));
  EXPECT_FALSE(HasEmptyRowInside("\n\n\n"));
  EXPECT_FALSE(HasEmptyRowInside(" \n\t\n;"));
}

TEST(HasEmptyRowInside, LooksPastRowsThatOnlyBeginBlank) {
  const std::string rows(40, '7');
  EXPECT_FALSE(HasEmptyRowInside(rows + "\n 1\n;2\n" + rows + "\n\n"));
  EXPECT_TRUE(HasEmptyRowInside(rows + "\n 1\n;2\n" + rows + "\n\n" + rows));
}

}  // namespace
}  // namespace tslm5
