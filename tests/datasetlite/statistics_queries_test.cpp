#include <gmock/gmock.h>

#include <cmath>

#include "datasetlite/lite_set.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

constexpr double kMaximumStart = -1.79769313486231E+308;
constexpr double kMinimumStart = 1.69769313486232E+308;

class StatisticsQueries : public DataSetLiteTest {
 protected:
  void Execute(std::string_view sql) const { run_.Execute(sql); }
};

TEST_F(StatisticsQueries, BeforeAnyFiguresAre0AndTheTablesAreThere) {
  EXPECT_TRUE(set_->HasGlobalRecordStatistics());
  EXPECT_EQ(set_->GetGlobalCentroid(0), 0.0);
  EXPECT_EQ(set_->GetGlobalMedoid(0), 0.0);
  EXPECT_EQ(set_->GetStandardDeviation(0), 0.0);
}

TEST_F(StatisticsQueries, WithoutARunThereIsNothing) {
  const LiteSet alone;
  EXPECT_FALSE(alone->HasGlobalRecordStatistics());
  EXPECT_FALSE(alone->HasClassRecordStatistics());
  EXPECT_EQ(alone->GetMax(0, 0, 0), 0.0);
  EXPECT_EQ(alone->GetMin(0, 0, 3), 0.0);
  EXPECT_EQ(alone->GetTargetMajorityClass(), kMaximumStart);
  EXPECT_EQ(alone->GetTargetMinorityClassCount(), 0);
  EXPECT_EQ(alone->GetTargetClassCount(0), 0);
  EXPECT_NO_THROW(alone->CalculateStatistics(nullptr));
}

TEST_F(StatisticsQueries, ServesWhatWasComputed) {
  Parse("1,0\n2,1\n6,1\n");
  set_->CalculateStatistics(nullptr);
  EXPECT_TRUE(set_->HasGlobalRecordStatistics());
  EXPECT_TRUE(set_->HasClassRecordStatistics());
  EXPECT_EQ(set_->GetGlobalCentroid(0), 3.0);
  EXPECT_EQ(set_->GetGlobalMedoid(0), 2.0);
  EXPECT_NEAR(set_->GetStandardDeviation(0), std::sqrt(7.0), 1e-12);
  EXPECT_EQ(set_->GetGlobalCentroid(7), 0.0);
  double class_value = -1;
  double value = -1;
  set_->GetClassCentroid(0, 1, class_value, value);
  EXPECT_EQ(class_value, 1.0);
  EXPECT_EQ(value, 4.0);
  set_->GetClassMedoid(0, 0, class_value, value);
  EXPECT_EQ(class_value, 0.0);
  EXPECT_EQ(value, 1.0);
}

TEST_F(StatisticsQueries, OfAThirdClassWritesNothing) {
  Parse("1,0\n2,1\n");
  set_->CalculateStatistics(nullptr);
  double class_value = -1;
  double value = -2;
  set_->GetClassCentroid(0, 2, class_value, value);
  set_->GetClassMedoid(0, -1, class_value, value);
  EXPECT_EQ(class_value, -1.0);
  EXPECT_EQ(value, -2.0);
  set_->GetClassCentroid(9, 1, class_value, value);  // no such column
  EXPECT_EQ(class_value, 1.0);
  EXPECT_EQ(value, -2.0);
}

TEST_F(StatisticsQueries, OfASecondClassThatIsMissingRaises9AndWritesNothing) {
  Parse("1,5\n2,5\n");
  set_->CalculateStatistics(nullptr);
  double class_value = -1;
  double value = -2;
  EXPECT_EQ(RaisedNumber([&] { set_->GetClassCentroid(0, 1, class_value, value); }), 9);
  EXPECT_EQ(class_value, -1.0);
  EXPECT_EQ(value, -2.0);
  set_->GetClassCentroid(0, 0, class_value, value);
  EXPECT_EQ(class_value, 5.0);
}

TEST_F(StatisticsQueries, KeepsTheFirstTwoClassesOfThree) {
  Parse("1,0\n");
  for (const char* row :
       {"1, 0, 0, 11, 0, 0, 0, 4", "1, 0, 1, 12, 0, 0, 0, 5", "1, 0, 2, 13, 0, 0, 0, 6"}) {
    Execute("INSERT INTO DataSetClassStatistics VALUES (NULL, " + std::string(row) + ")");
  }
  ASSERT_TRUE(set_.Load(run_, 1));
  double class_value = 0;
  double value = 0;
  set_->GetClassCentroid(0, 1, class_value, value);
  EXPECT_EQ(value, 12.0);
  EXPECT_EQ(set_->GetTargetClassCount(0), 4);
  EXPECT_EQ(set_->GetTargetClassCount(1), 5);
}

TEST_F(StatisticsQueries, OfARunWithoutTheTablesAreScanned) {
  Parse("1,0\n2,1\n");
  Execute("DROP TABLE DataSetStatistics");
  Execute("DROP TABLE IF EXISTS DataSetClassStatistics");
  ASSERT_TRUE(set_.Load(run_, 1));
  EXPECT_FALSE(set_->HasGlobalRecordStatistics());
  EXPECT_FALSE(set_->HasClassRecordStatistics());
  EXPECT_EQ(set_->GetMax(0, 0, 0), 2.0);
  EXPECT_EQ(set_->GetTargetClassCount(1), 1);
}

TEST_F(StatisticsQueries, AreReadFromTheStartAfterAFailure) {
  Parse("1,0\n");
  for (const char* row : {"1, 0, 0, 11, 0, 0, 0, 4", "1, 5000000000, 1, 12, 0, 0, 0, 5"}) {
    Execute("INSERT INTO DataSetClassStatistics VALUES (NULL, " + std::string(row) + ")");
  }
  ASSERT_TRUE(set_.Load(run_, 1));
  EXPECT_EQ(RaisedNumber([&] { set_->HasClassRecordStatistics(); }), error_number::kOverflow);
  Execute("UPDATE DataSetClassStatistics SET ColumnId = 0");
  double class_value = -1;
  double value = -2;
  set_->GetClassCentroid(0, 1, class_value, value);
  EXPECT_EQ(class_value, 1.0);
  EXPECT_EQ(value, 12.0);
}

TEST_F(StatisticsQueries, ReadsTheTablesOnceAfterALoad) {
  Parse("1,0\n");
  set_->CalculateStatistics(nullptr);
  ASSERT_TRUE(set_.Load(run_, 1));
  EXPECT_EQ(set_->GetGlobalCentroid(0), 1.0);
  Execute("UPDATE DataSetStatistics SET Centroid = 99");
  EXPECT_EQ(set_->GetGlobalCentroid(0), 1.0);
  ASSERT_TRUE(set_.Load(run_, 1));
  EXPECT_EQ(set_->GetGlobalCentroid(0), 99.0);
}

TEST_F(StatisticsQueries, ForgetsFiguresOfRowsThatAreGone) {
  Parse("1,0\n2,1\n");
  set_->CalculateStatistics(nullptr);
  ASSERT_EQ(set_->GetMax(0, 0, 0), 2.0);
  Replace("100,0\n200,1\n");
  EXPECT_EQ(set_->GetMax(0, 0, 0), 200.0);
  EXPECT_EQ(set_->GetGlobalCentroid(0), 0.0);
  EXPECT_FALSE(set_->HasGlobalRecordStatistics());
  set_->CalculateStatistics(nullptr);
  EXPECT_EQ(set_->GetGlobalCentroid(0), 150.0);
  set_->Clear();
  EXPECT_EQ(set_->GetGlobalCentroid(0), 0.0);
}

TEST_F(StatisticsQueries, OfAStoppedComputationAreTheOldOnes) {
  struct Stopping final : CountedObject<IFeedback> {
    std::string_view TypeName() override { return "Stopping"; }
    bool ReportProgress(std::int32_t, std::string_view) override { return false; }
    bool ContinueFlag() override { return true; }
    void Finish() override {}
    void Start() override {}
    void SetMaximum(std::int32_t) override {}

   private:
    ~Stopping() override = default;
  };
  Parse("1,0\n2,1\n");
  set_->CalculateStatistics(nullptr);
  Execute("UPDATE TrainingSet SET d0 = 50");
  set_->CalculateStatistics(MakeObject<Stopping>().get());
  EXPECT_EQ(set_->GetGlobalCentroid(0), 1.5);
  set_->CalculateStatistics(nullptr);
  EXPECT_EQ(set_->GetGlobalCentroid(0), 50.0);
}

TEST_F(StatisticsQueries, ScanWhereTheSetHasNoFiguresOfItsOwn) {
  Parse("1,0\n2,1\n");
  set_->CalculateStatistics(nullptr);
  const LiteSet testing(run_, data_set_type::kTesting);
  ParseFile(testing, File("5,0\n3,1\n"), {.type = data_set_type::kTesting});
  ASSERT_TRUE(testing.Load(run_, data_set_type::kTesting));
  EXPECT_TRUE(testing->HasGlobalRecordStatistics());
  EXPECT_EQ(testing->GetMax(0, 0, 0), 5.0);
  EXPECT_EQ(testing->GetMin(0, 0, 0), 3.0);
  EXPECT_EQ(testing->GetGlobalCentroid(0), 0.0);
}

TEST_F(StatisticsQueries, ExtremesTakeARangeOfRows) {
  Parse("5,0\n9,0\n1,0\n7,0\n3,0\n");
  EXPECT_EQ(set_->GetMax(0, 0, 0), 9.0);
  EXPECT_EQ(set_->GetMax(0, 0, 1), 9.0);
  EXPECT_EQ(set_->GetMax(0, 2, 2), 1.0);
  EXPECT_EQ(set_->GetMax(0, 2, 0), 7.0);   // 0 means to the end
  EXPECT_EQ(set_->GetMax(0, 2, 99), 7.0);  // so does a row past it
  EXPECT_EQ(set_->GetMin(0, -5, 1), 5.0);
  EXPECT_EQ(set_->GetMin(0, 3, 4), 3.0);
  EXPECT_EQ(set_->GetMax(0, 4, 2), kMaximumStart);
  EXPECT_EQ(set_->GetMax(9, 0, 2), kMaximumStart);
}

TEST_F(StatisticsQueries, ExtremesSkipMissingValues) {
  Parse("NA,0\n4,0\nNA,0\n");
  EXPECT_EQ(set_->GetMax(0, 0, 2), 4.0);
  EXPECT_EQ(set_->GetMin(0, 0, 2), 4.0);
  EXPECT_EQ(set_->GetMin(0, 2, 2), kMinimumStart);
}

TEST_F(StatisticsQueries, ExtremesOfAnEmptyTableAreTheStartValues) {
  Parse("4,0\n");
  Execute("DELETE FROM TrainingSet");
  EXPECT_EQ(set_->GetMax(0, 0, 0), kMaximumStart);
  EXPECT_EQ(set_->GetMin(0, 0, 0), kMinimumStart);
}

TEST_F(StatisticsQueries, TheMinimumStartsBelowTheLargestDoubles) {
  Parse("1.75e308,0\n");
  EXPECT_EQ(set_->GetMin(0, 0, 5), kMinimumStart);
  EXPECT_EQ(set_->GetMax(0, 0, 5), 1.75e308);
}

TEST_F(StatisticsQueries, TheMajorityClassIsTheLargestOne) {
  Parse("1,0\n1,0\n1,0\n1,1\n1,NA\n");
  EXPECT_EQ(set_->GetTargetMajorityClass(), 1.0);
  EXPECT_EQ(set_->GetTargetMinorityClassCount(), 1);
}

TEST_F(StatisticsQueries, CountsTheRecordsOfAClass) {
  Parse("1,0\n1,0\n1,1\n");
  EXPECT_EQ(set_->GetTargetClassCount(0), 2);
  EXPECT_EQ(set_->GetTargetClassCount(1), 1);
  EXPECT_EQ(set_->GetTargetClassCount(2), 0);
  EXPECT_EQ(set_->GetTargetClassCount(-1), 0);
}

TEST_F(StatisticsQueries, TheAverageModelIsTheMeanOfEachRowsInputs) {
  Parse("2,4,9\nNA,4,9\n");
  VariantArray model;
  set_->GetAverageModel(model);
  EXPECT_EQ(model.LowerBound(), 0);
  EXPECT_THAT(model.Elements(), ::testing::ElementsAre(Variant(3.0), Variant(2.0)));
}

TEST_F(StatisticsQueries, TheAverageModelOfOneColumnDividesByZero) {
  Parse("2\n4\n");
  VariantArray model;
  EXPECT_EQ(RaisedNumber([&] { set_->GetAverageModel(model); }), 11);
  Execute("DELETE FROM TrainingSet");
  set_->GetAverageModel(model);
  EXPECT_EQ(model.Size(), 0U);
}

}  // namespace
}  // namespace tslm5
