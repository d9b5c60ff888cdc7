#include "support/math_helper.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "platform/raised.h"
#include "support/locale.h"

namespace tslm5::MathHelper {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

TEST(Standardize, CountsDeviationsFromTheMean) {
  EXPECT_EQ(Standardize(7, 1, 4), 1.5);
  EXPECT_EQ(Standardize(1, 7, -4), 1.5);
}

TEST(Normalize, MapsTheRangeOntoZeroToOne) {
  EXPECT_EQ(Normalize(3, 11, 1), 0.2);
  EXPECT_EQ(Normalize(1, 11, 1), 0.0);
  EXPECT_EQ(Normalize(11, 11, 1), 1.0);
}

TEST(Rescale, MapsOneRangeOntoAnother) {
  EXPECT_EQ(Rescale(3, 5, 1, 30, 10), 20.0);
  EXPECT_EQ(Rescale(1, 5, 1, 30, 10), 10.0);
  EXPECT_EQ(Rescale(5, 5, 1, -1, 1), -1.0);
}

TEST(MathHelper, RaisesOnAZeroDenominatorWhateverTheNumerator) {
  EXPECT_EQ(RaisedNumber([] { Standardize(1, 2, 0); }), 11);
  EXPECT_EQ(RaisedNumber([] { Standardize(2, 2, 0); }), 11);
  EXPECT_EQ(RaisedNumber([] { Standardize(1, 2, -0.0); }), 11);
  EXPECT_EQ(RaisedNumber([] { Normalize(1, 3, 3); }), 11);
  EXPECT_EQ(RaisedNumber([] { Normalize(3, 3, 3); }), 11);
  EXPECT_EQ(RaisedNumber([] { Rescale(1, 3, 3, 1, 0); }), 11);
}

TEST(MathHelper, RaisesOnOverflowOfAnyStep) {
  EXPECT_EQ(RaisedNumber([] { Standardize(kLargest, -kLargest, 1); }), 6);
  EXPECT_EQ(RaisedNumber([] { Standardize(kLargest, 0, 0.5); }), 6);
  EXPECT_EQ(RaisedNumber([] { Normalize(0, kLargest, -kLargest); }), 6);
  EXPECT_EQ(RaisedNumber([] { Rescale(1, 1, 0, kLargest, -kLargest); }), 6);
  EXPECT_EQ(RaisedNumber([] { Rescale(9, 1, 0, kLargest, 0); }), 6);
  EXPECT_EQ(RaisedNumber([] { Rescale(3, 2, 1, kLargest, kLargest / 2); }), 6);
}

TEST(FloorValue, IsTheFloor) {
  struct {
    double value;
    std::int32_t floor;
  } const cases[] = {{-1.5, -2}, {2.5, 2}, {3.5, 3},
                     {-0.5, -1}, {0, 0},   {2.999, 2},
                     {-2.1, -3}, {7, 7},   {2147483647.5, 2147483647}};
  for (const auto& c : cases) EXPECT_EQ(FloorValue(c.value), c.floor) << c.value;
  EXPECT_EQ(FloorValue(-2147483648.0), std::numeric_limits<std::int32_t>::min());
}

TEST(FloorValue, RaisesWhereThirtyTwoBitsEnd) {
  for (const double value : {2147483648.0, -2147483648.5, 1e300, -1e300, kNotANumber}) {
    EXPECT_EQ(RaisedNumber([value] { FloorValue(value); }), 6) << value;
  }
}

TEST(Successor, EndsAtTheLargestNumber) {
  EXPECT_EQ(Successor(-1), 0);
  EXPECT_EQ(Successor(2147483646), 2147483647);
  EXPECT_EQ(RaisedNumber([] { Successor(2147483647); }), 6);
}

TEST(IsWholeNumber, ReadsTheTextAsANumber) {
  for (const char* text : {"5", "-5", "+5", " 5 ", "5.0", "5.", "0", "-0", "1e3", "2e0", "250e-1",
                           "2147483647", "-2147483648"}) {
    EXPECT_TRUE(IsWholeNumber(text, '.')) << text;
  }
}

TEST(IsWholeNumber, IsFalseOfFractionsLargeNumbersAndWords) {
  for (const char* text :
       {"2.5", "25e-1", "25e-1e", "1e-9", "3000000000", "2147483648", "-2147483649", "", " ", "abc",
        "5x", "1,000", "inf", "nan", "1e400", "-"}) {
    EXPECT_FALSE(IsWholeNumber(text, '.')) << text;
  }
}

TEST(IsWholeNumber, FollowsTheUsersDecimalSeparator) {
  const ScopedLocale locale("de_DE");
  EXPECT_TRUE(IsWholeNumber("5,0"));
  EXPECT_FALSE(IsWholeNumber("5.0"));
  EXPECT_FALSE(IsWholeNumber("5,5"));
}

}  // namespace
}  // namespace tslm5::MathHelper
