#include "datasetlite/record_widths.h"

#include <gtest/gtest.h>

namespace tslm5 {
namespace {

std::string Uneven(std::string_view text, std::int64_t first_line = 1) {
  const auto record = FindUnevenRecord(text, first_line);
  if (!record) return "even";
  return std::to_string(record->line) + ":" + std::to_string(record->fields) + " " +
         std::to_string(record->first_line) + ":" + std::to_string(record->first_fields);
}

TEST(FindUnevenRecord, GivesTheFirstLineOfAnotherWidth) {
  EXPECT_EQ(Uneven("1 2\n3 4\n5\n6"), "3:1 1:2");
  EXPECT_EQ(Uneven("1\n2\n3 4"), "3:2 1:1");
  EXPECT_EQ(Uneven("1 2\n3  4"), "2:3 1:2") << "an empty field counts";
}

TEST(FindUnevenRecord, FindsNoneWhereAllAreOfOneWidth) {
  for (const char* text : {"", "1", "1 2\n3 4\n", "1  2\n3 4 5"}) EXPECT_EQ(Uneven(text), "even");
}

TEST(FindUnevenRecord, CountsTheLinesThatAreNoRecords) {
  EXPECT_EQ(Uneven("\n \n1 2\n\n\t;\n3\n", 2), "7:1 4:2");
}

TEST(FindUnevenRecord, PassesOverBlanksAtTheEndsOfALineAndStrays) {
  EXPECT_EQ(Uneven("1 2\n  3 4  \n;5\t 6;\n\t 7 8 \t"), "even");
  EXPECT_EQ(Uneven("1 2\n3 ; 4"), "2:3 1:2") << "an empty field is left of the stray";
}

TEST(IsAmbiguous, IsTrueWhereABlankMakesUpForAnEmptyValue) {
  EXPECT_TRUE(IsAmbiguous("1,2 3,,4", ",", "1 2 3  4"));
  EXPECT_TRUE(IsAmbiguous("1,2  3,", ",", "1 2  3 "));
}

TEST(IsAmbiguous, IsFalseWithEitherAlone) {
  EXPECT_FALSE(IsAmbiguous("1,2,3", ",", "1 2 3"));
  EXPECT_FALSE(IsAmbiguous("1,2 3", ",", "1 2 3"));
  EXPECT_FALSE(IsAmbiguous("1,,3", ",", "1  3"));
  EXPECT_FALSE(IsAmbiguous("1,2 3,,", ",", "1 2 3  "));
  EXPECT_FALSE(IsAmbiguous("", ",", ""));
  EXPECT_FALSE(IsAmbiguous("1", "", "1"));
}

}  // namespace
}  // namespace tslm5
