#include <gmock/gmock.h>

#include "platform/raised.h"
#include "statistics/data_record_statistics.h"
#include "statistics/statistics_run.h"

namespace tslm5 {
namespace {

using DataRecordStatistics::CalculateTableStatistics;
using ::testing::ElementsAre;

/// A run whose training table has three columns and whose statistics are those of older records.
class StatisticsFeedback : public ::testing::Test {
 protected:
  void SetUp() override {
    run_.MakeTable("TrainingSet", 3, {"1, 2, 0", "3, 4, 1"});
    ASSERT_TRUE(Calculate(nullptr));
    column_rows_ = run_.ColumnRows();
    class_rows_ = run_.ClassRows();
    ASSERT_EQ(class_rows_.size(), 6U);
    run_.Connection().Execute("UPDATE TrainingSet SET d0 = d0 + 100");
    run_.Log().Clear();
  }

  bool Calculate(IFeedback* feedback) {
    return CalculateTableStatistics(run_.Connection(), 1, "TrainingSet", feedback);
  }
  bool ColumnsAreOld() { return run_.ColumnRows() == column_rows_; }
  bool ClassesAreOld() { return run_.ClassRows() == class_rows_; }

  StatisticsRun run_;
  Ref<NotingFeedback> feedback_ = MakeObject<NotingFeedback>();
  std::vector<std::string> column_rows_;
  std::vector<std::string> class_rows_;
};

TEST_F(StatisticsFeedback, HearsEveryBatchOfBothPasses) {
  EXPECT_TRUE(Calculate(feedback_.get()));
  EXPECT_THAT(
      feedback_->calls,
      ElementsAre("start", "maximum 2", "1 Processing variable d", "3 Processing variable d",
                  "2 Processing variable d", "finish",
                  // the classes 0 and 1
                  "1 Processing variable d", "3 Processing variable d", "1 Processing variable d",
                  "3 Processing variable d", "2 Processing variable d", "finish"));
  EXPECT_FALSE(ColumnsAreOld());
  EXPECT_FALSE(ClassesAreOld());
}

TEST_F(StatisticsFeedback, StopsAtTheFirstReportAndLeavesEverythingAsItWas) {
  feedback_->stop_at_report = 1;
  EXPECT_FALSE(Calculate(feedback_.get()));
  EXPECT_THAT(feedback_->calls, ElementsAre("start", "maximum 2", "1 Processing variable d"));
  EXPECT_TRUE(ColumnsAreOld());
  EXPECT_TRUE(ClassesAreOld());
}

TEST_F(StatisticsFeedback, StopsBetweenThePassesAndLeavesEverythingAsItWas) {
  feedback_->stop_at_question = 1;
  EXPECT_FALSE(Calculate(feedback_.get()));
  EXPECT_TRUE(ColumnsAreOld());
  EXPECT_TRUE(ClassesAreOld());
}

TEST_F(StatisticsFeedback, StopsInTheClassPassAndKeepsTheColumns) {
  feedback_->stop_at_report = 5;
  EXPECT_FALSE(Calculate(feedback_.get()));
  EXPECT_FALSE(ColumnsAreOld());
  EXPECT_TRUE(ClassesAreOld());
}

TEST_F(StatisticsFeedback, StopsAtTheVeryEndAndKeepsTheColumns) {
  feedback_->stop_at_question = 6;  // one between the passes, one a class batch, the last one
  EXPECT_FALSE(Calculate(feedback_.get()));
  EXPECT_FALSE(ColumnsAreOld());
  EXPECT_TRUE(ClassesAreOld());
}

TEST_F(StatisticsFeedback, AfterAFailureTheRunIsAsItWasAndUsable) {
  const std::size_t statements = [] {
    StatisticsRun other;
    other.MakeTable("TrainingSet", 3, {"1, 2, 0", "3, 4, 1"});
    CalculateTableStatistics(other.Connection(), 1, "TrainingSet", nullptr);
    return other.Log().statements.size();
  }();
  for (std::size_t number = 1; number <= statements; ++number) {
    run_.Log().before = nullptr;
    const std::vector<std::string> columns = run_.ColumnRows();
    const std::vector<std::string> classes = run_.ClassRows();
    run_.Log().Clear();
    run_.Log().FailAt(number, Error(4711, "test", "refused"));
    EXPECT_EQ(RaisedNumber([this] { Calculate(nullptr); }), 4711) << number;
    run_.Log().before = nullptr;
    // The column pass is kept or not, as a whole; the classes are never half replaced.
    EXPECT_EQ(run_.ColumnRows().size(), columns.size()) << number;
    EXPECT_EQ(run_.ClassRows(), classes) << number;
    EXPECT_NO_THROW(run_.Connection().BeginTrans()) << number;
    run_.Connection().CommitTrans();
    EXPECT_EQ(RaisedNumber([this] { run_.Connection().CommitTrans(); }), 5) << number;
  }
}

}  // namespace
}  // namespace tslm5
