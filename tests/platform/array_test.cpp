#include "tslm5/platform/array.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "platform/raised.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

constexpr auto kLargest = std::numeric_limits<std::int32_t>::max();
constexpr auto kSmallest = std::numeric_limits<std::int32_t>::min();

TEST(Array, StartsEmptyAtZero) {
  const Array<int> array;
  EXPECT_EQ(array.LowerBound(), 0);
  EXPECT_EQ(array.UpperBound(), -1);
  EXPECT_EQ(array.Size(), 0u);
  EXPECT_EQ(RaisedNumber([&] { (void)array[0]; }), 9);
}

TEST(Array, KeepsItsLowerBound) {
  const Array<int> array({10, 11, 12}, 5);
  EXPECT_EQ(array.LowerBound(), 5);
  EXPECT_EQ(array.UpperBound(), 7);
  EXPECT_EQ(array.Size(), 3u);
  EXPECT_EQ(array[5], 10);
  EXPECT_EQ(array[7], 12);
}

TEST(Array, TakesANegativeLowerBound) {
  Array<int> array({10, 11, 12}, -1);
  EXPECT_EQ(array.UpperBound(), 1);
  array[-1] = 20;
  EXPECT_EQ(array[-1], 20);
  EXPECT_EQ(array[1], 12);
}

TEST(Array, AnIndexOutsideRaisesNine) {
  const Array<int> array({10, 11, 12}, 5);
  for (const std::int32_t index : {4, 8, 0, -1, kLargest, kSmallest}) {
    const Error error = Raised([&] { (void)array[index]; });
    EXPECT_EQ(error.Number(), 9) << index;
    EXPECT_EQ(error.Description(), "Subscript out of range") << index;
  }
}

TEST(Array, AnIndexOutsideRaisesNineAtTheEndsOfTheRange) {
  const Array<int> high({1, 2}, kLargest - 1);
  EXPECT_EQ(high[kLargest], 2);
  EXPECT_EQ(RaisedNumber([&] { (void)high[kSmallest]; }), 9);
  const Array<int> low({1, 2}, kSmallest);
  EXPECT_EQ(low[kSmallest], 1);
  EXPECT_EQ(RaisedNumber([&] { (void)low[kLargest]; }), 9);
}

TEST(Array, WritingOutsideRaisesNineAndChangesNothing) {
  Array<int> array({10, 11}, 1);
  EXPECT_EQ(RaisedNumber([&] { array[0] = 1; }), 9);
  EXPECT_EQ(RaisedNumber([&] { array[3] = 1; }), 9);
  EXPECT_THAT(array.Elements(), ElementsAre(10, 11));
}

TEST(Array, RedimSetsBothBoundsAndEmptiesTheElements) {
  Array<std::string> array({"a", "b"}, 0);
  array.Redim(3, 5);
  EXPECT_EQ(array.LowerBound(), 3);
  EXPECT_EQ(array.UpperBound(), 5);
  EXPECT_THAT(array.Elements(), ElementsAre("", "", ""));
}

TEST(Array, RedimToNoElementsIsAllowed) {
  Array<int> array({10, 11}, 0);
  array.Redim(4, 3);
  EXPECT_EQ(array.LowerBound(), 4);
  EXPECT_EQ(array.UpperBound(), 3);
  EXPECT_EQ(array.Size(), 0u);
}

TEST(Array, RedimBelowThatRaisesNineAndChangesNothing) {
  Array<int> array({10, 11}, 7);
  EXPECT_EQ(RaisedNumber([&] { array.Redim(4, 2); }), 9);
  EXPECT_EQ(RaisedNumber([&] { array.Redim(kLargest, kSmallest); }), 9);
  EXPECT_EQ(array.LowerBound(), 7);
  EXPECT_THAT(array.Elements(), ElementsAre(10, 11));
}

TEST(Array, IsEqualWhenBoundAndElementsAre) {
  const Array<int> array({1, 2}, 1);
  EXPECT_TRUE(array == Array<int>({1, 2}, 1));
  EXPECT_FALSE(array == Array<int>({1, 2}, 0));
  EXPECT_FALSE(array == Array<int>({1, 3}, 1));
}

TEST(Array, CopiesAreDeep) {
  Array<int> array({1, 2}, 1);
  const Array<int> copy = array;
  array[1] = 9;
  EXPECT_EQ(copy[1], 1);
}

}  // namespace
}  // namespace tslm5
