// Cells and labels of an `InMemorySet`.
#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "inmemory/memory_set.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

TEST(InMemoryItems, TakeTheColumnFirst) {
  const MemorySet set("1,2,3,4\n5,6,7,8\n9,10,11,12");
  EXPECT_EQ(set->GetItem(2, 1), 7);
  EXPECT_EQ(set->GetItem(1, 2), 10);
  EXPECT_EQ(set->GetItem(3, 0), 4);
}

TEST(InMemoryItems, RaiseOutsideTheData) {
  const MemorySet set("1,2,3\n4,5,6");
  for (const auto& place : {std::pair(3, 0), {0, 2}, {-1, 0}, {0, -1}}) {
    const std::int32_t column = place.first;
    const std::int32_t row = place.second;
    EXPECT_THAT(Raised([&] { set->GetItem(column, row); }), IsSubscriptError());
  }
  EXPECT_THAT(Raised([] { MemorySet()->GetItem(0, 0); }), IsSubscriptError());
}

TEST(InMemoryItems, AreTextInTheUsersFormat) {
  const MemorySet set("1.5,-20,1e300\n0.1,2,1e-7");
  EXPECT_EQ(set->GetItemString(0, 0), "1.5");
  EXPECT_EQ(set->GetItemString(1, 0), "-20");
  EXPECT_EQ(set->GetItemString(2, 0), "1E+300");
  const ScopedLocale german("de_DE");
  EXPECT_EQ(set->GetItemString(0, 0), "1,5");
  EXPECT_EQ(set->GetItemString(2, 1), "1E-07");
}

TEST(InMemoryItems, AsTextRaiseForANegativeIndex) {
  const MemorySet set("1,2");
  EXPECT_THAT(Raised([&] { set->GetItemString(-1, 0); }), IsError(41001));
  EXPECT_THAT(Raised([&] { set->GetItemString(0, -1); }), IsError(41001));
  EXPECT_THAT(Raised([&] { set->GetItemString(99, 0); }), IsSubscriptError());
  EXPECT_THAT(Raised([&] { set->GetItemString(0, 1); }), IsSubscriptError());
}

TEST(InMemoryItems, MayBeMissing) {
  const MemorySet set("1,2");
  set.State().data->Put(0, 1, kNone);
  EXPECT_TRUE(std::isnan(set->GetItem(1, 0)));
  EXPECT_EQ(set->GetItemString(1, 0), "");
}

TEST(InMemoryItems, HaveLabels) {
  const MemorySet set;
  set.Parse("a,b\n1,2", {.has_labels = true});
  EXPECT_EQ(set->GetLabel(1), "b");
  EXPECT_EQ(set->GetLongLabel(1), "b");
  for (const std::int32_t column : {-1, 2}) {
    EXPECT_THAT(Raised([&] { set->GetLabel(column); }), IsSubscriptError());
    EXPECT_THAT(Raised([&] { set->GetLongLabel(column); }), IsSubscriptError());
  }
}

TEST(InMemoryItems, AreLabelledByTheWordsOfAText) {
  const MemorySet set("1,2");
  set->SetLabels("my\x05label,x d");
  EXPECT_TRUE(set->HasLabels());
  EXPECT_THAT(set.State().labels, ElementsAre("my label", "x", "dd"));
  set->SetLabels("");
  EXPECT_THAT(set.State().labels, IsEmpty());
  EXPECT_TRUE(set->HasLabels());
}

TEST(InMemoryItems, AreLabelledOnANewSetToo) {
  const MemorySet set;
  set->SetLabels("my\x05label x,y");
  EXPECT_THAT(set.State().labels, ElementsAre("mylabel", "x,y")) << "there is no separator yet";
}

}  // namespace
}  // namespace tslm5
