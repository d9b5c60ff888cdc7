// Runs as other programs may leave them.
#include <gmock/gmock.h>

#include "original/original_run.h"
#include "platform/raised.h"
#include "tslm5/contracts/codes.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using OriginalForeignRuns = OriginalDataSetTest;

TEST_F(OriginalForeignRuns, GiveTheBytesOfABlob) {
  run_.Execute("UPDATE OriginalData SET d0 = x'610062ff', d1 = x'' WHERE row = 3");
  view_.Open(run_, data_set_type::kTraining);
  EXPECT_EQ(view_->GetItem(0, 0), std::string("a\0b\xff", 4));
  EXPECT_EQ(view_->GetItem(1, 0), "");
}

TEST_F(OriginalForeignRuns, MayHaveMoreColumnsThanTheSetsAndTheKeyAmongThem) {
  run_.Execute("DROP TABLE OriginalData");
  run_.Execute("CREATE TABLE OriginalData (d0, row INTEGER PRIMARY KEY, d1, extra, y)");
  run_.Execute("INSERT INTO OriginalData VALUES (1.5, 3, x'6162', NULL, 2), (7, 8, 2.5, 0.1, 'z')");
  view_.Open(run_, data_set_type::kTraining);
  EXPECT_THAT(view_.Records(), ElementsAre("3,1.5,ab,,2", "8,7,2.5,0.1,z"));
  view_.Open(run_, data_set_type::kTraining, true);
  EXPECT_THAT(view_.Records(), ElementsAre("3,1.5,ab,,0", "8,7,2.5,0.1,1"));
}

TEST_F(OriginalForeignRuns, MayHaveNoColumnButTheKey) {
  run_.Execute("DROP TABLE OriginalData");
  run_.Execute("CREATE TABLE OriginalData (row INTEGER PRIMARY KEY)");
  run_.Execute("INSERT INTO OriginalData VALUES (3), (8)");
  for (const std::int32_t type : {1, 100, 1000}) {
    view_.Open(run_, type);
    EXPECT_EQ(view_->Rows(), 2);
    EXPECT_EQ(view_->Columns(), 0);
    EXPECT_EQ(view_->TerminalCount(), -1);
  }
  EXPECT_EQ(RaisedNumber([&] { view_.Open(run_, 1, true); }), 9);
  EXPECT_EQ(RaisedNumber([&] { view_.Open(run_, 100, true); }), 9);
}

TEST_F(OriginalForeignRuns, HaveNoMaximumWhereItIsNull) {
  run_.Execute("INSERT INTO DataSetStatistics VALUES (NULL, 2, 2, 0, 0, 0, NULL, 0)");
  view_.Open(run_, data_set_type::kTesting, true);
  EXPECT_EQ(view_->GetTargetMax(), 1) << "the training set's";
  EXPECT_THAT(view_.Responses(), ElementsAre("1", "0"));
  run_.Execute("UPDATE DataSetStatistics SET Maximum = NULL");
  view_.Open(run_, data_set_type::kTraining);
  EXPECT_EQ(view_->GetTargetMax(), 1) << "that of before";
}

}  // namespace
}  // namespace tslm5
