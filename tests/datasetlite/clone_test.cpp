#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"
#include "tslm5/contracts/extra_set.h"

namespace tslm5 {
namespace {

class DataSetLiteClone : public DataSetLiteTest {
 protected:
  static LiteSet Clone(const LiteSet& set, const Variant& type) {
    return LiteSet(set.As<ICloneableEx>()->Clone(type));
  }
};

TEST_F(DataSetLiteClone, IsAnotherObjectOfTheNewType) {
  Parse("1,2\n3,4\n");
  const LiteSet clone = Clone(set_, 2);
  EXPECT_NE(clone.Object().get(), set_.Object().get());
  EXPECT_EQ(clone.Object()->TypeName(), "DataSetLite");
  EXPECT_EQ(clone->DataSetType(), 2);
  EXPECT_EQ(clone->Name(), "Testing");
  EXPECT_EQ(set_->DataSetType(), 1);
}

TEST_F(DataSetLiteClone, HasTheRecordsInATableOfItsOwn) {
  Parse("1,2\n3,4\n5,6\n");
  run_.Execute("DELETE FROM TrainingSet WHERE row = 2");
  const LiteSet clone = Clone(set_, 2);
  EXPECT_EQ(clone.Records(), (Lines{"1,2", "5,6"}));
  EXPECT_EQ(clone->GetRowOriginalIndex(1), 3) << "row keys are kept";
  EXPECT_EQ(run_.TableRows("TestingSet"), (Lines{"1|2|1", "5|6|3"}));
  run_.Execute("UPDATE TestingSet SET d0 = 9");
  EXPECT_EQ(clone.Records(), (Lines{"9,2", "9,6"}));
  EXPECT_EQ(set_.Records(), (Lines{"1,2", "5,6"}));
}

TEST_F(DataSetLiteClone, CopiesLabelsNamesAndFlags) {
  Parse("a,b\n1,2\n", {.has_labels = true});
  set_->put_IndependentVarsPrefix("x");
  set_->put_DependentVarName("target");
  set_->put_ProblemCategory(2);
  const LiteSet clone = Clone(set_, 2);
  EXPECT_TRUE(clone->HasLabels());
  EXPECT_EQ(clone.Labels(), (Lines{"a", "b"}));
  EXPECT_EQ(clone->IndependentVarsPrefix(), "x");
  EXPECT_EQ(clone->DependentVarName(), "target");
  EXPECT_EQ(clone->ProblemCategory(), 2);
  EXPECT_EQ(clone->GetProperty("Separator"), ",");
  EXPECT_TRUE(clone->IsReady());
  EXPECT_TRUE(clone.IsDirty());
}

TEST_F(DataSetLiteClone, CopiesTheFlagsOfACleanSet) {
  Parse("1,2\n");
  set_.SetDirty(false);
  const LiteSet clone = Clone(set_, 2);
  EXPECT_FALSE(clone.IsDirty());
  EXPECT_FALSE(clone->HasLabels());
}

TEST_F(DataSetLiteClone, SharesNoStateWithTheOriginal) {
  Parse("a,b\n1,2\n", {.has_labels = true});
  set_->SetProperty("old", "k");
  const LiteSet clone = Clone(set_, 2);
  clone->SetProperty("new", "k");
  clone->SetLabels("p q");
  clone->put_DependentVarName("z");
  clone->Clear();
  EXPECT_EQ(set_->GetProperty("k"), "old");
  EXPECT_EQ(set_.Labels(), (Lines{"a", "b"}));
  EXPECT_EQ(set_->DependentVarName(), "y");
  EXPECT_EQ(set_.Records(), (Lines{"1,2"}));
  EXPECT_TRUE(set_->IsReady());
}

TEST_F(DataSetLiteClone, HasNoFiguresOfTheRecordsThatItReplaces) {
  Parse("1,2\n3,4\n");
  const LiteSet testing(run_, data_set_type::kTesting);
  ParseFile(testing, File("70,80\n"), {.type = data_set_type::kTesting});
  testing->CalculateStatistics(nullptr);
  set_.Load(run_, data_set_type::kTraining);
  const LiteSet clone = Clone(set_, data_set_type::kTesting);
  EXPECT_EQ(clone->GetMax(0, 0, 0), 3.0);
  EXPECT_FALSE(clone->HasGlobalRecordStatistics());
}

TEST_F(DataSetLiteClone, OutlivesTheOriginal) {
  Parse("1,2\n");
  const LiteSet clone = Clone(set_, 2);
  set_.Reset();
  EXPECT_EQ(clone.Records(), (Lines{"1,2"}));
  ParseFile(clone, File("7,8,9\n"), {.type = 2});
  EXPECT_EQ(clone.Records(), (Lines{"7,8,9"}));
}

TEST_F(DataSetLiteClone, SharesTheExtraTable) {
  ParseFile(LiteSet(run_, 5), File("7\n8\n"), {.type = 5});
  Parse("1,2\n");
  set_.Load(run_, 1);
  const LiteSet clone = Clone(set_, 2);
  ASSERT_TRUE(clone.As<IExtraSet>()->Exists());
  clone.As<IExtraSet>()->SetItem(0, 1, 80);
  EXPECT_EQ(set_.As<IExtraSet>()->GetItem(0, 1), 80.0);
}

TEST_F(DataSetLiteClone, LeavesTheListenersWithTheOriginal) {
  Parse("1,2\n");
  const Ref<RecordingEvents> events = set_.Listen();
  const LiteSet clone = Clone(set_, 2);
  ParseFile(clone, File("3,4\n"), {.type = 2});
  EXPECT_TRUE(events->lines.empty());
}

TEST_F(DataSetLiteClone, IsTheSenderOfItsOwnEvents) {
  Parse("1,2\n");
  const LiteSet clone = Clone(set_, 2);
  const Ref<RecordingEvents> events = clone.Listen();
  ParseFile(clone, File("3,4\n"), {.type = 2});
  EXPECT_EQ(events->senders,
            (std::vector<const void*>{clone.Object().get(), clone.Object().get()}));
}

TEST_F(DataSetLiteClone, ReplacesATableOfTheNewType) {
  ParseFile(LiteSet(run_, 2), File("7,8,9\n"), {.type = 2});
  Parse("1,2\n");
  EXPECT_EQ(Clone(set_, 2).Records(), (Lines{"1,2"}));
  EXPECT_EQ(run_.ColumnNames("TestingSet"), "d0,d1,row");
  EXPECT_EQ(run_.ColumnNames("TestingSetBackup"), "d0,d1,row");
}

TEST_F(DataSetLiteClone, CannotHaveTheTypeOfTheOriginal) {
  Parse("1,2\n");
  for (const Variant& type : {Variant(1), Variant("1")}) {
    const Error error = Raised([&] { Clone(set_, type); });
    EXPECT_EQ(error.Number(), 41015);
    EXPECT_EQ(error.Source(), "CloneExt");
    EXPECT_EQ(error.Description(), "A clone of a dataset cannot of the same type as the original.");
  }
  EXPECT_EQ(RaisedNumber([] { Clone(LiteSet(), 0); }), 41015);
  EXPECT_EQ(RaisedNumber([] { Clone(LiteSet(), Variant()); }), 41015);
  EXPECT_EQ(set_.Records(), (Lines{"1,2"}));
}

TEST_F(DataSetLiteClone, DoesNotTakeTheTableOfTheExtraSet) {
  ParseFile(LiteSet(run_, 5), File("7\n8\n"), {.type = 5});
  Parse("1,2\n");
  EXPECT_EQ(Clone(LiteSet(run_, 1), 5)->DataSetType(), 5) << "there is no extra set yet";
  set_.Load(run_, 1);
  const Error error = Raised([&] { Clone(set_, 5); });
  EXPECT_EQ(error.Number(), 41015);
  EXPECT_EQ(error.Source(), "CloneExt");
  EXPECT_EQ(error.Description(), "The clone would take the table of the set's extra set.");
  EXPECT_EQ(run_.TableRows("TimeSeriesTestingSet"), (Lines{"7|1", "8|2"}));
  EXPECT_EQ(set_.Records(), (Lines{"1,2"}));
}

TEST_F(DataSetLiteClone, OfASetWithoutATableHasNone) {
  const LiteSet fresh = Clone(LiteSet(), 2);
  EXPECT_EQ(fresh->DataSetType(), 2);
  EXPECT_EQ(fresh->Rows(), 0);
  const LiteSet attached = Clone(set_, 2);
  EXPECT_EQ(attached->Rows(), 0);
  EXPECT_NO_THROW(ParseFile(attached, File("1,2\n"), {.type = 2})) << "the run was taken along";
}

TEST_F(DataSetLiteClone, OfATypeWithoutATableFails) {
  Parse("1,2\n");
  const Lines before = set_.Everything();
  EXPECT_NE(RaisedNumber([&] { Clone(set_, 4); }), 0);
  EXPECT_EQ(set_.Everything(), before);
  EXPECT_FALSE(run_.InTransaction());
}

TEST_F(DataSetLiteClone, ThatFailsLeavesTheOriginalAndTheTablesWhole) {
  ParseFile(LiteSet(run_, 2), File("7,8,9\n"), {.type = 2});
  Parse("a,b\n1,2\n", {.has_labels = true});
  const Lines before = set_.Everything();
  run_.Log().before = [](std::string_view statement) {
    if (statement.starts_with("INSERT INTO TestingSet")) throw Error(10, "", "disk I/O error");
  };
  EXPECT_EQ(RaisedNumber([&] { Clone(set_, 2); }), 10);
  run_.Log().before = nullptr;
  EXPECT_EQ(set_.Everything(), before);
  EXPECT_EQ(run_.TableRows("TestingSet"), (Lines{"7|8|9|1"}));
  EXPECT_FALSE(run_.InTransaction());
}

}  // namespace
}  // namespace tslm5
