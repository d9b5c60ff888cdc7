#include "datasetlite/missing_figures.h"

#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

class MissingFigures : public DataSetLiteTest {
 protected:
  MissingFigures() {
    state_.run = Ref<IUnknown>(run_.Service());
    run_.Execute("INSERT INTO DataSetStatisticsForMissing VALUES (3, 1.5, 2.5, 3.5, 4.5)");
    run_.Execute("INSERT INTO DataSetStatisticsForCode VALUES (3, 11.5, 12.5, 13.5, 14.5)");
    run_.Execute("INSERT INTO DataSetStatisticsForMissing VALUES (4, NULL, 22.5, 23.5, 24.5)");
  }
  double Figure(std::int32_t column, std::string_view type) const {
    return MissingStatisticsValue(state_, column, type);
  }

  DataSetLiteState state_;
};

TEST_F(MissingFigures, TakesTheDeviationFromTheFiguresForCode) {
  EXPECT_EQ(Figure(3, "Average"), 1.5);
  EXPECT_EQ(Figure(3, "StandardDeviation"), 12.5);
  EXPECT_EQ(Figure(3, "Minimum"), 3.5);
  EXPECT_EQ(Figure(3, "Maximum"), 4.5);
  EXPECT_EQ(run_.Log().statements,
            (Lines{"SELECT Average FROM DataSetStatisticsForMissing WHERE ColumnIndex=3",
                   "SELECT StandardDeviation FROM DataSetStatisticsForCode WHERE ColumnIndex=3",
                   "SELECT Minimum FROM DataSetStatisticsForMissing WHERE ColumnIndex=3",
                   "SELECT Maximum FROM DataSetStatisticsForMissing WHERE ColumnIndex=3"}));
}

TEST_F(MissingFigures, TakesADeviationOfAnotherCaseFromTheFiguresForMissing) {
  EXPECT_EQ(Figure(3, "standarddeviation"), 2.5);
  EXPECT_EQ(run_.Log().statements.back(),
            "SELECT standarddeviation FROM DataSetStatisticsForMissing WHERE ColumnIndex=3");
}

TEST_F(MissingFigures, ReadsThemAfresh) {
  EXPECT_EQ(Figure(3, "Average"), 1.5);
  run_.Execute("UPDATE DataSetStatisticsForMissing SET Average = 9");
  EXPECT_EQ(Figure(3, "Average"), 9.0);
}

TEST_F(MissingFigures, AFigureThatIsNullIs0) {
  EXPECT_EQ(Figure(4, "Average"), 0.0);
}

TEST_F(MissingFigures, OfAColumnWithoutThemRaises100) {
  EXPECT_EQ(RaisedNumber([&] { Figure(7, "Average"); }), 100);
  EXPECT_EQ(RaisedNumber([&] { Figure(4, "StandardDeviation"); }), 100);
  EXPECT_EQ(RaisedNumber([&] { Figure(-1, "Maximum"); }), 100);
}

TEST_F(MissingFigures, OfAnUnknownKindIsTheEnginesError) {
  EXPECT_EQ(RaisedNumber([&] { Figure(3, "Median"); }), 1);
  EXPECT_EQ(RaisedNumber([&] { Figure(3, ""); }), 1);
}

TEST_F(MissingFigures, WithoutARunRaises41001) {
  state_.run.Reset();
  EXPECT_EQ(RaisedNumber([&] { Figure(3, "Average"); }), 41001);
}

}  // namespace
}  // namespace tslm5
