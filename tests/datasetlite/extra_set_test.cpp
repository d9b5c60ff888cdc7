// `IExtraSet`. Its `Vectorize` is in vectorize_test.cpp.
#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "datasetlite/lite_set.h"
#include "tslm5/contracts/extra_set.h"

namespace tslm5 {
namespace {

class DataSetLiteExtraSet : public DataSetLiteTest {
 protected:
  DataSetLiteExtraSet() {
    ParseFile(LiteSet(run_, 5), File("10,20\n30,?\n50,60\n"), {.type = 5});
    Parse("1,2,3\n");
    set_.Load(run_, 1);
  }

  Ref<IExtraSet> extra_ = set_.As<IExtraSet>();
};

TEST_F(DataSetLiteExtraSet, HasAShapeOfItsOwn) {
  EXPECT_TRUE(extra_->Exists());
  EXPECT_EQ(extra_->Rows(), 3);
  EXPECT_EQ(extra_->Columns(), 2);
  EXPECT_EQ(set_->Rows(), 1);
  EXPECT_EQ(set_->Columns(), 3);
}

TEST_F(DataSetLiteExtraSet, TakesTheColumnFirst) {
  EXPECT_EQ(extra_->GetItem(1, 2), 60.0);
  EXPECT_EQ(extra_->GetItem(0, 1), 30.0);
  EXPECT_TRUE(std::isnan(extra_->GetItem(1, 1)));
  EXPECT_EQ(extra_->GetItem(2, 1), 2.0) << "the row key";
}

TEST_F(DataSetLiteExtraSet, RaisesForAnAbsentCell) {
  const std::pair<std::int32_t, std::int32_t> cells[] = {{-1, 0}, {3, 0}, {0, -1}, {0, 3}};
  for (const auto& cell : cells) {
    const Error error = Raised([&] { extra_->GetItem(cell.first, cell.second); });
    EXPECT_EQ(error.Number(), 41001) << cell.first << ' ' << cell.second;
    EXPECT_EQ(error.Source(), "");
    EXPECT_EQ(error.Description(), "");
    EXPECT_EQ(RaisedNumber([&] { extra_->SetItem(cell.first, cell.second, 1); }), 41001);
  }
}

TEST_F(DataSetLiteExtraSet, DoesNotWriteTheRowKeys) {
  EXPECT_EQ(RaisedNumber([&] { extra_->SetItem(2, 0, 9); }), 41001);
  EXPECT_EQ(extra_->GetItem(2, 0), 1.0);
}

TEST_F(DataSetLiteExtraSet, WritesACellThatEverybodySees) {
  const LiteSet other;
  other.Load(run_, 1);
  extra_->SetItem(1, 1, 40.5);
  EXPECT_EQ(extra_->GetItem(1, 1), 40.5);
  EXPECT_EQ(other.As<IExtraSet>()->GetItem(1, 1), 40.5);
  EXPECT_EQ(run_.TableRows("TimeSeriesTestingSet"), (Lines{"10|20|1", "30|40.5|2", "50|60|3"}));
  EXPECT_EQ(set_.Records(), (Lines{"1,2,3"}));
}

TEST_F(DataSetLiteExtraSet, TakesBackAValueAsMissing) {
  extra_->SetItem(0, 0, std::nan(""));
  EXPECT_TRUE(std::isnan(extra_->GetItem(0, 0)));
  EXPECT_EQ(run_.TableRows("TimeSeriesTestingSet").front(), "NULL|20|1");
}

TEST_F(DataSetLiteExtraSet, IsNothingWithoutItsTable) {
  const LiteSet set;
  set.Load(run_, data_set_type::kTimeSeriesTesting);
  const Ref<IExtraSet> none = set.As<IExtraSet>();
  EXPECT_FALSE(none->Exists());
  EXPECT_EQ(none->Rows(), 0);
  EXPECT_EQ(none->Columns(), 0);
  EXPECT_EQ(RaisedNumber([&] { none->GetItem(0, 0); }), 41001);
  EXPECT_EQ(RaisedNumber([&] { none->SetItem(0, 0, 1); }), 41001);
}

TEST_F(DataSetLiteExtraSet, HasNoRowsWhenItsTableIsGone) {
  run_.Execute("DROP TABLE TimeSeriesTestingSet");
  EXPECT_EQ(extra_->Rows(), 0);
  EXPECT_EQ(extra_->Columns(), 0);
}

TEST_F(DataSetLiteExtraSet, EndsWhenItsTableBecomesTheMainOne) {
  ParseFile(set_, File("7,8\n"), {.type = 5});
  EXPECT_FALSE(extra_->Exists());
  EXPECT_EQ(set_.Records(), (Lines{"7,8"}));
}

}  // namespace
}  // namespace tslm5
