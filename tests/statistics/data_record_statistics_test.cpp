#include "statistics/data_record_statistics.h"

#include <gmock/gmock.h>

#include "statistics/statistics_run.h"

namespace tslm5 {
namespace {

using DataRecordStatistics::CalculateTableStatistics;
using DataRecordStatistics::CompactStrings;
using DataRecordStatistics::GetBatchSize;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

bool Calculate(StatisticsRun& run, std::int32_t id = 1, std::string_view table = "TrainingSet",
               IFeedback* feedback = nullptr) {
  return CalculateTableStatistics(run.Connection(), id, table, feedback);
}

TEST(DataRecordStatistics, StoresMeanMedianExtremesAndDeviationInThatOrder) {
  StatisticsRun run;
  run.MakeTable("TrainingSet", 1, {"1", "2", "6"});
  EXPECT_TRUE(Calculate(run));
  EXPECT_THAT(run.ColumnRows(), ElementsAre("1|0|3|2|1|6|2.6457513110645907"));
}

TEST(DataRecordStatistics, SendsTheColumnPassInOneTransaction) {
  StatisticsRun run;
  run.MakeTable("TrainingSet", 3, {"1, 10, 0", "2, 20, 1", "3, 30, 2"});
  ASSERT_TRUE(Calculate(run, 7));
  EXPECT_THAT(
      run.Log().statements,
      ElementsAre(
          "BEGIN", "SELECT * FROM TrainingSet WHERE 0 = 1", "SELECT COUNT(*) FROM TrainingSet",
          "DELETE FROM DataSetStatistics WHERE DataSetId = 7",
          "SELECT  min(d0), max(d0), avg(d0), median(d0), stdev(d0) , min(d1), max(d1), avg(d1), "
          "median(d1), stdev(d1)  FROM TrainingSet",
          "INSERT INTO DataSetStatistics VALUES (NULL, 7, 0, 2, 2, 1, 3, 1)",
          "INSERT INTO DataSetStatistics VALUES (NULL, 7, 1, 20, 20, 10, 30, 10)",
          "SELECT  min(d2), max(d2), avg(d2), median(d2), stdev(d2)  FROM TrainingSet",
          "INSERT INTO DataSetStatistics VALUES (NULL, 7, 2, 1, 1, 0, 2, 1)", "COMMIT", "BEGIN",
          "SELECT * FROM TrainingSet LIMIT 1", "SELECT * FROM TrainingSet WHERE 0 = 1",
          "SELECT COUNT(*) FROM TrainingSet", "SELECT DISTINCT d2 from TrainingSet", "COMMIT"));
}

TEST(DataRecordStatistics, SendsTheClassPassForTwoClasses) {
  StatisticsRun run;
  run.MakeTable("TrainingSet", 2, {"4, 1", "6, 0.5", "8, 1"});
  ASSERT_TRUE(Calculate(run));
  EXPECT_THAT(
      run.Log().statements,
      Contains("SELECT  min(d0), max(d0), avg(d0), median(d0), COUNT(*) , min(d1), max(d1), "
               "avg(d1), median(d1), COUNT(*)  FROM TrainingSet WHERE d1 = 0.5"));
  EXPECT_THAT(run.Log().statements,
              Contains("DELETE FROM DataSetClassStatistics WHERE DataSetId = 1"));
  EXPECT_THAT(run.ClassRows(), ElementsAre("1|0|0.5|6|6|6|6|1", "1|1|0.5|0.5|0.5|0.5|0.5|1",
                                           "1|0|1|6|6|4|8|2", "1|1|1|1|1|1|1|2"));
}

TEST(DataRecordStatistics, FindsAClassWhoseValueHasManyDigits) {
  StatisticsRun run;
  run.MakeTable("TrainingSet", 1, {"'0.3333333333333333'", "2"});
  ASSERT_TRUE(Calculate(run));
  EXPECT_THAT(run.ClassRows(),
              ElementsAre("1|0|0.3333333333333333|0.3333333333333333|0.3333333333333333|"
                          "0.3333333333333333|0.3333333333333333|1",
                          "1|0|2|2|2|2|2|1"));
}

TEST(DataRecordStatistics, LeavesTheClassesAloneAboveTwo) {
  StatisticsRun run;
  run.MakeTable("TrainingSet", 1, {"1", "2"});
  ASSERT_TRUE(Calculate(run));
  const std::vector<std::string> before = run.ClassRows();
  ASSERT_EQ(before.size(), 2U);
  run.Connection().Execute("INSERT INTO TrainingSet VALUES (3, 3)");
  EXPECT_TRUE(Calculate(run));
  EXPECT_EQ(run.ClassRows(), before);
}

TEST(DataRecordStatistics, TakesAMissingResponseForNoClass) {
  StatisticsRun run;
  run.MakeTable("TrainingSet", 1, {"1", "NULL", "0"});
  ASSERT_TRUE(Calculate(run));
  EXPECT_EQ(run.ClassRows().size(), 2U);
  EXPECT_THAT(run.ColumnRows(), ElementsAre("1|0|0.5|0.5|0|1|0.7071067811865476"));
}

TEST(DataRecordStatistics, TakesATextInTheResponseForNoClass) {
  StatisticsRun run;
  run.MakeTable("TrainingSet", 1, {"2", "'red'", "1", "2"});
  ASSERT_TRUE(Calculate(run));
  EXPECT_THAT(run.ClassRows(), ElementsAre("1|0|1|1|1|1|1|1", "1|0|2|2|2|2|2|2"));
}

TEST(DataRecordStatistics, StoresAMissingFigureAsMinus9999) {
  StatisticsRun run;
  run.MakeTable("TrainingSet", 2, {"NULL, 5"});
  ASSERT_TRUE(Calculate(run));
  EXPECT_THAT(run.ColumnRows(),
              ElementsAre("1|0|-9999|-9999|-9999|-9999|-9999", "1|1|5|5|5|5|-9999"));
}

TEST(DataRecordStatistics, StoresAnInfiniteFigureAsMinus9999) {
  StatisticsRun run;
  run.MakeTable("TrainingSet", 1, {"9e999", "1"});
  ASSERT_TRUE(Calculate(run));
  EXPECT_THAT(run.ColumnRows(), ElementsAre("1|0|-9999|-9999|1|-9999|-9999"));
  EXPECT_THAT(run.ClassRows(), ElementsAre("1|0|1|1|1|1|1|1", "1|0|inf|-9999|-9999|-9999|-9999|1"));
}

TEST(DataRecordStatistics, OfAnEmptyTableHasNoClasses) {
  StatisticsRun run;
  run.MakeTable("TrainingSet", 1, {});
  EXPECT_TRUE(Calculate(run));
  EXPECT_THAT(run.ColumnRows(), ElementsAre("1|0|-9999|-9999|-9999|-9999|-9999"));
  EXPECT_THAT(run.ClassRows(), IsEmpty());
}

TEST(DataRecordStatistics, ReplacesTheFiguresOfItsOwnSetOnly) {
  StatisticsRun run;
  run.MakeTable("TrainingSet", 1, {"1", "3"});
  run.MakeTable("TestingSet", 1, {"5", "7"});
  ASSERT_TRUE(Calculate(run, 2, "TestingSet"));
  ASSERT_TRUE(Calculate(run));
  ASSERT_TRUE(Calculate(run));
  EXPECT_THAT(run.ColumnRows(),
              ElementsAre("2|0|6|6|5|7|1.4142135623730951", "1|0|2|2|1|3|1.4142135623730951"));
}

TEST(DataRecordStatistics, TakesTheClassPassesShapeFromTheTrainingTable) {
  StatisticsRun run;
  run.MakeTable("TrainingSet", 2, {"1, 1"});
  run.MakeTable("TestingSet", 3, {"5, 6, 1"});
  ASSERT_TRUE(Calculate(run, 2, "TestingSet"));
  EXPECT_EQ(run.ColumnRows().size(), 3U);
  EXPECT_EQ(run.ClassRows().size(), 2U);
}

TEST(DataRecordStatistics, MakesTheClassTableOnlyWhenItIsMissing) {
  StatisticsRun run;
  run.MakeTable("TrainingSet", 1, {"1"});
  ASSERT_TRUE(Calculate(run));
  EXPECT_THAT(run.Log().statements, Not(Contains(::testing::StartsWith("CREATE TABLE"))));
  run.Connection().Execute("DROP TABLE DataSetClassStatistics");
  run.Log().Clear();
  ASSERT_TRUE(Calculate(run));
  const std::vector<std::string>& sent = run.Log().statements;
  const auto create = std::find_if(sent.begin(), sent.end(), [](const std::string& statement) {
    return statement.starts_with("CREATE TABLE DataSetClassStatistics (Id INTEGER, ");
  });
  ASSERT_NE(create, sent.end());
  EXPECT_EQ(*(create - 1), "COMMIT");
  EXPECT_EQ(*(create + 1), "BEGIN");
}

TEST(DataRecordStatistics, TakesSoManyColumnsInOneQuery) {
  const struct {
    std::int32_t variables, records, size;
  } cases[] = {{3, 1000, 1},     {9, 49999, 1}, {9, 50000, 5},    {10, 10, 19},
               {99, 100000, 19}, {100, 10, 99}, {150, 100000, 99}};
  for (const auto& [variables, records, size] : cases) {
    EXPECT_EQ(GetBatchSize(variables, records), size) << variables << " x " << records;
  }
}

TEST(DataRecordStatistics, AsksForAHundredAndFiftyColumnsInTwoQueries) {
  StatisticsRun run;
  run.MakeTable("TrainingSet", 150, {});
  ASSERT_TRUE(Calculate(run));
  int queries = 0;
  for (const std::string& statement : run.Log().statements) {
    if (statement.find("stdev(") != std::string::npos) ++queries;
  }
  EXPECT_EQ(queries, 2);
  EXPECT_EQ(run.ColumnRows().size(), 150U);
}

TEST(DataRecordStatistics, CompactsStringsUnlessAllAreEmpty) {
  EXPECT_THAT(CompactStrings({"", "a", "", "b"}), ElementsAre("a", "b"));
  EXPECT_THAT(CompactStrings({"", ""}), ElementsAre("", ""));
  EXPECT_THAT(CompactStrings({}), IsEmpty());
}

}  // namespace
}  // namespace tslm5
