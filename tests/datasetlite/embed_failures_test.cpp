// Embeddings and resets that fail at any statement: the series is whole.
#include <gtest/gtest.h>

#include <functional>

#include "datasetlite/lite_set.h"
#include "tslm5/contracts/extra_set.h"
#include "tslm5/contracts/time_series.h"

namespace tslm5 {
namespace {

constexpr const char* kTables[] = {"TrainingSet", "TrainingSetBackup", "TestingSet",
                                   "TimeSeriesTestingSet"};

class DataSetLiteSeriesFailure : public DataSetLiteTest {
 protected:
  DataSetLiteSeriesFailure() {
    ParseFile(LiteSet(run_, 5), File("77\n88\n"), {.type = 5});
    ParseFile(LiteSet(run_, 2), File("8,9\n6,7\n"), {.type = 2});
    Parse("1\n2\n3\n4\n5\n6\n");
    set_.Load(run_, 1);
    set_->SetProperty("2", "EmbeddingDimension");
    set_->SetProperty("1", "DelayTime");
    set_->SetProperty("1", "TestingSamples");
    set_.Records();
  }

  /// What the run holds and what the set shows of it.
  Lines Everything() const {
    Lines all = run_.Schema();
    for (const char* table : kTables) {
      const Lines rows = run_.TableRows(table);
      all.insert(all.end(), rows.begin(), rows.end());
      all.emplace_back(table);
    }
    const Lines shown = set_.Everything();
    all.insert(all.end(), shown.begin(), shown.end());
    const Ref<IExtraSet> extra = set_.As<IExtraSet>();
    for (std::int32_t row = 0; row < extra->Rows(); ++row) {
      all.push_back("extra " + std::to_string(extra->GetItem(0, row)));
    }
    return all;
  }

  /// Makes each statement of `act` fail in turn, until `act` says that it did its work. Every time
  /// the run and the set are what they were. Returns the number of statements.
  std::size_t FailEverywhere(const std::function<bool()>& act) const {
    set_.SetDirty(true);
    const Lines before = Everything();
    for (std::size_t statement = 1;; ++statement) {
      run_.Log().FailAt(statement, Error(4711, "Test", "it fails"));
      const bool done = act();
      run_.Log().before = nullptr;
      if (done) return statement - 1;
      EXPECT_FALSE(run_.InTransaction()) << "statement " << statement;
      EXPECT_EQ(Everything(), before) << "statement " << statement;
      if (HasFailure() || statement > 100) return statement;
    }
  }

  Ref<ITimeSeriesChanges> changes_ = set_.As<ITimeSeriesChanges>();
};

TEST_F(DataSetLiteSeriesFailure, OfAnEmbeddingLeavesTheSeriesWhole) {
  EXPECT_GT(FailEverywhere([this] { return set_->FormatDataAs(0); }), 15U);
  EXPECT_EQ(set_.Records(), (Lines{"1,2,3", "2,3,4", "3,4,5"}));
  EXPECT_EQ(run_.TableRows("TimeSeriesTestingSet"), (Lines{"6|1"}));
}

TEST_F(DataSetLiteSeriesFailure, OfAnEmbeddingOfTextLeavesTheSeriesWhole) {
  run_.Execute("UPDATE TrainingSet SET d0 = 'x' WHERE row = 2");
  EXPECT_GT(FailEverywhere([this] { return set_->FormatDataAs(0); }), 15U);
  EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"1|x|3|1", "x|3|4|2", "3|4|5|3"}));
}

TEST_F(DataSetLiteSeriesFailure, OfAnEmbeddingWhoseSeriesChangesMeanwhileLeavesTheChange) {
  const Lines changes[] = {
      {"DELETE FROM TrainingSet WHERE row = 6"},
      {"DROP TABLE TrainingSet",
       "CREATE TABLE TrainingSet (d0 FLOAT, d1 FLOAT, row INTEGER PRIMARY KEY)",
       "INSERT INTO TrainingSet VALUES (1, 9, 1), (2, 9, 2), (3, 9, 3), (4, 9, 4), (5, 9, 5)"}};
  for (const Lines& change : changes) {
    ASSERT_EQ(set_->Columns(), 1);
    bool changed = false;
    run_.Log().before = [&](std::string_view statement) {
      if (changed || statement != "BEGIN") return;
      changed = true;
      for (const std::string& other : change) run_.Execute(other);
    };
    EXPECT_FALSE(set_->FormatDataAs(0)) << change.front();
    EXPECT_TRUE(changed);
    run_.Log().before = nullptr;
    EXPECT_EQ(set_->Rows(), 5);
  }
  EXPECT_EQ(set_.Records().back(), "5,9");
}

TEST_F(DataSetLiteSeriesFailure, OfAnEmbeddingEndsWithTheReaderThatCausedIt) {
  const Lines before = Everything();
  {
    const Ref<IDataReader> reader = run_.Connection()->ExecuteReader("SELECT * FROM TrainingSet");
    ASSERT_TRUE(reader->Read());
    EXPECT_FALSE(set_->FormatDataAs(0)) << "an open reader keeps its table";
  }
  set_.SetDirty(true);
  EXPECT_EQ(Everything().size(), before.size());
  EXPECT_EQ(set_.Records(), (Lines{"1", "2", "3", "4", "5", "6"}));
  EXPECT_TRUE(set_->FormatDataAs(0));
}

TEST_F(DataSetLiteSeriesFailure, OfAResetLeavesTheTrainingRecords) {
  EXPECT_GT(FailEverywhere([this] { return changes_->ResetTimeSeries(); }), 8U);
  EXPECT_EQ(set_.Records(), (Lines{"8,9", "6,7"}));
}

TEST_F(DataSetLiteSeriesFailure, OfASecondResetKeepsTheFirstBackup) {
  ASSERT_TRUE(changes_->ResetTimeSeries());
  run_.Execute("UPDATE TestingSet SET d0 = 0");
  EXPECT_GT(FailEverywhere([this] { return changes_->ResetTimeSeries(); }), 8U);
  EXPECT_EQ(set_.Records(), (Lines{"0,9", "0,7"}));
  EXPECT_EQ(run_.TableRows("TrainingSetBackup"), (Lines{"8|9|1", "6|7|2"}));
}

TEST_F(DataSetLiteSeriesFailure, OfAnUndoKeepsTheBackup) {
  ASSERT_TRUE(changes_->ResetTimeSeries());
  const auto undo = [this] {
    const std::int32_t number = RaisedNumber([this] { changes_->UndoReset(); });
    EXPECT_TRUE(number == 0 || number == 4711) << number;
    return number == 0;
  };
  EXPECT_GT(FailEverywhere(undo), 8U);
  EXPECT_EQ(set_.Records(), (Lines{"1", "2", "3", "4", "5", "6"}));
}

TEST_F(DataSetLiteSeriesFailure, IsTakenBackWithTheTransactionOfTheApplication) {
  set_.SetDirty(true);
  const Lines before = Everything();
  const Ref<IConnection> connection = run_.Connection();
  for (const bool is_reset : {false, true}) {
    connection->BeginTrans();
    EXPECT_TRUE(is_reset ? changes_->ResetTimeSeries() : set_->FormatDataAs(0));
    EXPECT_EQ(set_.Records().size(), is_reset ? 2U : 3U);
    connection->RollbackTrans();
    EXPECT_EQ(set_.Records(), (Lines{"1", "2", "3", "4", "5", "6"}));
    EXPECT_EQ(Everything(), before);
  }
}

}  // namespace
}  // namespace tslm5
