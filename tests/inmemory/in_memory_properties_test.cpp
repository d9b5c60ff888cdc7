#include <gmock/gmock.h>

#include "inmemory/memory_set.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

TEST(InMemoryProperties, TakeTheValueFirst) {
  const MemorySet set;
  EXPECT_EQ(set->SetProperty("5", "DelayTime"), "DelayTime");
  EXPECT_EQ(set->GetProperty("DelayTime"), "5");
  EXPECT_EQ(set->GetProperty("delaytime"), "5");
  EXPECT_THAT(Raised([&] { set->GetProperty("5"); }),
              testing::AllOf(testing::Property(&Error::Number, 5),
                             testing::Property(&Error::Source, "GetProperty")));
  EXPECT_TRUE(set.IsDirty());
}

TEST(InMemoryProperties, KeepOneEntryAKeyInTheOrderOfTheFirstWrites) {
  const MemorySet set;
  set->SetProperty("1", "b");
  set->SetProperty("2", "a");
  set->SetProperty("3", "B");
  const PropertyBag& properties = set.As<IPropertySource>()->Properties();
  EXPECT_THAT(properties.Entries(), ElementsAre(testing::Pair("b", "3"), testing::Pair("a", "2")));
}

TEST(InMemoryProperties, CountTheReplacedValuesWhateverIsStored) {
  const MemorySet set;
  set->SetProperty("17", "ReplacedNullValues");
  EXPECT_EQ(set->GetProperty("ReplacedNullValues"), "0");
  EXPECT_EQ(set->GetProperty("REPLACEDNULLVALUES"), "17");
  set.State().replaced_missing_count = 4;
  EXPECT_EQ(set->GetProperty("ReplacedNullValues"), "4");
}

TEST(InMemoryProperties, AreEmptiedByAReset) {
  const MemorySet set;
  set->SetProperty("5", "DelayTime");
  set.SetDirty(false);
  set->ResetProperties();
  EXPECT_TRUE(set.IsDirty());
  EXPECT_EQ(RaisedNumber([&] { set->GetProperty("DelayTime"); }), 5);
}

}  // namespace
}  // namespace tslm5
