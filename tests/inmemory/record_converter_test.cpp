#include "inmemory/record_converter.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "inmemory/memory_set.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

using Cells = std::vector<double>;

/// The records of `rows` lines, one after the other.
Cells Read(std::string_view text, std::string_view separator, std::int32_t columns,
           std::int32_t rows, char decimal = '.') {
  const std::vector<char> bytes(text.begin(), text.end());  // nothing behind it may be read
  RecordConverter converter({bytes.data(), bytes.size()}, separator, columns, decimal);
  Cells cells(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows), -1);
  for (std::int32_t row = 0; row < rows; ++row)
    converter.Next(&cells[static_cast<std::size_t>(row * columns)]);
  return cells;
}

TEST(RecordConverter, ConvertsLineAfterLine) {
  EXPECT_THAT(Read("1,2\n3,4\n5,6", ",", 2, 3), ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST(RecordConverter, ConvertsOneFieldALineWithoutASeparator) {
  EXPECT_THAT(Read("1\n-2.5\n3", "", 1, 3), ElementsAre(1, -2.5, 3));
}

TEST(RecordConverter, IgnoresOneSeparatorAtEitherEndOfALine) {
  EXPECT_THAT(Read(" 1 2\n3 4 \n 5 6 ", " ", 2, 3), ElementsAre(1, 2, 3, 4, 5, 6));
  EXPECT_THAT(Read(",7,8,\n9,0", ",", 2, 2), ElementsAre(7, 8, 9, 0));
}

TEST(RecordConverter, ConvertsNumbersOfEveryLength) {
  EXPECT_THAT(Read("+1;12345678901234567890;1e-300", ";", 3, 1),
              ElementsAre(1, 12345678901234567890.0, 1e-300));
}

TEST(RecordConverter, TakesTheDecimalSeparatorOfTheUser) {
  EXPECT_THAT(Read("1,5;2,25\n,5;-3", ";", 2, 2, ','), ElementsAre(1.5, 2.25, .5, -3));
}

TEST(RecordConverter, GivesTheLastFieldOfALine) {
  RecordConverter converter("1,02\n3,+4,\n5,6", ",", 2, '.');
  Cells cells(2);
  EXPECT_EQ(converter.Next(cells.data()), "02");
  EXPECT_EQ(converter.Next(cells.data()), "+4");
  EXPECT_EQ(converter.Next(cells.data()), "6");
}

TEST(RecordConverter, CountsTheFieldsBeforeItConvertsThem) {
  for (const char* line : {"1", "1,2,3", "x", "x,2,y", ",", "1,2,3,"}) {
    const std::string text = std::string("7,8\n") + line + "\n9,9";
    EXPECT_THAT(Raised([&] { Read(text, ",", 2, 2); }), IsColumnCountError(2)) << line;
  }
}

TEST(RecordConverter, ShowsTheFieldThatIsNoNumber) {
  EXPECT_THAT(Raised([] { Read("1,2\n3,4\n5,abcdefghijklmnopqrstu", ",", 2, 3); }),
              IsError(41011, "ParseString", "Sample 2 in row 3 is invalid: abcdefghijklmno"));
  EXPECT_THAT(Raised([] { Read("x,y", ",", 2, 1); }),
              IsError(41011, "ParseString", "Sample 1 in row 1 is invalid: x"));
}

TEST(RecordConverter, TakesNumbersThatNeedTheCarefulWay) {
  std::string text;
  for (int i = 0; i < 40; ++i) text += "1e-320,2\n3,4\n";
  const Cells cells = Read(text, ",", 2, 80);
  for (std::size_t i = 0; i < cells.size(); i += 4) {
    ASSERT_THAT(Cells(&cells[i], &cells[i] + 4), ElementsAre(1e-320, 2, 3, 4)) << i;
  }
}

}  // namespace
}  // namespace tslm5
