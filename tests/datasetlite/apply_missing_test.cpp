// `IMissingMetadata::ApplyMissing`: the replacements of a column, into both tables or into none.
#include <gtest/gtest.h>

#include "datasetlite/prepared_set.h"

namespace tslm5 {
namespace {

class ApplyMissing : public PreparedSetTest {
 protected:
  bool Apply(std::int32_t column = 1) const { return Missing()->ApplyMissing(column); }
  void Normalize(std::string_view type, std::string_view low = "0",
                 std::string_view high = "0") const {
    Execute("INSERT INTO RunParameters VALUES ('data', 'NormalizationType', " + std::string(type) +
            ", 0), ('data', 'NormalizationNewMinValue', 0, " + std::string(low) +
            "), ('data', 'NormalizationNewMaxValue', 0, " + std::string(high) + ")");
  }
  /// Mean, minimum and maximum for missing values, deviation for code; the other figures of both
  /// tables are decoys.
  void Figures(std::string_view mean, std::string_view minimum, std::string_view maximum,
               std::string_view deviation) const {
    Execute("INSERT INTO DataSetStatisticsForMissing VALUES (1, " + std::string(mean) + ", 1e9, " +
            std::string(minimum) + ", " + std::string(maximum) + ")");
    Execute("INSERT INTO DataSetStatisticsForCode VALUES (1, 1e9, " + std::string(deviation) +
            ", -1e9, 1e9)");
  }
  /// Applying fails without an error, and nothing changes.
  void ExpectFailure() const {
    const Lines before = Training("d1");
    EXPECT_FALSE(Apply());
    EXPECT_EQ(run_.Log().statements.back(), "ROLLBACK");
    EXPECT_FALSE(run_.InTransaction());
    EXPECT_EQ(Training("d1"), before);
    EXPECT_EQ(Testing("d1"), (Lines{"NULL", "40"}));
  }
};

TEST_F(ApplyMissing, WritesEachTokensReplacementIntoBothTables) {
  EXPECT_TRUE(Apply());
  EXPECT_EQ(Training("d1"), (Lines{"10", "5", "7.5", "30"}));
  EXPECT_EQ(Testing("d1"), (Lines{"5", "40"}));
  EXPECT_EQ(Training("d0"), (Lines{"1", "2", "1", "3"}));
}

TEST_F(ApplyMissing, SendsTheseStatements) {
  EXPECT_TRUE(Apply());
  constexpr const char* kGap = " WHERE row IN (SELECT od.row FROM OriginalData od WHERE od.d1 = '";
  EXPECT_EQ(run_.Log().statements,
            (Lines{"BEGIN",
                   "SELECT OriginalValue, Replacement FROM MissingMappings WHERE ColumnIndex = 1 "
                   "ORDER BY Id",
                   "SELECT intvalue FROM RunParameters WHERE element='NormalizationType'",
                   "UPDATE TrainingSet SET d1 = 5" + std::string(kGap) + "?')",
                   "UPDATE TestingSet SET d1 = 5" + std::string(kGap) + "?')",
                   "UPDATE TrainingSet SET d1 = 7.5" + std::string(kGap) + "NA')",
                   "UPDATE TestingSet SET d1 = 7.5" + std::string(kGap) + "NA')", "COMMIT"}));
}

TEST_F(ApplyMissing, ReadsFiguresAndRangeAfreshForEachToken) {
  Normalize("3", "-1", "1");
  Figures("5", "0", "10", "2");
  EXPECT_TRUE(Apply());
  const Lines figures = {"SELECT Minimum FROM DataSetStatisticsForMissing WHERE ColumnIndex=1",
                         "SELECT Maximum FROM DataSetStatisticsForMissing WHERE ColumnIndex=1",
                         "SELECT floatvalue FROM RunParameters WHERE "
                         "element='NormalizationNewMinValue'",
                         "SELECT floatvalue FROM RunParameters WHERE "
                         "element='NormalizationNewMaxValue'"};
  const Lines& sent = run_.Log().statements;
  ASSERT_EQ(sent.size(), 16U);
  EXPECT_EQ(Lines(sent.begin() + 3, sent.begin() + 7), figures);
  EXPECT_EQ(Lines(sent.begin() + 7, sent.begin() + 11), figures);
}

TEST_F(ApplyMissing, TransformsAReplacementAsTheDataWere) {
  struct Case {
    const char* type;
    Lines training;
  };
  // The replacements are 5 and 7.5; mean 3, minimum 0, maximum 10, deviation 4; range -1 to 1.
  const Case cases[] = {
      {"0", {"10", "5", "7.5", "30"}},    {"1", {"10", "0.5", "1.125", "30"}},
      {"2", {"10", "0.5", "0.75", "30"}}, {"3", {"10", "0", "0.5", "30"}},
      {"7", {"10", "0", "0", "30"}},      {"-1", {"10", "0", "0", "30"}},
      {"NULL", {"10", "5", "7.5", "30"}},
  };
  Figures("3", "0", "10", "4");
  for (const Case& one : cases) {
    Execute("DELETE FROM RunParameters");
    Normalize(one.type, "-1", "1");
    EXPECT_TRUE(Apply()) << one.type;
    EXPECT_EQ(Training("d1"), one.training) << one.type;
  }
}

TEST_F(ApplyMissing, FailsWhereTheTransformationDividesByZero) {
  for (const char* type : {"1", "2", "3"}) {
    Execute("DELETE FROM RunParameters");
    Execute("DELETE FROM DataSetStatisticsForMissing");
    Execute("DELETE FROM DataSetStatisticsForCode");
    Normalize(type, "-1", "1");
    Figures("5", "8", "8", "0");
    ExpectFailure();
  }
}

TEST_F(ApplyMissing, FailsWhereTheTransformationOverflows) {
  Normalize("1");
  Figures("-1.7e308", "0", "1", "0.5");
  ExpectFailure();
  Execute("UPDATE RunParameters SET intvalue = 2 WHERE element = 'NormalizationType'");
  Execute("UPDATE DataSetStatisticsForMissing SET Minimum = -1.7e308, Maximum = 1.7e308");
  ExpectFailure();
  Execute("UPDATE RunParameters SET intvalue = 0 WHERE element = 'NormalizationType'");
  Execute("UPDATE MissingMappings SET Replacement = 9e999");
  ExpectFailure();
}

TEST_F(ApplyMissing, FailsWithoutTheFiguresThatItNeeds) {
  Normalize("1");
  ExpectFailure();
  Execute("UPDATE RunParameters SET intvalue = 0");
  EXPECT_TRUE(Apply());
}

TEST_F(ApplyMissing, SkipsATokenWithoutAReplacement) {
  Execute("UPDATE MissingMappings SET Replacement = NULL WHERE OriginalValue = '?'");
  EXPECT_TRUE(Apply());
  EXPECT_EQ(Training("d1"), (Lines{"10", "NULL", "7.5", "30"}));
  EXPECT_EQ(run_.Log().statements.size(), 6U);
}

TEST_F(ApplyMissing, FailsOnAReplacementThatIsNoNumber) {
  Execute("UPDATE MissingMappings SET Replacement = 'mean' WHERE OriginalValue = 'NA'");
  ExpectFailure();
}

TEST_F(ApplyMissing, OfAColumnWithoutTokensDoesNothingAndSucceeds) {
  EXPECT_TRUE(Apply(0));
  EXPECT_TRUE(Apply(99));
  EXPECT_TRUE(Apply(-1));
  EXPECT_EQ(run_.Log().statements.back(), "COMMIT");
  EXPECT_EQ(Training("d1"), (Lines{"10", "NULL", "NULL", "30"}));
}

TEST_F(ApplyMissing, FailsForAColumnThatTheTablesDoNotHave) {
  Execute("INSERT INTO MissingMappings VALUES (9, 4, 1, '?', 5, 2)");
  EXPECT_FALSE(Apply(4));
  EXPECT_FALSE(run_.InTransaction());
}

TEST_F(ApplyMissing, ATokenThatIsNullStandsForAnEmptyText) {
  Execute("UPDATE OriginalData SET d1 = '' WHERE row = 2");
  Execute("UPDATE OriginalData SET d1 = NULL WHERE row = 3");
  Execute("UPDATE MissingMappings SET OriginalValue = NULL WHERE Id = 7");
  EXPECT_TRUE(Apply());
  EXPECT_EQ(Training("d1"), (Lines{"10", "5", "NULL", "30"}));
}

TEST_F(ApplyMissing, GoesWithoutATestingSet) {
  Execute("DROP TABLE TestingSet");
  EXPECT_TRUE(Apply());
  EXPECT_EQ(run_.Log().statements.size(), 6U);
  EXPECT_EQ(Training("d1"), (Lines{"10", "5", "7.5", "30"}));
}

TEST_F(ApplyMissing, AgainWritesAChangedReplacement) {
  EXPECT_TRUE(Apply());
  Missing()->UpdateMissing(1, "?", 100, 2);
  EXPECT_TRUE(Apply());
  EXPECT_EQ(Training("d1"), (Lines{"10", "100", "7.5", "30"}));
  EXPECT_EQ(Testing("d1"), (Lines{"100", "40"}));
}

TEST_F(ApplyMissing, RewritesWhateverStoodThere) {
  Execute("UPDATE TrainingSet SET d1 = 77");
  EXPECT_TRUE(Apply());
  EXPECT_EQ(Training("d1"), (Lines{"77", "5", "7.5", "77"}));
}

TEST_F(ApplyMissing, IsAllOrNothing) {
  for (std::size_t statement = 1; statement <= 8; ++statement) {
    run_.Log().FailAt(statement, Error(1, "", "failed"));
    EXPECT_FALSE(Apply()) << statement;
    run_.Log().before = nullptr;
    EXPECT_FALSE(run_.InTransaction()) << statement;
    EXPECT_EQ(Training("d1"), (Lines{"10", "NULL", "NULL", "30"})) << statement;
    EXPECT_EQ(Testing("d1"), (Lines{"NULL", "40"})) << statement;
  }
}

TEST_F(ApplyMissing, FailsOnATokenWithAnApostrophe) {
  for (const char* token : {"it''s", "?'' OR ''a''=''a", "?''--"}) {
    Execute("DELETE FROM MissingMappings WHERE Id = 9");
    Execute("INSERT INTO MissingMappings VALUES (9, 1, 1, '" + std::string(token) + "', 5, 2)");
    run_.Log().Clear();
    ExpectFailure();
    for (const std::string& statement : run_.Log().statements) {
      EXPECT_FALSE(statement.starts_with("UPDATE")) << statement;
    }
  }
}

TEST_F(ApplyMissing, EndsItsOwnTransactionAlone) {
  const Ref<IConnection> connection = run_.Connection();
  connection->BeginTrans();
  Execute("UPDATE TrainingSet SET d0 = 9 WHERE row = 1");
  EXPECT_TRUE(Apply());
  Execute("UPDATE MissingMappings SET Replacement = 'mean' WHERE OriginalValue = 'NA'");
  Execute("UPDATE MissingMappings SET Replacement = 100 WHERE OriginalValue = '?'");
  EXPECT_FALSE(Apply());
  EXPECT_EQ(Training("d0"), (Lines{"9", "2", "1", "3"}));
  EXPECT_EQ(Training("d1"), (Lines{"10", "5", "7.5", "30"}));
  connection->RollbackTrans();
  EXPECT_EQ(Training("d0"), (Lines{"1", "2", "1", "3"}));
  EXPECT_EQ(Training("d1"), (Lines{"10", "NULL", "NULL", "30"}));
}

TEST_F(ApplyMissing, IsSeenAtOnceAndForgetsTheStatistics) {
  set_->CalculateStatistics(nullptr);
  ASSERT_EQ(set_->GetGlobalCentroid(1), 20.0);
  ASSERT_EQ(set_->GetMin(1, 0, 0), 10.0);
  EXPECT_TRUE(Apply());
  EXPECT_EQ(set_->GetItem(1, 1), 5.0);
  EXPECT_EQ(set_->GetMin(1, 0, 0), 5.0);
  EXPECT_EQ(set_->GetGlobalCentroid(1), 0.0);
}

TEST_F(ApplyMissing, KeepsTheStatisticsWhenItFails) {
  set_->CalculateStatistics(nullptr);
  Execute("UPDATE MissingMappings SET Replacement = 'mean'");
  EXPECT_FALSE(Apply());
  EXPECT_EQ(set_->GetGlobalCentroid(1), 20.0);
}

}  // namespace
}  // namespace tslm5
