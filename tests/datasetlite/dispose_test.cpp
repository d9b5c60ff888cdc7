#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"
#include "tslm5/contracts/extra_set.h"
#include "tslm5/contracts/lifecycle.h"

namespace tslm5 {
namespace {

class DataSetLiteDispose : public DataSetLiteTest {
 protected:
  DataSetLiteDispose() {
    ParseFile(LiteSet(run_, 5), File("7\n8\n"), {.type = 5});
    Parse("1,2\n3,4\n");
    set_.Load(run_, 1);
  }
};

TEST_F(DataSetLiteDispose, ClosesBothTables) {
  set_.As<IDisposable>()->Dispose(true);
  EXPECT_EQ(set_->Rows(), 0);
  EXPECT_EQ(set_->Columns(), 0);
  EXPECT_EQ(set_.As<IExtraSet>()->Rows(), 0);
  EXPECT_EQ(Raised([&] { set_->GetItem(0, 0); }).Number(), 41011);
}

TEST_F(DataSetLiteDispose, DoesNothingWithFalse) {
  set_.As<IDisposable>()->Dispose(false);
  EXPECT_EQ(set_.Records(), (Lines{"1,2", "3,4"}));
  EXPECT_EQ(set_.As<IExtraSet>()->Rows(), 2);
}

TEST_F(DataSetLiteDispose, WritesWhatIsPending) {
  set_.As<IExtraSet>()->SetItem(0, 1, 80);
  set_.As<IDisposable>()->Dispose(true);
  EXPECT_EQ(run_.TableRows("TimeSeriesTestingSet"), (Lines{"7|1", "80|2"}));
}

TEST_F(DataSetLiteDispose, LeavesTheTablesWhereTheyAre) {
  set_.As<IDisposable>()->Dispose(true);
  EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"1|2|1", "3|4|2"}));
  EXPECT_TRUE(set_.Load(run_, 1));
  EXPECT_EQ(set_.Records(), (Lines{"1,2", "3,4"}));
}

TEST_F(DataSetLiteDispose, MayComeTwiceAndBeforeALoad) {
  const Ref<IDisposable> disposable = set_.As<IDisposable>();
  disposable->Dispose(true);
  EXPECT_NO_THROW(disposable->Dispose(true));
  EXPECT_NO_THROW(LiteSet().As<IDisposable>()->Dispose(true));
  Parse("5,6\n");
  EXPECT_EQ(set_.Records(), (Lines{"5,6"}));
}

}  // namespace
}  // namespace tslm5
