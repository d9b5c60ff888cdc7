#include "contracts/property_bag.h"

#include <gtest/gtest.h>

#include "platform/raised.h"

namespace tslm5 {
namespace {

TEST(PropertyBag, TakesTheKeyFirst) {
  PropertyBag bag;
  bag.Put("DelayTime", "5");
  EXPECT_EQ(bag.Find("DelayTime"), "5");
  EXPECT_EQ(bag.Find("5"), "");
}

TEST(PropertyBag, TheLastWriteWins) {
  PropertyBag bag;
  bag.Put("Separator", "1");
  bag.Put("Separator", "2");
  EXPECT_EQ(bag.Get("Separator"), "2");
  EXPECT_EQ(bag.Count(), 1u);
}

TEST(PropertyBag, KeysDifferNotByCase) {
  PropertyBag bag;
  bag.Put("separator", "1");
  bag.Put("SÉPARATOR", "2");
  bag.Put("Separator", "3");
  EXPECT_EQ(bag.Get("SEPARATOR"), "3");
  EXPECT_EQ(bag.Get("séparator"), "2");
  EXPECT_EQ(bag.Count(), 2u);
}

TEST(PropertyBag, FindOfAnUnknownKeyGivesNoText) {
  const PropertyBag bag;
  EXPECT_EQ(bag.Find("Separator"), "");
}

TEST(PropertyBag, GetOfAnUnknownKeyRaisesFive) {
  PropertyBag bag;
  bag.Put("Separator", "");
  EXPECT_EQ(bag.Get("Separator"), "");
  const Error error = Raised([&] { (void)bag.Get("TimeSeries"); });
  EXPECT_EQ(error.Number(), 5);
  EXPECT_EQ(error.Source(), "GetProperty");
  EXPECT_EQ(error.Description(), "The key \"TimeSeries\" is not present.");
}

TEST(PropertyBag, ClearForgetsEverything) {
  PropertyBag bag;
  bag.Put("Separator", "1");
  bag.Clear();
  EXPECT_EQ(bag.Count(), 0u);
  EXPECT_EQ(bag.Find("Separator"), "");
}

TEST(PropertyBag, CopiesAreDeep) {
  PropertyBag bag;
  bag.Put("Separator", "1");
  PropertyBag copy = bag;
  copy.Put("Separator", "2");
  EXPECT_EQ(bag.Get("Separator"), "1");
  EXPECT_EQ(copy.Get("Separator"), "2");
  copy = bag;
  EXPECT_EQ(copy.Get("Separator"), "1");
}

}  // namespace
}  // namespace tslm5
