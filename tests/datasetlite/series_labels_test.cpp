// `ITimeSeriesDataSet` and the column records of an embedding.
#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"
#include "tslm5/contracts/data_set_lite.h"
#include "tslm5/contracts/time_series.h"

namespace tslm5 {
namespace {

constexpr const char* kColumns =
    "SELECT ColumnIndex, Name, OriginalLabel, IsNominal, MissingCount, Reserved, IsResponse FROM "
    "DataSetColumn ORDER BY Id";
constexpr const char* kLabels = "SELECT SetId, [column], label FROM DataSetLabels ORDER BY Id";

class DataSetLiteSeriesLabels : public DataSetLiteTest {
 protected:
  void Describe(const char* dimension, const char* delay) const {
    set_->SetProperty(dimension, "EmbeddingDimension");
    set_->SetProperty(delay, "DelayTime");
  }
  void AddLabel(int set, int column, const std::string& label) const {
    run_.Execute("INSERT INTO DataSetLabels VALUES (NULL, " + std::to_string(set) + ", " +
                 std::to_string(column) + ", '" + label + "')");
  }

  Ref<ITimeSeriesDataSet> series_ = set_.As<ITimeSeriesDataSet>();
};

TEST_F(DataSetLiteSeriesLabels, NameTheLagsOfTheColumns) {
  Parse("1,2,3,4\n5,6,7,8\n");
  AddColumn(0, "old");
  AddLabel(1, 0, "old");
  AddLabel(2, 0, "Sales");
  Describe("3", "2");
  series_->RenameTrainingLabels();
  EXPECT_EQ(run_.Select(kColumns), (Lines{"0|d0|t_6|0|0|0|0", "1|d1|t_4|0|0|0|0",
                                          "2|d2|t_2|0|0|0|0", "3|d3|t_0|0|0|0|1"}));
  EXPECT_EQ(run_.Select(kLabels), (Lines{"2|0|Sales", "1|0|t_6", "1|1|t_4", "1|2|t_2", "1|3|t"}));
  EXPECT_TRUE(set_->HasLabels());
  EXPECT_EQ(set_.Labels(), (Lines{"t_6", "t_4", "t_2", "t_0"}));
}

TEST_F(DataSetLiteSeriesLabels, OfOneInputNameTwoColumns) {
  Parse("1,2\n3,4\n");
  Describe("1", "5");
  series_->RenameTrainingLabels();
  EXPECT_EQ(run_.Select(kColumns), (Lines{"0|d0|t_5|0|0|0|0", "1|d1|t_0|0|0|0|1"}));
  EXPECT_EQ(run_.Select(kLabels), (Lines{"1|0|t_5", "1|1|t"}));
}

TEST_F(DataSetLiteSeriesLabels, FitTheEmbedding) {
  Parse("1\n2\n3\n4\n5\n6\n7\n8\n");
  Describe("3", "2");
  ASSERT_TRUE(set_->FormatDataAs(0));
  series_->RenameTrainingLabels();
  for (std::int32_t column = 0; column < 4; ++column) {
    const double lag = set_->GetItem(3, 1) - set_->GetItem(column, 1);
    EXPECT_EQ(set_->GetLabel(column), "t_" + Variant(lag).ToString());
  }
}

TEST_F(DataSetLiteSeriesLabels, NameTheLargestLag) {
  Describe("1", "2147483647");
  series_->RenameTrainingLabels();
  EXPECT_EQ(run_.Select(kLabels), (Lines{"1|0|t_2147483647", "1|1|t"}));
}

TEST_F(DataSetLiteSeriesLabels, NeedBothPropertiesBeforeAnythingGoes) {
  AddColumn(0, "old");
  AddLabel(1, 0, "old");
  const Lines columns = run_.Select(kColumns);
  const Lines labels = run_.Select(kLabels);
  struct {
    const char* dimension;
    const char* delay;
    std::int32_t number;
  } const cases[] = {{"3", "", 13},      {"", "2", 13},          {"x", "2", 13},
                     {"3", "two", 13},   {"9999999999", "1", 6}, {"65536", "65536", 6},
                     {"-1", "1", 41001}, {"1", "-1", 41001}};
  run_.Log().Clear();
  for (const auto& c : cases) {
    Describe(c.dimension, c.delay);
    EXPECT_EQ(RaisedNumber([this] { series_->RenameTrainingLabels(); }), c.number)
        << c.dimension << '/' << c.delay;
  }
  set_->ResetProperties();
  set_->SetProperty("3", "EmbeddingDimension");
  EXPECT_EQ(RaisedNumber([this] { series_->RenameTrainingLabels(); }), 13) << "no DelayTime";
  EXPECT_TRUE(run_.Log().statements.empty());
  EXPECT_EQ(run_.Select(kColumns), columns);
  EXPECT_EQ(run_.Select(kLabels), labels);
}

TEST_F(DataSetLiteSeriesLabels, AreWrittenInTheTransactionOfTheCallerAlone) {
  AddColumn(0, "old");
  Describe("2", "1");
  run_.Log().FailAt(4, Error(4711, "Test", "it fails"));
  EXPECT_EQ(RaisedNumber([this] { series_->RenameTrainingLabels(); }), 4711);
  run_.Log().before = nullptr;
  EXPECT_EQ(run_.Select(kColumns), (Lines{"0|d0|t_2|0|0|0|0"})) << "a part of the work";
  run_.Connection()->BeginTrans();
  series_->RenameTrainingLabels();
  run_.Connection()->RollbackTrans();
  EXPECT_EQ(run_.Select(kColumns), (Lines{"0|d0|t_2|0|0|0|0"}));
}

TEST_F(DataSetLiteSeriesLabels, HaveOneForTheSeriesItself) {
  Parse("1\n2\n");
  AddLabel(1, 0, "t_1");
  AddLabel(2, 0, "Passengers a month");
  series_->LoadTimeSeriesLabel();
  EXPECT_FALSE(set_->HasLabels()) << "the flag is not touched";
  EXPECT_EQ(set_->GetLabel(0), "y");
  set_->SetLabels("a b c");
  series_->LoadTimeSeriesLabel();
  EXPECT_TRUE(set_->HasLabels());
  EXPECT_EQ(set_->GetLabel(0), "Passengers a month");
  EXPECT_EQ(set_->GetLabel(1), "") << "it is the only one";
}

TEST_F(DataSetLiteSeriesLabels, OfTheSeriesItselfShowTheirBlanks) {
  AddLabel(2, 0, "Passengers\x05of\x05May");
  series_->LoadTimeSeriesLabel();
  EXPECT_EQ(set_->GetLabel(0), "Passengers of May");
}

TEST_F(DataSetLiteSeriesLabels, StayWithoutOneForTheSeriesItself) {
  AddLabel(1, 0, "t_1");
  set_->SetLabels("a b");
  series_->LoadTimeSeriesLabel();
  EXPECT_EQ(set_->GetLabel(0), "a");
  EXPECT_EQ(set_->GetLabel(1), "b");
}

TEST_F(DataSetLiteSeriesLabels, BecomeColumnRecordsBehindThoseThatAreThere) {
  AddColumn(7, "kept", true);
  AddLabel(2, 0, "other");
  AddLabel(1, 1, "second");
  AddLabel(1, 0, "first");
  set_.As<IDataSetLite>()->SaveTimeSeriesDataSetColumnData(99);
  EXPECT_EQ(run_.Select(kColumns),
            (Lines{"7|d7|kept|0|0|0|1", "1|d1|second|0|0|0|0", "0|d0|first|0|0|0|1"}))
      << "the response is the last record written, whatever its column";
}

TEST_F(DataSetLiteSeriesLabels, BecomeColumnRecordsAllOrNone) {
  AddLabel(1, 0, "first");
  run_.Log().FailAt(3, Error(4711, "Test", "it fails"));
  const Ref<IDataSetLite> lite = set_.As<IDataSetLite>();
  EXPECT_EQ(RaisedNumber([&] { lite->SaveTimeSeriesDataSetColumnData(0); }), 4711);
  run_.Log().before = nullptr;
  EXPECT_TRUE(run_.Select(kColumns).empty());
}

TEST_F(DataSetLiteSeriesLabels, NeedARun) {
  const LiteSet set;
  set->SetProperty("1", "EmbeddingDimension");
  set->SetProperty("1", "DelayTime");
  const Ref<ITimeSeriesDataSet> series = set.As<ITimeSeriesDataSet>();
  EXPECT_EQ(RaisedNumber([&] { series->LoadTimeSeriesLabel(); }), 41001);
  EXPECT_EQ(RaisedNumber([&] { series->RenameTrainingLabels(); }), 41001);
  EXPECT_EQ(RaisedNumber([&] { set.As<IDataSetLite>()->SaveTimeSeriesDataSetColumnData(0); }),
            41001);
}

TEST_F(DataSetLiteSeriesLabels, StandBesideTheFiguresForMissingValues) {
  run_.Execute("INSERT INTO DataSetStatisticsForMissing VALUES (3, 1.5, 2.5, 3.5, 4.5)");
  run_.Execute("INSERT INTO DataSetStatisticsForCode VALUES (3, 10.5, 20.5, 30.5, 40.5)");
  const Ref<IDataSetLite> lite = set_.As<IDataSetLite>();
  EXPECT_EQ(lite->GetMissingStatisticsValue(3, "Average"), 1.5);
  EXPECT_EQ(lite->GetMissingStatisticsValue(3, "Maximum"), 4.5);
  EXPECT_EQ(lite->GetMissingStatisticsValue(3, "StandardDeviation"), 20.5);
}

}  // namespace
}  // namespace tslm5
