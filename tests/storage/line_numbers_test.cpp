#include "storage/line_numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "tslm5/platform/number_text.h"

namespace tslm5 {
namespace {

/// The numbers of a line, each followed by ";", "-" for a missing one; "text" when there is one.
std::string Read(const std::string& line, bool decimal_is_comma = false) {
  LineNumbers numbers(decimal_is_comma);
  if (!numbers.Read(line)) return "text";
  std::string list;
  for (const double number : numbers.Numbers()) {
    list += std::isnan(number) ? "-" : NumberText(number);
    list += ';';
  }
  return list;
}

TEST(LineNumbers, ReadsNumbersBetweenBlanks) {
  EXPECT_EQ(Read("1 -2.5 3e4"), "1;-2.5;30000;");
  EXPECT_EQ(Read("   7   "), "7;");
}

TEST(LineNumbers, TakesTokensAndEmptyFieldsForMissing) {
  EXPECT_EQ(Read("1  2"), "1;-;2;");
  EXPECT_EQ(Read("NA . ? null ._ .z .5"), "-;-;-;-;-;-;0.5;");
  EXPECT_EQ(Read(""), "-;");
  EXPECT_EQ(Read("   "), "-;");
}

TEST(LineNumbers, LeavesEverythingElseToTheStatement) {
  for (const char* line : {"1 x", "1,5", "1e999", "\t5", "nan", "inf", "0x10", "NAN", "1 'a'"}) {
    EXPECT_EQ(Read(line), "text") << line;
  }
  EXPECT_EQ(Read(std::string("1\0", 2)), "text");
}

TEST(LineNumbers, TakesACommaForThePointWhereItIsOne) {
  EXPECT_EQ(Read("1,5 2.5 3", true), "1.5;2.5;3;");
  EXPECT_EQ(Read("1,5.5", true), "text");
  EXPECT_EQ(Read("1,5,5", true), "text");
}

TEST(LineNumbers, ReadsTheNextLineInTheSameRoom) {
  LineNumbers numbers(false);
  const std::string text = "1 2 3\n4";
  ASSERT_TRUE(numbers.Read(std::string_view(text).substr(0, 5)));
  ASSERT_TRUE(numbers.Read(std::string_view(text).substr(6)));
  ASSERT_EQ(numbers.Numbers().size(), 1U);
  EXPECT_EQ(numbers.Numbers()[0], 4);
}

}  // namespace
}  // namespace tslm5
