#include "platform/collection.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/raised.h"

namespace tslm5 {
namespace {

using Texts = KeyedCollection<std::string>;

/// "key=value" of every entry, in order.
std::string Listing(const Texts& texts) {
  std::string listing;
  for (const auto& [key, value] : texts.Entries()) listing += key + "=" + value + " ";
  return listing;
}

TEST(FoldKey, MakesKeysThatDifferOnlyByCaseTheSame) {
  struct Case {
    const char* left;
    const char* right;
  };
  for (const Case& c : {Case{"Separator", "SEPARATOR"}, Case{"É", "é"}, Case{"Straße", "STRASSE"},
                        Case{"ΣΑΣ", "σας"}, Case{"Жук", "жУК"}, Case{"ﬁle", "FILE"}}) {
    EXPECT_EQ(FoldKey(c.left), FoldKey(c.right)) << c.left;
  }
}

TEST(FoldKey, KeepsEverythingElseApart) {
  EXPECT_NE(FoldKey("é"), FoldKey("e"));
  EXPECT_NE(FoldKey("a"), FoldKey("a "));
  EXPECT_NE(FoldKey("I"), FoldKey("ı"));
  EXPECT_EQ(FoldKey(""), "");
  EXPECT_NE(FoldKey(std::string_view("a\0b", 3)), FoldKey("a"));
}

TEST(KeyedCollection, KeepsTheOrderOfInsertionAndTheSpelling) {
  Texts texts;
  texts.Add("b", "1");
  texts.Add("A", "2");
  texts.Add("c", "3");
  EXPECT_EQ(Listing(texts), "b=1 A=2 c=3 ");
  EXPECT_EQ(texts.Count(), 3u);
}

TEST(KeyedCollection, FindsWithoutRegardToCase) {
  Texts texts;
  texts.Add("É", "1");
  EXPECT_EQ(texts.Item("é"), "1");
  ASSERT_NE(texts.Find("é"), nullptr);
  *texts.Find("é") = "2";
  EXPECT_EQ(texts.Item("É"), "2");
}

TEST(KeyedCollection, AddingAPresentKeyRaises457AndChangesNothing) {
  Texts texts;
  texts.Add("É", "1");
  const Error error = Raised([&] { texts.Add("é", "2"); });
  EXPECT_EQ(error.Number(), 457);
  EXPECT_EQ(error.Source(), "Collection");
  EXPECT_EQ(error.Description(), "The key \"é\" is already present.");
  EXPECT_EQ(Listing(texts), "É=1 ");
}

TEST(KeyedCollection, ReadingAnAbsentKeyRaisesFive) {
  const Texts texts;
  const Error error = Raised([&] { (void)texts.Item("x"); });
  EXPECT_EQ(error.Number(), 5);
  EXPECT_EQ(error.Source(), "Collection");
  EXPECT_EQ(error.Description(), "The key \"x\" is not present.");
  EXPECT_EQ(Raised([&] { (void)texts.Item("x", "GetProperty"); }).Source(), "GetProperty");
}

TEST(KeyedCollection, FindOfAnAbsentKeyIsNull) {
  Texts texts;
  texts.Add("a", "1");
  EXPECT_EQ(texts.Find("b"), nullptr);
  EXPECT_EQ(std::as_const(texts).Find("b"), nullptr);
}

TEST(KeyedCollection, RemoveTakesOneEntryOutAndKeepsTheOthers) {
  Texts texts;
  for (const char* key : {"a", "b", "c", "d"}) texts.Add(key, std::string("v") + key);
  texts.Remove("B");
  EXPECT_EQ(Listing(texts), "a=va c=vc d=vd ");
  EXPECT_EQ(texts.Find("b"), nullptr);
  EXPECT_EQ(texts.Item("a"), "va");
  EXPECT_EQ(texts.Item("c"), "vc");
  EXPECT_EQ(texts.Item("d"), "vd");
  texts.Add("b", "new");
  EXPECT_EQ(Listing(texts), "a=va c=vc d=vd b=new ");
}

TEST(KeyedCollection, RemovingAnAbsentKeyRaisesFiveAndChangesNothing) {
  Texts texts;
  texts.Add("a", "1");
  const Error error = Raised([&] { texts.Remove("b"); });
  EXPECT_EQ(error.Number(), 5);
  EXPECT_EQ(error.Source(), "Collection");
  EXPECT_EQ(Raised([&] { texts.Remove("b", "Forget"); }).Source(), "Forget");
  EXPECT_EQ(Listing(texts), "a=1 ");
}

TEST(KeyedCollection, ClearEmptiesIt) {
  Texts texts;
  texts.Add("a", "1");
  texts.Clear();
  EXPECT_EQ(texts.Count(), 0u);
  EXPECT_EQ(texts.Find("a"), nullptr);
  texts.Add("a", "2");
  EXPECT_EQ(Listing(texts), "a=2 ");
}

TEST(KeyedCollection, CopiesAreDeep) {
  Texts texts;
  texts.Add("a", "1");
  Texts copy = texts;
  *copy.Find("a") = "2";
  copy.Add("b", "3");
  EXPECT_EQ(Listing(texts), "a=1 ");
  EXPECT_EQ(Listing(copy), "a=2 b=3 ");
}

TEST(KeyedCollection, HoldsWhatCanOnlyBeMoved) {
  KeyedCollection<std::unique_ptr<int>> numbers;
  numbers.Add("a", std::make_unique<int>(4));
  EXPECT_EQ(*numbers.Item("A"), 4);
}

}  // namespace
}  // namespace tslm5
