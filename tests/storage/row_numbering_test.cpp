// The row counter of a data table. Each fill starts it in its own way, and the row numbers join the
// rows to the original data.
#include <gtest/gtest.h>

#include <vector>

#include "fakes/counting_table_sink.h"
#include "fakes/fake_data_set.h"
#include "platform/raised.h"
#include "storage/table_lite.h"
#include "storage/test_run.h"

namespace tslm5 {
namespace {

using Numbers = std::vector<double>;

class RowNumbering : public testing::Test {
 protected:
  RowNumbering() : table_(run_.Table(1)) {}

  static Ref<FakeDataSet> Source(const Numbers& values) {
    std::vector<std::vector<double>> rows;
    for (const double value : values) rows.push_back({value});
    return MakeObject<FakeDataSet>(rows);
  }
  Lines RowNumbers() { return run_.Select("SELECT row FROM TrainingSet ORDER BY row"); }

  TestRun run_;
  Ref<TableLite> table_;
};

TEST_F(RowNumbering, LinesAreNumberedFromOne) {
  table_->ParseArray(Lines{"5", "6"});
  EXPECT_EQ(RowNumbers(), Lines({"1", "2"}));
}

TEST_F(RowNumbering, RowsOfADataSetOfANewTableAreNumberedFromOne) {
  table_->ParseDataSet(*Source({5, 6}));
  EXPECT_EQ(RowNumbers(), Lines({"1", "2"}));
}

TEST_F(RowNumbering, ElementsOfANewTableAreNumberedFromZero) {
  table_->ParseDoubleArray(Numbers{5, 6});
  EXPECT_EQ(run_.TableRows("TrainingSet"), Lines({"5|0", "6|1"}));
}

TEST_F(RowNumbering, ElementsGoOnFromTheCounterOfElements) {
  table_->ParseDoubleArray(Numbers{5, 6});
  table_->ParseDoubleArray(Numbers{7});
  EXPECT_EQ(RowNumbers(), Lines({"0", "1", "2"}));
}

TEST_F(RowNumbering, ElementsAfterADataSetMeetItsLastRow) {
  table_->ParseDataSet(*Source({5, 6}));
  EXPECT_EQ(RaisedNumber([this] { table_->ParseDoubleArray(Numbers{7}); }), 1555);
  EXPECT_EQ(run_.TableRows("TrainingSet"), Lines({"5|1", "6|2"}));
  EXPECT_FALSE(run_.InTransaction());
}

TEST_F(RowNumbering, ElementsAfterLinesGoOn) {
  table_->ParseArray(Lines{"5", "6"});
  table_->ParseDoubleArray(Numbers{7});
  EXPECT_EQ(run_.TableRows("TrainingSet"), Lines({"5|1", "6|2", "7|3"}));
}

TEST_F(RowNumbering, ADataSetAfterLinesLeavesOneNumberOut) {
  table_->ParseArray(Lines{"5", "6"});
  table_->ParseDataSet(*Source({7}));
  EXPECT_EQ(RowNumbers(), Lines({"1", "2", "4"}));
}

TEST_F(RowNumbering, FieldsCountToo) {
  table_->ParseFields(std::vector<Variant>{5.0, 70});
  table_->ParseFields(std::vector<Variant>{6.0, 80});
  table_->ParseDoubleArray(Numbers{7});
  EXPECT_EQ(RowNumbers(), Lines({"2", "70", "80"}));
}

TEST_F(RowNumbering, FieldsThatAreRefusedDoNotCount) {
  EXPECT_NE(RaisedNumber([this] { table_->ParseFields(std::vector<Variant>{5.0}); }), 0);
  table_->ParseDoubleArray(Numbers{7});
  EXPECT_EQ(RowNumbers(), Lines({"0"}));
}

TEST_F(RowNumbering, LinesStartAgainAtOne) {
  table_->ParseArray(Lines{"5", "6"});
  table_->DeleteAll();
  table_->ParseArray(Lines{"7"});
  EXPECT_EQ(RowNumbers(), Lines({"1"}));
}

TEST_F(RowNumbering, CreateStartsTheCounterAnew) {
  table_->ParseArray(Lines{"5", "6"});
  table_->Create(1, 1, true);
  table_->ParseDataSet(*Source({7, 8}));
  EXPECT_EQ(RowNumbers(), Lines({"1", "2"}));
}

TEST_F(RowNumbering, ACreationThatFailsKeepsTheCounter) {
  table_->ParseArray(Lines{"5", "6"});
  run_.Log().FailAt(3, Error(13));
  EXPECT_EQ(RaisedNumber([this] { table_->Create(1, 1, true); }), 13);
  table_->ParseDoubleArray(Numbers{7});
  EXPECT_EQ(RowNumbers(), Lines({"1", "2", "3"}));
}

TEST_F(RowNumbering, DeleteAllAndLoadKeepTheCounter) {
  table_->ParseArray(Lines{"5", "6"});
  table_->DeleteAll();
  table_->Load(Variant(run_.Service()), 1);
  table_->ParseDoubleArray(Numbers{7});
  EXPECT_EQ(RowNumbers(), Lines({"3"}));
}

TEST_F(RowNumbering, AnotherObjectOfTheTableCountsOnItsOwn) {
  table_->ParseArray(Lines{"5"});
  const Ref<TableLite> other = MakeObject<TableLite>();
  other->Load(Variant(run_.Service()), 1);
  other->ParseDoubleArray(Numbers{7});
  EXPECT_EQ(RowNumbers(), Lines({"0", "1"}));
}

TEST_F(RowNumbering, ACancelledDataSetGivesTheNumbersBack) {
  const std::int32_t cookie = table_->Advise(MakeObject<CountingTableSink>(std::size_t{3}).get());
  EXPECT_FALSE(table_->ParseDataSet(*Source({5, 6, 7, 8})));
  table_->Unadvise(cookie);
  EXPECT_TRUE(table_->ParseDataSet(*Source({5, 6, 7, 8})));
  EXPECT_EQ(RowNumbers(), Lines({"1", "2", "3", "4"}));
}

TEST_F(RowNumbering, CancelledLinesGiveTheNumbersBack) {
  table_->ParseDataSet(*Source({5, 6}));
  table_->DeleteAll();
  const std::int32_t cookie = table_->Advise(MakeObject<CountingTableSink>(std::size_t{3}).get());
  EXPECT_FALSE(table_->ParseArray(Lines{"1", "2", "3"}));
  table_->Unadvise(cookie);
  table_->ParseDoubleArray(Numbers{7});
  EXPECT_EQ(RowNumbers(), Lines({"2"}));
}

TEST_F(RowNumbering, AFailedFillGivesTheNumbersBack) {
  table_->ParseArray(Lines{"5", "6"});
  EXPECT_NE(RaisedNumber([this] { table_->ParseArray(Lines{"x y"}); }), 0);
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_NE(RaisedNumber([&] { table_->ParseDoubleArray(Numbers{1, 2, infinity}); }), 0);
  EXPECT_NE(RaisedNumber([&] { table_->ParseDataSet(*Source({1, 2, infinity})); }), 0);
  table_->ParseDoubleArray(Numbers{7});
  EXPECT_EQ(RowNumbers(), Lines({"1", "2", "3"}));
}

TEST_F(RowNumbering, AFillThatCannotBeCommittedGivesTheNumbersBack) {
  run_.Log().FailAt(3, Error(13));
  EXPECT_EQ(RaisedNumber([this] { table_->ParseDataSet(*Source({5})); }), 13);
  table_->ParseDataSet(*Source({5}));
  EXPECT_EQ(RowNumbers(), Lines({"1"}));
}

}  // namespace
}  // namespace tslm5
