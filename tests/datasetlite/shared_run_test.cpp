// Several sets, and their application, on one run: each sees what the others wrote.
#include <gtest/gtest.h>

#include <cmath>

#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

class DataSetLiteSharedRun : public DataSetLiteTest {
 protected:
  DataSetLiteSharedRun() {
    Parse("1,2\n3,4\n");
    other_.Load(run_, 1);
  }

  LiteSet other_;
};

TEST_F(DataSetLiteSharedRun, ShowsALoadToTheOtherSet) {
  ASSERT_EQ(other_.Records(), (Lines{"1,2", "3,4"}));
  Parse("5,6,7\n8,9,10\n11,12,13\n");
  EXPECT_EQ(other_.Records(), (Lines{"5,6,7", "8,9,10", "11,12,13"}));
}

TEST_F(DataSetLiteSharedRun, ShowsALoadOfTheOtherSetToTheFirst) {
  ParseFile(other_, File("5,6\n"));
  EXPECT_EQ(set_.Records(), (Lines{"5,6"}));
}

TEST_F(DataSetLiteSharedRun, ShowsStatementsOfTheApplication) {
  const LiteSet testing(run_, 2);
  ParseFile(testing, File("70,80\n"), {.type = 2});
  for (const char* table : {"TrainingSet", "TestingSet"}) {
    run_.Execute("UPDATE " + std::string(table) + " SET d0 = 9 WHERE row = 1");
  }
  EXPECT_EQ(set_.Records(), (Lines{"9,2", "3,4"}));
  EXPECT_EQ(other_.Records(), (Lines{"9,2", "3,4"}));
  EXPECT_EQ(testing.Records(), (Lines{"9,80"}));
  run_.Execute("DELETE FROM TrainingSet WHERE row = 1");
  run_.Execute("UPDATE TrainingSet SET d1 = NULL");
  EXPECT_EQ(set_->Rows(), 1);
  EXPECT_TRUE(std::isnan(other_->GetItem(1, 0)));
}

TEST_F(DataSetLiteSharedRun, KeepsTheTestingSetApartFromTheTrainingSet) {
  const LiteSet testing(run_, 2);
  ParseFile(testing, File("7,8\n"), {.type = 2});
  Parse("5,6\n");
  EXPECT_EQ(testing.Records(), (Lines{"7,8"}));
  testing->Clear();
  EXPECT_EQ(set_.Records(), (Lines{"5,6"}));
}

TEST_F(DataSetLiteSharedRun, ShowsAFailedLoadToNobody) {
  EXPECT_NE(RaisedNumber([&] { Parse("5,6\n7\n"); }), 0);
  EXPECT_EQ(other_.Records(), (Lines{"1,2", "3,4"}));
}

TEST_F(DataSetLiteSharedRun, LeavesTheOtherSetEmptyWhenTheTableIsDropped) {
  set_->Clear();
  EXPECT_EQ(other_->Rows(), 0);
  EXPECT_EQ(other_->GetItemString(0, 0), "");
  EXPECT_NE(RaisedNumber([&] { other_->GetItem(0, 0); }), 0);
  ParseFile(other_, File("5,6\n"));
  EXPECT_EQ(other_.Records(), (Lines{"5,6"}));
}

TEST_F(DataSetLiteSharedRun, TakesALoadInsideATransactionOfTheApplication) {
  const Ref<IConnection> connection = run_.Connection();
  connection->BeginTrans();
  Parse("5,6\n");
  EXPECT_NE(RaisedNumber([&] { Parse("7,8\n9\n"); }), 0);
  EXPECT_EQ(set_.Records(), (Lines{"5,6"}));
  connection->RollbackTrans();
  EXPECT_EQ(other_.Records(), (Lines{"1,2", "3,4"}));
  EXPECT_EQ(set_.Records(), (Lines{"1,2", "3,4"}));
}

}  // namespace
}  // namespace tslm5
