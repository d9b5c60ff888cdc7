#include <gtest/gtest.h>

#include <utility>

#include "datasetlite/lite_set.h"
#include "tslm5/contracts/iterator.h"
#include "tslm5/contracts/lr_services.h"

namespace tslm5 {
namespace {

TEST(DataSetLiteDefaults, AreThoseOfAnEmptySet) {
  const LiteSet set;
  EXPECT_EQ(set->DataSetType(), 0);
  EXPECT_EQ(set->Name(), "");
  EXPECT_EQ(set->IndependentVarsPrefix(), "d");
  EXPECT_EQ(set->DependentVarName(), "y");
  EXPECT_EQ(set->ProblemCategory(), 0);
  EXPECT_TRUE(set->HasLabels()) << "meant: a new set expects a labels row";
  EXPECT_TRUE(set->HasLabelPrefix());
  EXPECT_EQ(set->GetLabel(0), "");
  EXPECT_EQ(set->GetProperty("Separator"), "");
  EXPECT_FALSE(set->IsReady());
  EXPECT_FALSE(set.IsDirty());
  EXPECT_FALSE(set.As<ILRServices>()->IsBinary());
  EXPECT_EQ(set.As<IIterator>()->CurrentRow(), -1);
}

TEST(DataSetLiteDefaults, HaveNoCells) {
  const LiteSet set;
  EXPECT_EQ(set->Rows(), 0);
  EXPECT_EQ(set->Columns(), 0);
  EXPECT_EQ(set->TerminalCount(), 0);
  EXPECT_EQ(set->GetItemString(0, 0), "");
  EXPECT_EQ(Raised([&] { set->GetItem(0, 0); }).Number(), 41011);
  EXPECT_EQ(Raised([&] { set->GetRowOriginalIndex(0); }).Number(), 41011);
}

TEST(DataSetLiteDefaults, CountRowsForPeopleWithoutLookingAtTheData) {
  const LiteSet set;
  EXPECT_EQ(set->GetRowNumber(0), 1);
  EXPECT_EQ(set->GetRowNumber(41), 42);
  EXPECT_EQ(set->GetColumnIndex(5), 5);
  EXPECT_EQ(set->GetColumnIndex(-1), -1);
}

TEST(DataSetLiteSettings, ReadAsWritten) {
  const LiteSet set;
  set->put_DataSetType(2);
  set->put_IndependentVarsPrefix("x");
  set->put_DependentVarName("target");
  set->put_ProblemCategory(3);
  set.SetDirty(true);
  EXPECT_EQ(set->DataSetType(), 2);
  EXPECT_EQ(set->IndependentVarsPrefix(), "x");
  EXPECT_EQ(set->DependentVarName(), "target");
  EXPECT_EQ(set->ProblemCategory(), 3);
  EXPECT_TRUE(set.IsDirty());
  set.SetDirty(false);
  EXPECT_FALSE(set.IsDirty());
}

TEST(DataSetLiteSettings, NameTheTrainingAndTheTestingSetOnly) {
  const LiteSet set;
  const std::pair<std::int32_t, const char*> names[] = {
      {1, "Training"}, {2, "Testing"}, {0, ""}, {3, ""}, {4, ""}, {5, ""}, {100, ""}, {1000, ""}};
  for (const auto& [type, name] : names) {
    set->put_DataSetType(type);
    EXPECT_EQ(set->Name(), name) << type;
  }
}

TEST(DataSetLiteSettings, GiveTheTextOfASeparator) {
  const LiteSet set;
  const std::pair<std::int32_t, const char*> texts[] = {{-1, ""}, {0, " "}, {1, "\t"},
                                                        {2, ","}, {3, ";"}, {4, "|"}};
  for (const auto& [code, text] : texts) EXPECT_EQ(set->SeparatorToString(code), text) << code;
  for (const std::int32_t code : {-2, 5, 7}) {
    EXPECT_EQ(Raised([&] { set->SeparatorToString(code); }).Number(), 41012) << code;
  }
}

using DataSetLiteParseString = DataSetLiteTest;

TEST_F(DataSetLiteParseString, DoesNothing) {
  const Ref<RecordingEvents> events = set_.Listen();
  std::string text = "1,2\r\n3,4\n\n";
  const Lines before = set_.Everything();
  set_->ParseString(text, separator_code::kComma, false, data_set_type::kTesting, 1, nullptr);
  EXPECT_EQ(text, "1,2\r\n3,4\n\n");
  EXPECT_EQ(set_.Everything(), before);
  EXPECT_TRUE(events->lines.empty());
  EXPECT_TRUE(run_.Select("SELECT name FROM sqlite_master WHERE name = 'TestingSet'").empty());
}

}  // namespace
}  // namespace tslm5
