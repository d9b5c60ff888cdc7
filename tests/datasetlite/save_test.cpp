#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"
#include "storage/run_statements.h"

namespace tslm5 {
namespace {

constexpr const char* kStoredLabels =
    "SELECT SetId, [column], label FROM DataSetLabels ORDER BY Id";

using DataSetLiteSave = DataSetLiteTest;

TEST_F(DataSetLiteSave, AnswersFalseWithoutATableBeforeAnyTestOfTheParameters) {
  EXPECT_FALSE(set_.As<IPersistable>()->Save("", Variant()));
  set_->SetLabels("a b");
  EXPECT_FALSE(set_.Save(run_, 1));
  EXPECT_TRUE(set_.IsDirty());
  EXPECT_TRUE(run_.Select(kStoredLabels).empty());
}

TEST_F(DataSetLiteSave, WritesTheLabelsOfALoadThatKeptThemInMemory) {
  Parse("age,height\n1,2\n", {.has_labels = true});
  EXPECT_TRUE(run_.Select(kStoredLabels).empty());
  EXPECT_TRUE(set_.Save(run_, 1));
  EXPECT_EQ(run_.Select(kStoredLabels), (Lines{"1|0|age", "1|1|height"}));
}

TEST_F(DataSetLiteSave, MakesTheSetClean) {
  Parse("1,2\n");
  ASSERT_TRUE(set_.IsDirty());
  EXPECT_TRUE(set_.Save(run_, 1));
  EXPECT_FALSE(set_.IsDirty());
}

TEST_F(DataSetLiteSave, TakesTheTypeOverForTheSetAndItsLabels) {
  Parse("age,height\n1,2\n", {.has_labels = true});
  EXPECT_TRUE(set_.Save(run_, 7));
  EXPECT_EQ(set_->DataSetType(), 7);
  EXPECT_EQ(run_.Select(kStoredLabels), (Lines{"7|0|age", "7|1|height"}));
}

TEST_F(DataSetLiteSave, PutsNewLabelsInPlaceOfTheOldOnesOfItsType) {
  run_.Execute("INSERT INTO DataSetLabels VALUES (NULL, 1, 0, 'old'), (NULL, 2, 0, 'series')");
  Parse("age,height\n1,2\n", {.has_labels = true});
  set_.Save(run_, 1);
  EXPECT_EQ(run_.Select(kStoredLabels), (Lines{"2|0|series", "1|0|age", "1|1|height"}));
}

TEST_F(DataSetLiteSave, DeletesTheOldLabelsWhereTheSetHasNoneButSaysItHas) {
  run_.Execute("INSERT INTO DataSetLabels VALUES (NULL, 1, 0, 'old')");
  Parse("1,2\n");
  set_->SetLabels("");
  EXPECT_TRUE(set_.Save(run_, 1));
  EXPECT_TRUE(run_.Select(kStoredLabels).empty());
}

TEST_F(DataSetLiteSave, ChangesNothingForASetWithoutLabels) {
  Parse("1,2\n");
  run_.Log().Clear();
  EXPECT_TRUE(set_.Save(run_, 1));
  EXPECT_EQ(run_.Log().statements, (Lines{std::string(run_statement::kCountLabels)}))
      << "those of data of before would have to go";
}

TEST_F(DataSetLiteSave, SendsTheLabelsInOneTransactionWithApostrophesDoubled) {
  Parse("it's,b\n1,2\n", {.has_labels = true});
  run_.Log().Clear();
  set_.Save(run_, 2);
  EXPECT_EQ(
      run_.Log().statements,
      (Lines{"BEGIN", "DELETE FROM DataSetLabels Where SetId = 2;",
             "INSERT INTO DataSetLabels (SetId, [column], label) VALUES (2, 0, 'it''s');",
             "INSERT INTO DataSetLabels (SetId, [column], label) VALUES (2, 1, 'b');", "COMMIT"}));
  EXPECT_EQ(run_.Select(kStoredLabels), (Lines{"2|0|it's", "2|1|b"}));
}

TEST_F(DataSetLiteSave, StoresAStatementInALabelAsALabel) {
  Parse("1,2\n");
  set_->SetLabels(
      "1');\x05"
      "DROP\x05TABLE\x05TrainingSet;\x05-- <SET_ID>");
  EXPECT_TRUE(set_.Save(run_, 1));
  EXPECT_EQ(run_.Select(kStoredLabels),
            (Lines{"1|0|1'); DROP TABLE TrainingSet; --", "1|1|<SET_ID>"}));
  EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"1|2|1"}));
}

TEST_F(DataSetLiteSave, KeepsTheOldLabelsWhenOneOfTheNewCannotBeStored) {
  run_.Execute("INSERT INTO DataSetLabels VALUES (NULL, 1, 0, 'old')");
  run_.Execute(
      "CREATE TRIGGER refuse BEFORE INSERT ON DataSetLabels WHEN new.label = 'height'"
      " BEGIN SELECT RAISE(ABORT, 'refused'); END");
  Parse("age,height\n1,2\n", {.has_labels = true});
  EXPECT_THAT(Raised([&] { set_.Save(run_, 1); }).Description(), testing::HasSubstr("refused"));
  EXPECT_EQ(run_.Select(kStoredLabels), (Lines{"1|0|old"}));
  EXPECT_FALSE(run_.InTransaction());
  EXPECT_TRUE(set_.IsDirty());
}

TEST_F(DataSetLiteSave, SavesAClosedSetsLabelsToo) {
  Parse("age,height\n1,2\n", {.has_labels = true});
  set_.As<IDisposable>()->Dispose(true);
  EXPECT_TRUE(set_.Save(run_, 1)) << "no error is pending";
  EXPECT_EQ(run_.Select(kStoredLabels), (Lines{"1|0|age", "1|1|height"}));
}

TEST_F(DataSetLiteSave, BringsTheSetToAnotherRunObject) {
  Parse("age,height\n1,2\n", {.has_labels = true});
  const TestRun other;
  CreateRunTables(*other.Connection());
  EXPECT_TRUE(set_.Save(other, 1));
  EXPECT_EQ(other.Select(kStoredLabels), (Lines{"1|0|age", "1|1|height"}));
  EXPECT_TRUE(run_.Select(kStoredLabels).empty());
}

}  // namespace
}  // namespace tslm5
