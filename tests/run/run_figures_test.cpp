#include <cmath>

#include "run/run_catalog_fixture.h"
#include "tslm5/contracts/codes.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RunFiguresTest : public RunCatalogFixture {
 protected:
  IRunFigures& Figures() const { return Face<IRunFigures>(); }
};

TEST_F(RunFiguresTest, ReadsTheStatisticsOfASet) {
  run_.Execute("INSERT INTO DataSetStatistics VALUES (NULL, 1, 1, 3, 4, 5, 6, 7)");
  run_.Execute("INSERT INTO DataSetStatistics VALUES (NULL, 1, 0, 1.5, -9999, NULL, 2, 0.5)");
  run_.Execute("INSERT INTO DataSetStatistics VALUES (NULL, 2, 0, 9, 9, 9, 9, 9)");
  std::vector<RunFigures> figures;
  Figures().ReadFigures(data_set_type::kTraining, figures);
  ASSERT_EQ(figures.size(), 2u);
  EXPECT_EQ(figures[0].column, 0);
  EXPECT_EQ(figures[0].centroid, 1.5);
  EXPECT_EQ(figures[0].medoid, std::nullopt) << "-9999 stands for none";
  EXPECT_EQ(figures[0].minimum, std::nullopt);
  EXPECT_EQ(figures[0].maximum, 2.0);
  EXPECT_EQ(figures[0].deviation, 0.5);
  EXPECT_EQ(figures[1].deviation, 7.0);
}

TEST_F(RunFiguresTest, ReadsTheStatisticsOfTheClasses) {
  run_.Execute("INSERT INTO DataSetClassStatistics VALUES (NULL, 1, 1, 1.0, 1, 2, 3, 4, 6)");
  run_.Execute("INSERT INTO DataSetClassStatistics VALUES (NULL, 1, 0, 1.0, 5, 6, 7, 8, 6)");
  run_.Execute("INSERT INTO DataSetClassStatistics VALUES (NULL, 1, 0, 0.0, -9999, 2, 3, 4, 5)");
  std::vector<RunClassFigures> classes;
  Figures().ReadClassFigures(data_set_type::kTraining, classes);
  ASSERT_EQ(classes.size(), 2u);
  EXPECT_EQ(classes[0].value, 0.0);
  EXPECT_EQ(classes[0].records, 5);
  EXPECT_EQ(classes[0].columns[0].centroid, std::nullopt);
  ASSERT_EQ(classes[1].columns.size(), 2u);
  EXPECT_EQ(classes[1].columns[0].maximum, 8.0);
  EXPECT_EQ(classes[1].columns[1].column, 1);
}

TEST_F(RunFiguresTest, DropsTheStatisticsOfOneSet) {
  run_.Execute("INSERT INTO DataSetStatistics VALUES (1, 1, 0, 1, 1, 1, 1, 1)");
  run_.Execute("INSERT INTO DataSetStatistics VALUES (2, 2, 0, 2, 2, 2, 2, 2)");
  run_.Execute("INSERT INTO DataSetClassStatistics VALUES (1, 1, 0, 0.0, 1, 2, 3, 4, 5)");
  Figures().DropFigures(data_set_type::kTraining);
  EXPECT_THAT(run_.Select("SELECT Id FROM DataSetStatistics"), ElementsAre("2"));
  EXPECT_THAT(Rows("DataSetClassStatistics"), IsEmpty());
}

TEST_F(RunFiguresTest, WritesAndReadsScaleFigures) {
  Face<IRunColumns>().WriteColumns({{"a", false, 0, false}, {"b", false, 0, false}}, true);
  EXPECT_FALSE(Figures().HasScaleFigures());
  Figures().WriteScaleFigures({{1.0, 2.0, 3.0, 4.0}, {std::nullopt, 6.0, 7.0, 8.0}});
  EXPECT_TRUE(Figures().HasScaleFigures());
  std::vector<ScaleFigures> figures;
  Figures().ReadScaleFigures(figures);
  ASSERT_EQ(figures.size(), 2u);
  EXPECT_EQ(figures[0].average, 1.0);
  EXPECT_EQ(figures[0].deviation, 2.0);
  EXPECT_EQ(figures[0].minimum, 3.0);
  EXPECT_EQ(figures[0].maximum, 4.0);
  EXPECT_EQ(figures[1].average, std::nullopt);
  EXPECT_THAT(Rows("DataSetStatisticsForCode"), ElementsAre("0|1|2|3|4", "1|NULL|6|7|8"));
  EXPECT_EQ(Rows("DataSetStatisticsForMissing"), Rows("DataSetStatisticsForCode"));
  Figures().DropScaleFigures();
  EXPECT_FALSE(Figures().HasScaleFigures());
}

TEST_F(RunFiguresTest, ComputesScaleFiguresOfEveryColumnOfAWideSet) {
  constexpr int kColumns = 203;  // more than two scans
  std::string names;
  std::string first;
  std::string second;
  for (int i = 0; i < kColumns; ++i) {
    names += "d" + std::to_string(i) + " FLOAT, ";
    first += std::to_string(i) + ", ";
    second += std::to_string(i + 2) + ", ";
  }
  run_.Execute("CREATE TABLE TrainingSet (" + names + "row INTEGER PRIMARY KEY)");
  run_.Execute("INSERT INTO TrainingSet VALUES (" + first + "1)");
  run_.Execute("INSERT INTO TrainingSet VALUES (" + second + "2)");
  Figures().WriteScaleFigures({{9.0, 9.0, 9.0, 9.0}});
  Figures().ComputeScaleFigures(kColumns);
  const Lines rows =
      run_.Select("SELECT Average, Minimum, Maximum FROM DataSetStatisticsForCode ORDER BY 1");
  ASSERT_EQ(rows.size(), std::size_t{kColumns});
  for (int i = 0; i < kColumns; ++i) {
    const std::string line =
        std::to_string(i + 1) + "|" + std::to_string(i) + "|" + std::to_string(i + 2);
    EXPECT_EQ(rows[static_cast<std::size_t>(i)], line);
  }
}

TEST_F(RunFiguresTest, RenewsTheFiguresOfCodesWithoutMissingCells) {
  MakeSet("TrainingSet", {"1, 1", "3, 2", "100, 3"});
  Face<IRunOriginals>().Create(1);
  Face<IRunOriginals>().Append(std::vector<std::string_view>{"elm"}, 1);
  Face<IRunOriginals>().Append(std::vector<std::string_view>{"oak"}, 2);
  Face<IRunOriginals>().Append(std::vector<std::string_view>{"?"}, 3);
  Face<IRunMissingValues>().WriteTokens({{0, "?", 1, 100.0, replacement_type::kNumber}});
  Figures().WriteScaleFigures({{0.0, 0.0, 0.0, 0.0}});
  Figures().RenewScaleFigures(0);
  EXPECT_THAT(run_.Select("SELECT Average, Minimum, Maximum FROM DataSetStatisticsForMissing"),
              ElementsAre("2|1|3"));
}

}  // namespace
}  // namespace tslm5
