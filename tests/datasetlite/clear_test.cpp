#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"
#include "tslm5/contracts/extra_set.h"

namespace tslm5 {
namespace {

class DataSetLiteClear : public DataSetLiteTest {
 protected:
  DataSetLiteClear() { Parse("a,b\n1,2\n3,4\n", {.has_labels = true, .type = 2}); }
};

TEST_F(DataSetLiteClear, DropsTheTableAndForgetsTheLabels) {
  set_->Clear();
  EXPECT_EQ(set_->Rows(), 0);
  EXPECT_EQ(set_->Columns(), 0);
  EXPECT_EQ(set_->TerminalCount(), 0);
  EXPECT_EQ(set_->GetLabel(0), "");
  EXPECT_FALSE(set_->IsReady());
  EXPECT_EQ(Raised([&] { set_->GetItem(0, 0); }).Number(), 41011);
  EXPECT_TRUE(run_.ColumnNames("TestingSet").empty());
}

TEST_F(DataSetLiteClear, LeavesTheBackupTypePropertiesAndLabelsFlag) {
  set_->SetProperty("5", "DelayTime");
  set_->Clear();
  EXPECT_EQ(run_.ColumnNames("TestingSetBackup"), "d0,d1,row");
  EXPECT_EQ(set_->DataSetType(), 2);
  EXPECT_EQ(set_->GetProperty("DelayTime"), "5");
  EXPECT_EQ(set_->GetProperty("Separator"), ",");
  EXPECT_TRUE(set_->HasLabels());
}

TEST_F(DataSetLiteClear, MakesTheSetDirty) {
  set_.SetDirty(false);
  set_->Clear();
  EXPECT_TRUE(set_.IsDirty());
}

TEST_F(DataSetLiteClear, LeavesOtherTablesAlone) {
  ParseFile(LiteSet(run_, 1), File("7,8\n"));
  ParseFile(LiteSet(run_, 5), File("9\n"), {.type = 5});
  set_.Load(run_, 2);
  set_->Clear();
  EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"7|8|1"}));
  EXPECT_EQ(run_.TableRows("TimeSeriesTestingSet"), (Lines{"9|1"}));
}

TEST_F(DataSetLiteClear, MayComeTwiceAndWithoutATable) {
  set_->Clear();
  EXPECT_NO_THROW(set_->Clear());
  EXPECT_NO_THROW(LiteSet()->Clear());
  const LiteSet set(run_, 1);
  EXPECT_NO_THROW(set->Clear());
  set.Load(run_, 1);
  EXPECT_NO_THROW(set->Clear());
}

TEST_F(DataSetLiteClear, GoesWithATableThatSomebodyElseDropped) {
  run_.Execute("DROP TABLE TestingSet");
  EXPECT_NO_THROW(set_->Clear());
  EXPECT_FALSE(set_->IsReady());
}

TEST_F(DataSetLiteClear, IsFollowedByALoadLikeAnyOther) {
  set_->Clear();
  Parse("5,6,7\n");
  EXPECT_EQ(set_.Records(), (Lines{"5,6,7"}));
  EXPECT_EQ(set_->GetRowOriginalIndex(0), 1);
  EXPECT_TRUE(set_->IsReady());
}

TEST_F(DataSetLiteClear, ThatFailsKeepsEverything) {
  const Lines before = set_.Everything();
  run_.Log().before = [](std::string_view statement) {
    if (statement.starts_with("DROP")) throw Error(5, "", "database is locked");
  };
  EXPECT_EQ(RaisedNumber([&] { set_->Clear(); }), 5);
  EXPECT_EQ(set_.Everything(), before);
  EXPECT_FALSE(run_.InTransaction());
}

}  // namespace
}  // namespace tslm5
