// Filling a data table from another dataset.
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "fakes/fake_data_set.h"
#include "platform/raised.h"
#include "storage/table_lite.h"
#include "storage/test_run.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

TEST(TableLiteParseDataSet, CopiesEveryCell) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(3);
  const auto source =
      MakeObject<FakeDataSet>(std::vector<std::vector<double>>{{1, 2.5, -3}, {4, 5, 1e300}});
  EXPECT_TRUE(table->ParseDataSet(*source));
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"1|2.5|-3|1", "4|5|1E+300|2"}));
}

TEST(TableLiteParseDataSet, ReadsTheCellsRowByRow) {
  const TestRun run;
  const auto source = MakeObject<FakeDataSet>(std::vector<std::vector<double>>{{1, 2}, {3, 4}});
  std::vector<std::pair<std::int32_t, std::int32_t>> asked;
  source->before_cell = [&asked](std::int32_t column, std::int32_t row) {
    asked.emplace_back(column, row);
  };
  run.Table(2)->ParseDataSet(*source);
  EXPECT_EQ(asked,
            (std::vector<std::pair<std::int32_t, std::int32_t>>{{0, 0}, {1, 0}, {0, 1}, {1, 1}}));
}

TEST(TableLiteParseDataSet, SendsARowAStatementInOneTransactionAndReopens) {
  const TestRun run;
  const auto source = MakeObject<FakeDataSet>(std::vector<std::vector<double>>{{1, 2.5}, {3, 4}});
  run.Table(2)->ParseDataSet(*source);
  EXPECT_EQ(run.Log().statements, Lines({"BEGIN", "INSERT INTO TrainingSet VALUES (1,2.5,1);",
                                         "INSERT INTO TrainingSet VALUES (3,4,2);", "COMMIT",
                                         "SELECT * FROM TrainingSet;"}));
}

TEST(TableLiteParseDataSet, ReopensTheRecordSet) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(2);
  ASSERT_EQ(table->Rows(), 0);
  table->ParseDataSet(*MakeObject<FakeDataSet>(std::vector<std::vector<double>>{{1, 2}}));
  EXPECT_EQ(table->Rows(), 1);
  EXPECT_EQ(table->Columns(), 2);
}

TEST(TableLiteParseDataSet, OfNoRowsCommitsReloadsAndIsTrue) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(2);
  const auto source = MakeObject<FakeDataSet>(std::vector<std::vector<double>>{});
  source->columns = 2;
  EXPECT_TRUE(table->ParseDataSet(*source));
  EXPECT_EQ(run.Log().statements, Lines({"BEGIN", "COMMIT", "SELECT * FROM TrainingSet;"}));
  EXPECT_EQ(table->Columns(), 2);
  EXPECT_EQ(table->Rows(), 0);
}

TEST(TableLiteParseDataSet, AddsToTheRowsThatAreThere) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(1);
  const auto source = MakeObject<FakeDataSet>(std::vector<std::vector<double>>{{7}, {8}});
  EXPECT_TRUE(table->ParseDataSet(*source));
  EXPECT_TRUE(table->ParseDataSet(*source));
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"7|1", "8|2", "7|3", "8|4"}));
}

TEST(TableLiteParseDataSet, WritesThePointUnderACommaLocale) {
  const ScopedLocale german("de_DE.UTF-8");
  const TestRun run;
  run.Table(1)->ParseDataSet(*MakeObject<FakeDataSet>(std::vector<std::vector<double>>{{1.5}}));
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"1.5|1"}));
}

class FailingParseDataSet : public testing::Test {
 protected:
  FailingParseDataSet() : table_(run_.Filled(2, {"1 2"})) {
    // One row is stored by then, and the second row's first cell was read.
    source_->before_cell = [this](std::int32_t column, std::int32_t row) {
      if (column == 1 && row == 1) throw error_;
    };
  }

  void ExpectTheTableAsItWas() {
    EXPECT_EQ(run_.TableRows("TrainingSet"), Lines({"1|2|1"}));
    EXPECT_EQ(table_->Rows(), 1);
    EXPECT_FALSE(run_.InTransaction());
  }

  Error error_{41011, "GetItem", "Invalid Row or Column"};
  TestRun run_;
  Ref<TableLite> table_;
  Ref<FakeDataSet> source_ =
      MakeObject<FakeDataSet>(std::vector<std::vector<double>>{{3, 4}, {5, 6}, {7, 8}});
};

TEST_F(FailingParseDataSet, ACellThatCannotBeReadRaisesTheSameErrorAndKeepsNothing) {
  const Error error = Raised([this] { table_->ParseDataSet(*source_); });
  EXPECT_EQ(error.Number(), 41011);
  EXPECT_EQ(error.Source(), "GetItem");
  EXPECT_EQ(error.Description(), "Invalid Row or Column");
  EXPECT_EQ(run_.Log().statements.back(), "ROLLBACK");
  ExpectTheTableAsItWas();
}

TEST_F(FailingParseDataSet, AnErrorWithANumberOfZeroOrLessIsFalse) {
  for (const std::int32_t number : {0, -5, -2147483647}) {
    error_ = Error(number, "GetItem", "lost");
    EXPECT_FALSE(table_->ParseDataSet(*source_)) << number;
    ExpectTheTableAsItWas();
  }
}

TEST_F(FailingParseDataSet, TheSmallestPositiveNumberIsRaised) {
  error_ = Error(1, "GetItem", "lost");
  EXPECT_EQ(RaisedNumber([this] { table_->ParseDataSet(*source_); }), 1);
  ExpectTheTableAsItWas();
}

TEST_F(FailingParseDataSet, WhatIsNoErrorOfTheSystemPassesToo) {
  source_->before_cell = [](std::int32_t, std::int32_t row) {
    if (row == 1) throw std::runtime_error("foreign");
  };
  EXPECT_THROW(table_->ParseDataSet(*source_), std::runtime_error);
  ExpectTheTableAsItWas();
}

TEST_F(FailingParseDataSet, ARowThatTheDatabaseRefusesKeepsNothing) {
  source_->before_cell = nullptr;
  run_.Execute("INSERT INTO TrainingSet VALUES (9, 9, 4)");
  EXPECT_EQ(RaisedNumber([this] { table_->ParseDataSet(*source_); }), 1555);
  EXPECT_EQ(run_.TableRows("TrainingSet"), Lines({"1|2|1", "9|9|4"}));
  EXPECT_FALSE(run_.InTransaction());
}

TEST_F(FailingParseDataSet, AnotherNumberOfColumnsKeepsNothing) {
  source_->before_cell = nullptr;
  source_->columns = 1;
  EXPECT_EQ(RaisedNumber([this] { table_->ParseDataSet(*source_); }), 1);
  ExpectTheTableAsItWas();
}

TEST_F(FailingParseDataSet, InfinityKeepsNothing) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double value : {infinity, -infinity}) {
    const auto source =
        MakeObject<FakeDataSet>(std::vector<std::vector<double>>{{3, 4}, {5, value}});
    const Error error = Raised([this, &source] { table_->ParseDataSet(*source); });
    EXPECT_EQ(error.Number(), 6);
    EXPECT_EQ(error.Description(), "An infinite number cannot be stored.");
    ExpectTheTableAsItWas();
  }
}

TEST_F(FailingParseDataSet, AtEachStatementInTurnKeepsNothing) {
  source_->before_cell = nullptr;
  for (std::size_t failing = 1; failing <= 5; ++failing) {  // BEGIN, three rows, COMMIT
    SCOPED_TRACE(failing);
    run_.Log().Clear();
    run_.Log().FailAt(failing, Error(13, "TSLMRep5", "database or disk is full"));
    EXPECT_EQ(RaisedNumber([this] { table_->ParseDataSet(*source_); }), 13);
    ExpectTheTableAsItWas();
  }
}

TEST_F(FailingParseDataSet, IsFollowedByAFillWithTheSameRowNumbers) {
  EXPECT_EQ(RaisedNumber([this] { table_->ParseDataSet(*source_); }), 41011);
  source_->before_cell = nullptr;
  EXPECT_TRUE(table_->ParseDataSet(*source_));
  EXPECT_EQ(run_.TableRows("TrainingSet"), Lines({"1|2|1", "3|4|3", "5|6|4", "7|8|5"}));
}

}  // namespace
}  // namespace tslm5
