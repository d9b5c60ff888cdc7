// The binary class in place of the response, of a single set.
#include "original/original_run.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using OriginalClasses = OriginalDataSetTest;

TEST_F(OriginalClasses, AreOneForTheLargestResponse) {
  view_.Open(run_, data_set_type::kTraining, true);
  EXPECT_THAT(view_.Records(), ElementsAre("3,red,1.5,0", "8,blue,2.25,1"));
  EXPECT_EQ(view_->GetTargetMax(), 1);
}

TEST_F(OriginalClasses, AreNotPutUnlessAskedFor) {
  view_.Open(run_, data_set_type::kTraining, false);
  EXPECT_THAT(view_.Responses(), ElementsAre("no", "yes"));
  EXPECT_EQ(view_->GetTargetMax(), 1) << "the maximum is read all the same";
}

TEST_F(OriginalClasses, ArePutForTheCategoriesThatClassify) {
  struct Case {
    std::int32_t category;
    bool is_classified;
  };
  for (const Case c : {Case{0, false}, {1, true}, {2, false}, {3, true}, {4, true}, {5, false}}) {
    run_.PutCategory(c.category);
    view_.Open(run_, data_set_type::kTraining, true);
    EXPECT_EQ(view_->GetItem(2, 1), c.is_classified ? "1" : "yes") << c.category;
  }
}

TEST_F(OriginalClasses, NeedTheCategoryOfTheirOwnNamespace) {
  run_.Execute("UPDATE RunParameters SET namespace = 'other'");
  EXPECT_EQ(RaisedNumber([&] { view_.Open(run_, data_set_type::kTraining, true); }), 100);
  view_.Open(run_, data_set_type::kTraining, false);
  EXPECT_EQ(view_->Rows(), 2);
}

TEST_F(OriginalClasses, OfATestingSetGoByItsOwnMaximum) {
  run_.PutMaximum(2, 0);
  view_.Open(run_, data_set_type::kTesting, true);
  EXPECT_THAT(view_.Responses(), ElementsAre("0", "1"));
  EXPECT_EQ(view_->GetTargetMax(), 0);
}

TEST_F(OriginalClasses, OfATestingSetWithoutStatisticsGoByTheTrainingMaximum) {
  view_.Open(run_, data_set_type::kTesting, true);
  EXPECT_THAT(view_.Responses(), ElementsAre("1", "0"));
  EXPECT_EQ(view_->GetTargetMax(), 1);
}

TEST_F(OriginalClasses, OfATrainingSetDoNotGoByTheTestingMaximum) {
  run_.Execute("DELETE FROM DataSetStatistics");
  run_.PutMaximum(2, 1);
  view_.Open(run_, data_set_type::kTraining, true);
  EXPECT_EQ(view_->GetTargetMax(), 0);
  EXPECT_THAT(view_.Responses(), ElementsAre("1", "0"));
}

TEST_F(OriginalClasses, GoByTheMaximumOfBeforeWhereThereIsNone) {
  view_.Open(run_, data_set_type::kTraining);
  run_.Execute("DELETE FROM DataSetStatistics");
  view_.Open(run_, data_set_type::kTraining, true);
  EXPECT_EQ(view_->GetTargetMax(), 1);
  EXPECT_THAT(view_.Responses(), ElementsAre("0", "1"));
}

TEST_F(OriginalClasses, DoNotMindARunWithoutStatistics) {
  run_.Execute("DROP TABLE DataSetStatistics");
  view_.Open(run_, data_set_type::kTraining);
  EXPECT_EQ(view_->GetTargetMax(), 0);
  EXPECT_EQ(view_->GetDataSetRows(1), 2);
}

TEST_F(OriginalClasses, TakeTheMaximumOfTheResponseAlone) {
  run_.Execute("INSERT INTO DataSetStatistics VALUES (NULL, 1, 0, 0, 0, 0, 77, 0)");
  run_.Execute("INSERT INTO DataSetStatistics VALUES (NULL, 1, 1, 0, 0, 0, 88, 0)");
  view_.Open(run_, data_set_type::kTraining);
  EXPECT_EQ(view_->GetTargetMax(), 1);
}

TEST_F(OriginalClasses, OfAMissingResponseAreZeroWhateverTheMaximum) {
  run_.Execute("UPDATE TrainingSet SET d2 = NULL WHERE row = 3");
  run_.Execute("UPDATE DataSetStatistics SET Maximum = 0");
  view_.Open(run_, data_set_type::kTraining, true);
  EXPECT_THAT(view_.Responses(), ElementsAre("0", "0"));
}

TEST_F(OriginalClasses, GoByTheFullPrecisionOfADouble) {
  run_.Execute("UPDATE TrainingSet SET d2 = 0.1 + 0.2 WHERE row = 8");
  run_.Execute("UPDATE DataSetStatistics SET Maximum = 0.1 + 0.2");
  view_.Open(run_, data_set_type::kTraining, true);
  EXPECT_THAT(view_.Responses(), ElementsAre("0", "1"));
  run_.Execute("UPDATE DataSetStatistics SET Maximum = 0.3");
  view_.Open(run_, data_set_type::kTraining, true);
  EXPECT_THAT(view_.Responses(), ElementsAre("0", "0"));
}

TEST_F(OriginalClasses, StandInTheLastColumnWhateverTheResponseIs) {
  run_.Execute("UPDATE DataSetColumn SET IsResponse = ColumnIndex = 0");
  run_.Execute("INSERT INTO DataSetStatistics VALUES (NULL, 1, 0, 0, 0, 0, 1, 0)");
  view_.Open(run_, data_set_type::kTraining, true);
  EXPECT_THAT(view_.Records(), ElementsAre("3,red,1.5,1", "8,blue,2.25,0"))
      << "the values compared are those of d0";
}

TEST_F(OriginalClasses, GoByThePlaceInTheSetAlsoWhereOriginalsAreGone) {
  run_.Execute("DELETE FROM OriginalData WHERE row = 3");
  view_.Open(run_, data_set_type::kTraining, true);
  EXPECT_THAT(view_.Records(), ElementsAre("8,blue,2.25,0", "0,,,1"));
}

TEST_F(OriginalClasses, NeedAResponse) {
  run_.Execute("UPDATE DataSetColumn SET IsResponse = 0");
  EXPECT_EQ(RaisedNumber([&] { view_.Open(run_, data_set_type::kTraining, true); }), 100);
}

TEST_F(OriginalClasses, AreNotPutForAllRecords) {
  view_.Open(run_, data_set_type::kUnknown, true);
  EXPECT_THAT(view_.Responses(), ElementsAre("no", "yes", "yes", "no"));
  EXPECT_EQ(view_->GetTargetMax(), 1) << "of the training set";
}

}  // namespace
}  // namespace tslm5
