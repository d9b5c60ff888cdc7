// `IDataSet::Replace`. Its events and cancels are in load_events_test.cpp and load_cancel_test.cpp.
#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

/// A label line and a record of so many columns and one.
std::string Commas(int count) {
  std::string line = "1";
  for (int i = 0; i < count; ++i) line += ",1";
  return line + "\n" + line + "\n";
}

class DataSetLiteReplace : public DataSetLiteTest {
 protected:
  DataSetLiteReplace() { Parse("a,b,c\n1,2,3\n4,5,6\n", {.has_labels = true, .type = 2}); }
};

TEST_F(DataSetLiteReplace, PutsTheRecordsOfTheFileInPlaceOfTheOld) {
  Replace("1,2\n3,4");
  EXPECT_EQ(set_.Records(), (Lines{"1,2", "3,4"}));
  EXPECT_EQ(run_.TableRows("TestingSet"), (Lines{"1|2|1", "3|4|2"}));
}

TEST_F(DataSetLiteReplace, KeepsTypeAndName) {
  Replace("1,2\n");
  EXPECT_EQ(set_->DataSetType(), 2);
  EXPECT_EQ(set_->Name(), "Testing");
  EXPECT_TRUE(run_.ColumnNames("TrainingSet").empty());
}

TEST_F(DataSetLiteReplace, TakesEverySeparator) {
  for (const std::int32_t code : {0, 1, 2, 3, 4}) {
    const std::string s = set_->SeparatorToString(code);
    Replace("1" + s + "2" + s + "3\n4" + s + "5" + s + "6\n", {.separator = code});
    EXPECT_EQ(set_.Records(), (Lines{"1,2,3", "4,5,6"})) << code;
    EXPECT_EQ(set_->GetProperty("Separator"), s) << code;
  }
}

TEST_F(DataSetLiteReplace, TakesTheLabelsRowWithoutATest) {
  Replace("x,X\n1,2\n", {.has_labels = true});
  EXPECT_TRUE(set_->HasLabels());
  EXPECT_EQ(set_.Labels(), (Lines{"x", "X"}));
  Replace("1,2\n3,4\n", {.has_labels = true});
  EXPECT_TRUE(set_->HasLabels());
  EXPECT_EQ(set_.Labels(), (Lines{"1", "2"}));
  EXPECT_EQ(set_.Records(), (Lines{"3,4"}));
}

TEST_F(DataSetLiteReplace, ForgetsTheLabelsWhereTheFileHasNone) {
  Replace("1,2\n");
  EXPECT_FALSE(set_->HasLabels());
  EXPECT_EQ(set_.Labels(), (Lines{"d0", "y"}));
}

TEST_F(DataSetLiteReplace, MakesTheSetReadyAndDirty) {
  const LiteSet set;
  set.Load(run_, 1);
  ASSERT_FALSE(set->IsReady());
  set->Replace(File("1,2\n"), separator_code::kComma, false);
  EXPECT_TRUE(set->IsReady());
  EXPECT_TRUE(set.IsDirty());
}

TEST_F(DataSetLiteReplace, OfAnEmptyNameClearsTheLabelsFlagFirst) {
  const Ref<RecordingEvents> events = set_.Listen();
  EXPECT_EQ(RaisedNumber([&] { set_->Replace("", separator_code::kComma, true); }), 41001);
  EXPECT_FALSE(set_->HasLabels());
  EXPECT_EQ(events->lines, (Lines{"BeforeDataLoad 0 x 0"}));
  EXPECT_EQ(set_.Records(), (Lines{"1,2,3", "4,5,6"}));
}

TEST_F(DataSetLiteReplace, ThatFailsKeepsEverything) {
  const Lines before = set_.Everything();
  const Ref<RecordingEvents> events = set_.Listen();
  EXPECT_NE(RaisedNumber([&] { Replace("1|2\n3\n", {.separator = separator_code::kBar}); }), 0);
  EXPECT_EQ(events->lines.back(), "AfterDataLoad 2 x 2: Data changing failed.");
  EXPECT_EQ(RaisedNumber([&] { set_->Replace(folder_.PathOf("absent.csv"), 2, true); }), 53);
  EXPECT_EQ(events->lines.back(), "AfterDataLoad 2 x 0: Data changing failed.");
  EXPECT_EQ(set_.Everything(), before);
}

TEST_F(DataSetLiteReplace, IsTheSourceOfItsErrors) {
  const auto source = [this](const std::string& path, bool has_labels) {
    return Raised([&] { set_->Replace(path, separator_code::kComma, has_labels); }).Source();
  };
  EXPECT_EQ(source(folder_.PathOf("absent.csv"), false), "Replace");
  EXPECT_EQ(source(folder_.Path(), false), "Replace");
  for (const std::string& bytes :
       {std::string(), std::string("\n"), std::string("1\r2\r3"), std::string("x,y\n1,2\n3\n"),
        std::string("a\0,b\n1,2\n", 8), Commas(2500)}) {
    EXPECT_EQ(source(File(bytes), true), "Replace") << bytes.substr(0, 20);
  }
  set_->put_DataSetType(4);
  EXPECT_EQ(source(File("1,2\n"), false), "Replace");
}

TEST_F(DataSetLiteReplace, WorksOnASetThatHasNoTableYet) {
  const LiteSet set(run_, 1);
  set->Replace(File("1,2\n"), separator_code::kComma, false);
  EXPECT_EQ(set.Records(), (Lines{"1,2"}));
}

}  // namespace
}  // namespace tslm5
