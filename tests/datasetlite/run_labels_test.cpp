// The labels of a set in its run: read by `Load`, replaced by `SetLabels`. Their writing is in
// save_test.cpp, the labels row of a file in label_row_test.cpp.
#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

class DataSetLiteRunLabels : public DataSetLiteTest {
 protected:
  DataSetLiteRunLabels() { Parse("1,2,3\n4,5,6\n"); }
};

TEST_F(DataSetLiteRunLabels, AreTheOriginalLabelsInTheOrderOfTheRecords) {
  AddColumn(2, "weight");
  AddColumn(0, "age");
  AddColumn(1, "height");
  EXPECT_TRUE(set_.Load(run_, 1));
  EXPECT_TRUE(set_->HasLabels());
  EXPECT_EQ(set_.Labels(), (Lines{"weight", "age", "height"}));
}

TEST_F(DataSetLiteRunLabels, AreThereWhenOneDiffersFromItsGeneratedName) {
  AddColumn(0, "d0");
  AddColumn(1, "d1");
  AddColumn(2, "y");
  set_.Load(run_, 1);
  EXPECT_TRUE(set_->HasLabels());
  EXPECT_EQ(set_.Labels(), (Lines{"d0", "d1", "y"}));
}

TEST_F(DataSetLiteRunLabels, AreNoneWhenAllAreGeneratedNames) {
  AddColumn(0, "d0");
  AddColumn(1, "d1");
  AddColumn(2, "d2");
  set_.Load(run_, 1);
  EXPECT_FALSE(set_->HasLabels());
  EXPECT_EQ(set_.Labels(), (Lines{"d0", "d1", "y"})) << "the last one is the response's name";
  run_.Log().Clear();
  set_.Save(run_, 1);
  EXPECT_EQ(run_.Log().statements, Lines()) << "no label is held";
}

TEST_F(DataSetLiteRunLabels, AreNoneWithoutColumnRecords) {
  set_.Load(run_, 1);
  EXPECT_FALSE(set_->HasLabels());
}

TEST_F(DataSetLiteRunLabels, DoNotAddUpFromLoadToLoad) {
  AddColumn(0, "age");
  set_.Load(run_, 1);
  set_.Load(run_, 1);
  EXPECT_EQ(set_->GetLabel(0), "age");
  EXPECT_EQ(set_->GetLabel(1), "");
}

TEST_F(DataSetLiteRunLabels, KeepTheBlanksInsideThem) {
  AddColumn(0, "blood pressure");
  AddColumn(1, "körper\x05größe");
  set_.Load(run_, 1);
  EXPECT_EQ(set_->GetLabel(0), "blood pressure");
  EXPECT_EQ(set_->GetLabel(1), "körper größe") << "nobody sees the character of code 5";
}

TEST_F(DataSetLiteRunLabels, AreReplacedByTheWordsOfAText) {
  set_->SetLabels("a b c");
  EXPECT_TRUE(set_->HasLabels());
  EXPECT_EQ(set_.Labels(), (Lines{"a", "b", "c"}));
}

TEST_F(DataSetLiteRunLabels, MakeTheSetDirtyWhenReplaced) {
  set_.SetDirty(false);
  set_->SetLabels("a b c");
  EXPECT_TRUE(set_.IsDirty());
}

TEST_F(DataSetLiteRunLabels, TakeCodeFiveForABlankInsideAWord) {
  set_->SetLabels(
      "a\x05"
      "b \x05"
      "c\x05");
  EXPECT_EQ(set_->GetLabel(0), "a b");
  EXPECT_EQ(set_->GetLabel(1), " c ");
}

TEST_F(DataSetLiteRunLabels, MayBeMoreOrFewerThanTheColumns) {
  set_->SetLabels("one");
  EXPECT_EQ(set_.Labels(), (Lines{"one", "", ""}));
  set_->SetLabels("a b c d e");
  EXPECT_EQ(set_->GetLabel(4), "e");
  EXPECT_EQ(set_->GetLabel(5), "");
  set_.Save(run_, 1);
  EXPECT_EQ(run_.Select("SELECT label FROM DataSetLabels ORDER BY [column]"),
            (Lines{"a", "b", "c", "d", "e"}));
}

TEST_F(DataSetLiteRunLabels, HaveAnEmptyOneBetweenTwoBlanks) {
  set_->SetLabels("a  c");
  EXPECT_EQ(set_.Labels(), (Lines{"a", "", "c"}));
}

TEST_F(DataSetLiteRunLabels, AreNoneInAnEmptyTextButTheFlagSaysSo) {
  set_->SetLabels("a b c");
  set_->SetLabels("");
  EXPECT_TRUE(set_->HasLabels());
  EXPECT_EQ(set_.Labels(), (Lines{"", "", ""}));
}

TEST_F(DataSetLiteRunLabels, AreNotTestedWhenReplaced) {
  set_->SetLabels("1 a A");
  EXPECT_EQ(set_.Labels(), (Lines{"1", "a", "A"}));
}

}  // namespace
}  // namespace tslm5
