// `IDeploymentDataSet` of a `DataSetLite`: its own data, forwarded.
#include "tslm5/contracts/deployment_data_set.h"

#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

class DeploymentView : public DataSetLiteTest {
 protected:
  DeploymentView() {
    Parse("1,2.5,0\n3,4.5,7\n5,6.5,2\n");
    for (std::int32_t column = 0; column < 3; ++column) {
      AddColumn(column, "d" + std::to_string(column), column == 2);
    }
  }
  /// Attaches the set to its run again, which reads the flags.
  void Attach() const { set_.Load(run_, data_set_type::kTraining); }

  Ref<IDeploymentDataSet> view_ = set_.As<IDeploymentDataSet>();
};

TEST_F(DeploymentView, ForwardsToTheDataSet) {
  EXPECT_EQ(view_->Rows(), 3);
  EXPECT_EQ(view_->Columns(), 3);
  EXPECT_EQ(view_->TerminalCount(), 2);
  EXPECT_EQ(view_->HasLabels(), set_->HasLabels());
  EXPECT_EQ(view_->GetItem(1, 0), "2.5");
  EXPECT_EQ(view_->GetItem(0, 1), "3");
  EXPECT_EQ(view_->GetLabel(0), "d0");
  EXPECT_EQ(view_->GetLabel(2), "y");
}

TEST_F(DeploymentView, FollowsTheDataSet) {
  Replace("1,2\n");
  set_->put_DependentVarName("target");
  EXPECT_EQ(view_->Rows(), 1);
  EXPECT_EQ(view_->Columns(), 2);
  EXPECT_EQ(view_->GetLabel(1), "target");
}

TEST_F(DeploymentView, GivesTheMaximumOfTheResponse) {
  EXPECT_EQ(view_->GetTargetMax(), 7);
  EXPECT_EQ(view_->GetTargetMax(), set_->GetMax(set_->TerminalCount(), 0, 0));
}

TEST_F(DeploymentView, GivesTheMaximumThatWasStored) {
  run_.Execute("INSERT INTO DataSetStatistics VALUES (NULL, 1, 2, 0, 0, 0, 99, 0)");
  Attach();
  EXPECT_EQ(view_->GetTargetMax(), 99);
}

TEST_F(DeploymentView, RaisesWhatTheDataSetRaises) {
  EXPECT_EQ(view_->GetRowOriginalIndex(2), 3);
  const Error error = Raised([&] { view_->GetRowOriginalIndex(3); });
  EXPECT_EQ(error.Number(), 41011);
  EXPECT_EQ(error.Source(), "GetRowNumber");
  EXPECT_EQ(view_->GetItem(99, 0), "") << "an absent text is empty, as in the data set";
}

TEST_F(DeploymentView, LooksTheFlagsOfAColumnUp) {
  run_.Execute("UPDATE DataSetColumn SET IsNominal = 1 WHERE ColumnIndex = 2");
  run_.Execute("UPDATE DataSetColumn SET MissingCount = 4 WHERE ColumnIndex = 1");
  Attach();
  for (std::int32_t column = 0; column < 3; ++column) {
    EXPECT_EQ(view_->IsColumnCategorical(column), column == 2) << column;
    EXPECT_EQ(view_->HasMissingValues(column), column == 1) << column;
  }
}

TEST_F(DeploymentView, KnowsNoFlagOfAnUnknownColumn) {
  Attach();
  for (const std::int32_t column : {-1, 3, 1000}) {
    EXPECT_FALSE(view_->IsColumnCategorical(column)) << column;
    EXPECT_FALSE(view_->HasMissingValues(column)) << column;
  }
  const LiteSet unattached;
  EXPECT_FALSE(unattached.As<IDeploymentDataSet>()->IsColumnCategorical(0));
  EXPECT_FALSE(unattached.As<IDeploymentDataSet>()->HasMissingValues(0));
}

TEST_F(DeploymentView, CountsNoSets) {
  for (const std::int32_t type : {1, 2, 3, 100}) EXPECT_EQ(view_->GetDataSetRows(type), 0) << type;
}

TEST_F(DeploymentView, IsNotOpenedThroughThisFace) {
  const Lines before = set_.Everything();
  const TestRun other;
  run_.Log().Clear();
  view_->Open(Variant(other.Service()), data_set_type::kTesting, true);
  view_->Open(Variant("no connection"), 77, false);
  view_->OpenFromFile("/no/such/run.db", data_set_type::kTraining, true);
  EXPECT_TRUE(run_.Log().statements.empty());
  EXPECT_TRUE(other.Log().statements.empty());
  EXPECT_EQ(set_.Everything(), before);
}

TEST_F(DeploymentView, IsEmptyOnANewSet) {
  const LiteSet fresh;
  const Ref<IDeploymentDataSet> view = fresh.As<IDeploymentDataSet>();
  EXPECT_EQ(view->Rows(), 0);
  EXPECT_EQ(view->Columns(), 0);
  EXPECT_EQ(view->TerminalCount(), 0);
  EXPECT_EQ(view->GetItem(0, 0), "");
  EXPECT_EQ(RaisedNumber([&] { view->GetRowOriginalIndex(0); }), 41011);
}

}  // namespace
}  // namespace tslm5
