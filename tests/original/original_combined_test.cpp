// Training and testing records together, which differ from a single set on purpose.
#include "original/original_run.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

class OriginalCombined : public OriginalDataSetTest {
 protected:
  /// Gives the responses numbers for words: 2 for "yes", 1 for "no".
  void NumberResponses() const {
    run_.Execute("UPDATE OriginalData SET d2 = CASE d2 WHEN 'yes' THEN '2.0' ELSE ' 1' END");
    run_.Execute("UPDATE DataSetStatistics SET Maximum = 2");
  }
  void Open(bool binarise = false) const { view_.Open(run_, data_set_type::kCombined, binarise); }
};

TEST_F(OriginalCombined, ComparesTheOriginalTexts) {
  NumberResponses();
  Open(true);
  EXPECT_THAT(view_.Records(),
              ElementsAre("3,red,1.5,0", "8,blue,2.25,1", "5,,.5,1", "9,green,7,0"));
}

TEST_F(OriginalCombined, DoesNotAskForTheProblemCategory) {
  NumberResponses();
  run_.Execute("DROP TABLE RunParameters");
  Open(true);
  EXPECT_THAT(view_.Responses(), ElementsAre("0", "1", "1", "0"));
}

TEST_F(OriginalCombined, RaisesForAWord) {
  EXPECT_EQ(RaisedNumber([&] { Open(true); }), 13);
  Open(false);
  EXPECT_THAT(view_.Responses(), ElementsAre("no", "yes", "yes", "no"));
}

TEST_F(OriginalCombined, RaisesForAMissingResponse) {
  NumberResponses();
  run_.Execute("UPDATE OriginalData SET d2 = NULL WHERE row = 9");
  EXPECT_EQ(RaisedNumber([&] { Open(true); }), 13);
}

TEST_F(OriginalCombined, TakesTheMaximumOfAnySet) {
  run_.Execute("DELETE FROM DataSetStatistics");
  run_.PutMaximum(2, 5);
  Open();
  EXPECT_EQ(view_->GetTargetMax(), 5);
}

TEST_F(OriginalCombined, KeepsPointsUnderACommaLocale) {
  const ScopedLocale german("de_DE");
  NumberResponses();
  Open(false);
  EXPECT_THAT(view_.Records(),
              ElementsAre("3,red,1.5, 1", "8,blue,2.25,2.0", "5,,.5,2.0", "9,green,7, 1"));
}

TEST_F(OriginalCombined, ReadsResponsesInTheUsersFormToo) {
  run_.Execute("UPDATE OriginalData SET d2 = CASE d2 WHEN 'yes' THEN '2,5' ELSE '2.5' END");
  run_.Execute("UPDATE DataSetStatistics SET Maximum = 2.5");
  {
    const ScopedLocale german("de_DE");
    Open(true);
    EXPECT_THAT(view_.Responses(), ElementsAre("1", "1", "1", "1"));
  }
  EXPECT_EQ(RaisedNumber([&] { Open(true); }), 13) << "here a comma is no separator";
}

TEST_F(OriginalCombined, LeavesRowsOfNoSetEmptyAtTheEnd) {
  NumberResponses();
  run_.Execute("DELETE FROM TrainingSet WHERE row = 8");
  Open(true);
  EXPECT_THAT(view_.Records(), ElementsAre("3,red,1.5,0", "5,,.5,1", "9,green,7,0", "0,,,"))
      << "a row that was not read has no class";
}

TEST_F(OriginalCombined, RaisesForARecordOfBothSets) {
  run_.Execute("INSERT INTO TestingSet VALUES (1, 1.5, 0, 3)");
  EXPECT_EQ(RaisedNumber([&] { Open(); }), 9) << "five records, four originals";
}

TEST_F(OriginalCombined, DoesWithoutATestingTable) {
  run_.Execute("DROP TABLE TestingSet");
  Open();
  EXPECT_THAT(view_.Records(), ElementsAre("3,red,1.5,no", "8,blue,2.25,yes", "0,,,", "0,,,"));
  EXPECT_EQ(view_->GetDataSetRows(1), 2);
  EXPECT_EQ(view_->GetDataSetRows(2), 0);
}

TEST_F(OriginalCombined, HasNoLabelsOrFlags) {
  run_.Execute("UPDATE DataSetColumn SET OriginalLabel = 'Pressure' WHERE ColumnIndex = 1");
  view_.Open(run_, data_set_type::kTraining);
  ASSERT_TRUE(view_->HasLabels());
  Open();
  EXPECT_FALSE(view_->HasLabels());
  EXPECT_EQ(RaisedNumber([&] { view_->GetLabel(0); }), 9);
  EXPECT_EQ(RaisedNumber([&] { view_->IsColumnCategorical(0); }), 9);
  EXPECT_EQ(RaisedNumber([&] { view_.DataSet()->GetColumnIndex(0); }), 9);
  EXPECT_FALSE(view_->HasMissingValues(0));
  EXPECT_EQ(view_.DataSet()->GetLongLabel(1), "d1");
}

}  // namespace
}  // namespace tslm5
