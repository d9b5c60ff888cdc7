#include "support/column_vector.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "platform/raised.h"

namespace tslm5 {
namespace {

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();

class ColumnVector : public testing::Test {
 protected:
  /// Sizes the array for column 0 of 10 rows of 2 columns.
  std::int32_t Size(std::int32_t start, std::int32_t count) {
    return SizeColumnVector(array_, {0, start, count}, 10, 2, "Test");
  }

  VariantArray array_{std::vector<Variant>{1, 2, 3}};
};

TEST_F(ColumnVector, IsOneLongerThanTheRowsToTheEnd) {
  EXPECT_EQ(Size(3, -1), 10);
  EXPECT_EQ(array_, VariantArray(std::vector<Variant>(8), 3));
  EXPECT_EQ(Size(10, -1), 10);
  EXPECT_EQ(array_, VariantArray(std::vector<Variant>(1), 10));
}

TEST_F(ColumnVector, IsEmptyToTheEndFromBehindIt) {
  for (const std::int32_t start : {11, 12, 1000, kLargest}) {
    Size(start, -1);
    EXPECT_EQ(array_, VariantArray({}, start));
  }
}

TEST_F(ColumnVector, KeepsItsSizeWhereTheRowsEnd) {
  EXPECT_EQ(Size(8, 5), 10);
  EXPECT_EQ(array_.UpperBound(), 12);
  EXPECT_EQ(Size(-3, 5), 2);
  EXPECT_EQ(array_.LowerBound(), -3);
  EXPECT_EQ(array_.UpperBound(), 1);
}

TEST_F(ColumnVector, OfNoElementsIsEmptyAnywhere) {
  for (const std::int32_t start : {kSmallest, -1, 0, 9, 50, kLargest}) {
    Size(start, 0);
    EXPECT_EQ(array_, VariantArray({}, start));
  }
}

TEST_F(ColumnVector, EndsAtTheLargestIndex) {
  EXPECT_EQ(Size(kLargest, 1), 10);
  EXPECT_EQ(array_.Size(), 1U);
  EXPECT_EQ(RaisedNumber([&] { Size(kLargest, 2); }), 9);
  EXPECT_EQ(RaisedNumber([&] { Size(kLargest, kLargest); }), 9);
}

TEST_F(ColumnVector, RefusesCountsBelowMinusOne) {
  const VariantArray before = array_;
  EXPECT_EQ(RaisedNumber([&] { Size(0, -2); }), 9);
  EXPECT_EQ(RaisedNumber([&] { Size(kSmallest, kSmallest); }), 9);
  EXPECT_EQ(RaisedNumber([&] { Size(50, -2); }), 9);
  EXPECT_EQ(array_, before);
}

}  // namespace
}  // namespace tslm5
