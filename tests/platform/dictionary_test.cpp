#include "tslm5/platform/dictionary.h"

#include <gtest/gtest.h>

#include <memory>

#include "platform/raised.h"
#include "platform/test_objects.h"

namespace tslm5 {
namespace {

TEST(Dictionary, KeepsTheOrderOfInsertion) {
  Dictionary map;
  map.Add("b", 1);
  map.Add("a", 2);
  map.Set("c", 3);
  map.Set("b", 4);
  ASSERT_EQ(map.Count(), 3u);
  EXPECT_EQ(map.Entries()[0], (std::pair<Variant, Variant>("b", 4)));
  EXPECT_EQ(map.Entries()[1], (std::pair<Variant, Variant>("a", 2)));
  EXPECT_EQ(map.Entries()[2], (std::pair<Variant, Variant>("c", 3)));
}

TEST(Dictionary, AnAbsentKeyGivesAnEmptyVariantAndStaysAbsent) {
  Dictionary map;
  map.Add("a", 1);
  EXPECT_TRUE(map.Item("b").IsEmpty());
  EXPECT_FALSE(map.Exists("b"));
  EXPECT_EQ(map.Count(), 1u);
}

TEST(Dictionary, ComparesTextsExactly) {
  Dictionary map;
  map.Add("Yes", 1);
  map.Add("yes", 2);
  map.Add("yes ", 3);
  EXPECT_EQ(map.Item("Yes"), Variant(1));
  EXPECT_EQ(map.Item("yes"), Variant(2));
  EXPECT_EQ(map.Item("yes "), Variant(3));
  EXPECT_FALSE(map.Exists("YES"));
}

TEST(Dictionary, ComparesKeysByKindAndValue) {
  Dictionary map;
  map.Add(1, "number");
  map.Add("1", "text");
  map.Add(true, "true");
  map.Add(-1, "minus one");
  map.Add(false, "false");
  map.Add(0, "zero");
  EXPECT_EQ(map.Item(1.0), Variant("number"));
  EXPECT_EQ(map.Item("1"), Variant("text"));
  EXPECT_EQ(map.Item(true), Variant("true"));
  EXPECT_EQ(map.Item(-1.0), Variant("minus one"));
  EXPECT_EQ(map.Item(false), Variant("false"));
  EXPECT_EQ(map.Item(0), Variant("zero"));
  EXPECT_FALSE(map.Exists(1.5));
}

TEST(Dictionary, ZeroIsOneKeyWhateverItsSign) {
  Dictionary map;
  map.Add(0.0, "zero");
  EXPECT_EQ(map.Item(-0.0), Variant("zero"));
  EXPECT_EQ(RaisedNumber([&] { map.Add(-0.0, 1); }), 457);
}

TEST(Dictionary, AddingAPresentKeyRaises457AndChangesNothing) {
  Dictionary map;
  map.Add("a", 1);
  const Error error = Raised([&] { map.Add("a", 2); });
  EXPECT_EQ(error.Number(), 457);
  EXPECT_EQ(error.Source(), "Dictionary");
  EXPECT_EQ(error.Description(), "The key \"a\" is already present.");
  EXPECT_EQ(map.Item("a"), Variant(1));
  EXPECT_EQ(map.Count(), 1u);
  EXPECT_EQ(RaisedNumber([&] { map.Add("b", 2); }), 0);
  EXPECT_EQ(map.Item("b"), Variant(2));
}

TEST(Dictionary, SetWritesAKnownKeyAndAddsANewOne) {
  Dictionary map;
  map.Set("a", 1);
  map.Set("a", "two");
  EXPECT_EQ(map.Item("a"), Variant("two"));
  EXPECT_EQ(map.Count(), 1u);
}

TEST(Dictionary, OnlyNumbersBooleansAndTextsAreKeys) {
  Dictionary map;
  const std::vector<Variant> keys = {Variant(), Null{}, MakeObject<OneFace>(),
                                     std::make_shared<VariantArray>(),
                                     std::make_shared<Dictionary>()};
  for (const Variant& key : keys) {
    const int kind = static_cast<int>(key.GetKind());
    EXPECT_EQ(RaisedNumber([&] { map.Add(key, 1); }), 13) << kind;
    EXPECT_EQ(RaisedNumber([&] { map.Set(key, 1); }), 13) << kind;
    EXPECT_EQ(RaisedNumber([&] { (void)map.Item(key); }), 13) << kind;
    EXPECT_EQ(RaisedNumber([&] { (void)map.Exists(key); }), 13) << kind;
  }
  EXPECT_EQ(map.Count(), 0u);
}

}  // namespace
}  // namespace tslm5
