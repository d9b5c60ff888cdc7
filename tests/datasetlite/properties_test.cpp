#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

TEST(DataSetLiteProperties, TakeTheValueFirstAndGiveTheKeyBack) {
  const LiteSet set;
  EXPECT_EQ(set->SetProperty("5", "DelayTime"), "DelayTime");
  EXPECT_EQ(set->GetProperty("DelayTime"), "5");
  EXPECT_EQ(set->GetProperty("5"), "");
}

TEST(DataSetLiteProperties, AreEmptyUnderAnUnknownKey) {
  EXPECT_EQ(LiteSet()->GetProperty("nothing"), "");
  EXPECT_EQ(LiteSet()->GetProperty(""), "");
}

TEST(DataSetLiteProperties, KeepTheLastWrite) {
  const LiteSet set;
  set->SetProperty("one", "k");
  set->SetProperty("two", "k");
  EXPECT_EQ(set->GetProperty("k"), "two");
}

TEST(DataSetLiteProperties, CompareKeysWithoutRegardToCase) {
  const LiteSet set;
  set->SetProperty("1", "separator");
  EXPECT_EQ(set->GetProperty("SEPARATOR"), "1");
  EXPECT_EQ(set->SetProperty("2", "Separator"), "Separator");
  EXPECT_EQ(set->GetProperty("separator"), "2");
  set->SetProperty("3", "É");
  EXPECT_EQ(set->GetProperty("é"), "3");
}

TEST(DataSetLiteProperties, MakeTheSetDirty) {
  const LiteSet set;
  set->SetProperty("", "");
  EXPECT_TRUE(set.IsDirty());
}

TEST(DataSetLiteProperties, AreGoneAfterAResetThatLeavesTheSetClean) {
  const LiteSet set;
  set->SetProperty("1", "a");
  set->SetProperty("2", "b");
  set.SetDirty(false);
  set->ResetProperties();
  EXPECT_EQ(set->GetProperty("a"), "");
  EXPECT_EQ(set->GetProperty("b"), "");
  EXPECT_FALSE(set.IsDirty());
}

}  // namespace
}  // namespace tslm5
