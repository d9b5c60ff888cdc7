// What some statements do to the tables that they were written for.
#include <gtest/gtest.h>

#include "storage/run_statements.h"
#include "storage/run_tables.h"
#include "storage/test_run.h"

namespace tslm5 {
namespace {

using namespace run_statement;

class RunStatementEffects : public testing::Test {
 protected:
  RunStatementEffects() { CreateRunTables(*run_.Connection()); }

  void InsertLabel(std::string_view set, std::string_view column, std::string_view label) {
    run_.Execute(
        FillStatement(kInsertLabel, {{"<SET_ID>", set}, {"<COLUMN>", column}, {"<LABEL>", label}}));
  }

  TestRun run_;
};

TEST_F(RunStatementEffects, AnApostropheOfALabelReadsBackOnce) {
  InsertLabel("2", "0", "driver''s age");
  EXPECT_EQ(run_.Select(kSelectSeriesLabel), Lines({"driver's age"}));
  EXPECT_EQ(run_.TableRows("DataSetLabels"), Lines({"1|2|0|driver's age"}));
}

TEST_F(RunStatementEffects, LabelsOfOneSetAreDeletedAlone) {
  InsertLabel("1", "0", "a");
  InsertLabel("2", "0", "b");
  run_.Execute(FillStatement(kDeleteLabels, {{"<SET_ID>", "2"}}));
  EXPECT_EQ(run_.TableRows("DataSetLabels"), Lines({"1|1|0|a"}));
  run_.Execute(kDeleteTrainingLabels);
  EXPECT_EQ(run_.TableRows("DataSetLabels"), Lines());
}

TEST_F(RunStatementEffects, ColumnsComeFromTheTrainingLabelsAndTheLastIsTheResponse) {
  InsertLabel("1", "0", "age");
  InsertLabel("2", "0", "elsewhere");
  InsertLabel("1", "1", "d1");
  InsertLabel("1", "2", "price");
  run_.Execute(kFillColumnsFromLabels);
  run_.Execute(kMarkLastColumnAsResponse);
  EXPECT_EQ(run_.Select(kSelectColumns),
            Lines({"1|0|d0|age|0|0|0|0", "2|1|d1|d1|0|0|0|0", "3|2|d2|price|0|0|0|1"}));
  EXPECT_EQ(run_.Select(kSelectResponseName), Lines({"d2"}));
  EXPECT_EQ(run_.Select(kCountLabels), Lines({"2"}));
}

TEST_F(RunStatementEffects, SeriesColumnsSetTheFlagOfTheResponseAlone) {
  run_.Execute(FillStatement(kInsertLagColumn, {{"<COLUMN>", "0"}, {"<LAG>", "2"}}));
  run_.Execute(FillStatement(kInsertLagColumn, {{"<COLUMN>", "1"}, {"<LAG>", "1"}}));
  run_.Execute(FillStatement(kInsertResponseColumn, {{"<COLUMN>", "2"}}));
  EXPECT_EQ(run_.Select("SELECT Name, OriginalLabel, IsNominal, MissingCount, Reserved, IsResponse "
                        "FROM DataSetColumn ORDER BY Id"),
            Lines({"d0|t_2|0|0|0|0", "d1|t_1|0|0|0|0", "d2|t_0|0|0|0|1"}));
}

TEST_F(RunStatementEffects, SeriesLabelsNameTheLagAndTheResponse) {
  run_.Execute(FillStatement(kInsertLagLabel, {{"<COLUMN>", "0"}, {"<LAG>", "1"}}));
  run_.Execute(FillStatement(kInsertResponseLabel, {{"<COLUMN>", "1"}}));
  EXPECT_EQ(run_.TableRows("DataSetLabels"), Lines({"1|1|0|t_1", "2|1|1|t"}));
}

TEST_F(RunStatementEffects, CodesJoinToATextWithoutAPoint) {
  run_.Execute("INSERT INTO DataSetColumnCategories VALUES ('d1', 'red', 2.0, 41)");
  run_.Execute("INSERT INTO DataSetColumnCategories VALUES ('d1', 'blue', 2.5, 7)");
  run_.Execute("INSERT INTO DataSetColumnCategories VALUES ('d1', 'green', '3', 8)");
  run_.Execute("INSERT INTO DataSetColumnCategories VALUES ('d2', 'red', 9, 9)");
  EXPECT_EQ(run_.Select(FillStatement(kSelectCategories, {{"<COLUMN>", "1"}})),
            Lines({"blue|blue 2.5 7", "green|green 3 8", "red|red 2 41"}));
}

TEST_F(RunStatementEffects, NumericCategoriesAreInNumericOrder) {
  for (const char* value : {"10", "9", "-1"}) {
    run_.Execute("INSERT INTO DataSetColumnCategories VALUES ('d0', '" + std::string(value) +
                 "', 1, 1)");
  }
  EXPECT_EQ(run_.Select(FillStatement(kSelectNumericCategories, {{"<COLUMN>", "0"}})),
            Lines({"-1|-1 1 1", "9|9 1 1", "10|10 1 1"}));
}

TEST_F(RunStatementEffects, MissingMappingsReadAsThreeIntegersTwoTextsAndAnInteger) {
  run_.Execute(
      "INSERT INTO MissingMappings (Id, ColumnIndex, MissingCount, OriginalValue, Replacement, "
      "ReplacementType) VALUES (7, 3, 12, '?', 1.0, 2), (8, 3, 5, 'NA', 1.5, 1)");
  EXPECT_EQ(run_.Select(FillStatement(kSelectMissingMappings, {{"<COLUMN>", "3"}})),
            Lines({"7|3|12|?|1|2", "8|3|5|NA|1.5|1"}));
  EXPECT_EQ(run_.Select(FillStatement(kSumMissingCounts, {{"<COLUMN>", "3"}})), Lines({"17"}));
}

TEST_F(RunStatementEffects, ClassStatisticsAreReplacedForTheirDataSetAlone) {
  const auto insert = [this](std::string_view set, std::string_view values) {
    run_.Execute(FillStatement(
        kInsertClassStatistics,
        {{"<SET_ID>", set}, {"<COLUMN>", "0"}, {"<CLASS>", "1"}, {"<VALUES>", values}}));
  };
  insert("1", "1, 2, 3, 4, 5");
  insert("2", "6, 7, 8, 9, 10");
  run_.Execute(FillStatement(kDeleteClassStatistics, {{"<SET_ID>", "1"}}));
  insert("1", "11, 12, 13, 14, 15");
  const auto select = [this](std::string_view set) {
    return run_.Select(FillStatement(kSelectClassStatistics, {{"<SET_ID>", set}}));
  };
  EXPECT_EQ(select("1"), Lines({"0|1|11|12|15"}));
  EXPECT_EQ(select("2"), Lines({"0|1|6|7|10"}));
}

TEST_F(RunStatementEffects, ColumnFiguresSkipMissingCells) {
  run_.Filled(2, {"2 0", "? 0", "4 0", "9 1"});
  EXPECT_EQ(
      run_.Select("SELECT" + FillStatement(kColumnFigures, {{"<XX>", "0"}}) + "FROM TrainingSet"),
      Lines({"2|9|5|4|3.605551275463989"}));
  EXPECT_EQ(
      run_.Select("SELECT" + FillStatement(kClassFigures, {{"<XX>", "0"}}) + "FROM TrainingSet" +
                  FillStatement(kClassCondition, {{"<RESPONSE>", "d1"}, {"<CLASS>", "0"}})),
      Lines({"2|4|3|3|3"}));
}

}  // namespace
}  // namespace tslm5
