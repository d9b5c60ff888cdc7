// `INominalDataSetMetadata::UpdateCategory`: a new code, in the codings and in both tables.
#include <gtest/gtest.h>

#include <limits>

#include "datasetlite/prepared_set.h"
#include "support/locale_variables.h"

namespace tslm5 {
namespace {

class UpdateCategory : public PreparedSetTest {
 protected:
  void Update(std::string_view name, std::string_view nominal, const Variant& value) const {
    Nominal()->UpdateCategory(name, nominal, value);
  }
  /// The error of an update that changes nothing.
  std::int32_t Refusal(std::string_view name, std::string_view nominal,
                       const Variant& value) const {
    const Lines before = All();
    const std::int32_t number = RaisedNumber([&] { Update(name, nominal, value); });
    EXPECT_EQ(All(), before) << nominal;
    return number;
  }
  Lines All() const {
    Lines all = Categories();
    for (const char* table : {"TrainingSet", "TestingSet"}) {
      for (const std::string& row : run_.TableRows(table)) all.push_back(row);
    }
    return all;
  }
};

TEST_F(UpdateCategory, RewritesTheCodeAndTheCellsOfBothTables) {
  Update("d0", "red", 7.5);
  EXPECT_EQ(Categories(),
            (Lines{"d0|red|7.5", "d0|blue|2", "d0|green|3", "d2|no|0", "d2|yes|1", "d2|maybe|2"}));
  EXPECT_EQ(Training("d0"), (Lines{"7.5", "2", "7.5", "3"}));
  EXPECT_EQ(Testing("d0"), (Lines{"7.5", "2"}));
  EXPECT_EQ(Training("d2"), (Lines{"0", "1", "0", "2"}));
}

TEST_F(UpdateCategory, SendsTheseStatements) {
  Update("d0", "red", "-4");
  EXPECT_EQ(
      run_.Log().statements,
      (Lines{"SELECT NumericValue FROM DataSetColumnCategories WHERE Name = 'd0' AND NominalValue "
             "= 'red'",
             "UPDATE DataSetColumnCategories SET NumericValue = -4 WHERE Name = 'd0' AND "
             "NominalValue = 'red'",
             "UPDATE TrainingSet SET d0 = -4 WHERE row IN (SELECT row FROM OriginalData WHERE d0 = "
             "'red')",
             "UPDATE TestingSet SET d0 = -4 WHERE row IN (SELECT row FROM OriginalData WHERE d0 = "
             "'red')"}));
}

TEST_F(UpdateCategory, GoesWithoutATestingSet) {
  Execute("DROP TABLE TestingSet");
  Update("d0", "red", 7);
  EXPECT_EQ(run_.Log().statements.size(), 3U);
  EXPECT_EQ(Training("d0"), (Lines{"7", "2", "7", "3"}));
  EXPECT_EQ(Categories().front(), "d0|red|7");
}

TEST_F(UpdateCategory, IsSeenByEverySetOfTheRun) {
  const LiteSet testing;
  testing.Load(run_, data_set_type::kTesting);
  ASSERT_EQ(set_->GetItem(0, 0), 1.0);
  ASSERT_EQ(testing->GetItem(0, 0), 1.0);
  Update("d0", "red", 9);
  EXPECT_EQ(set_->GetItem(0, 0), 9.0);
  EXPECT_EQ(testing->GetItem(0, 0), 9.0);
  Update("d0", "red", 1);
  EXPECT_EQ(set_->GetItem(0, 0), 1.0);
}

TEST_F(UpdateCategory, KeepsAChangeThatWasWaiting) {
  const Ref<TableLite> table = run_.Table();
  table->Load(Variant(run_.Service()), 1);
  table->PutValue(0, 1, 50.0);
  Update("d0", "red", 9);
  EXPECT_EQ(Training("d0"), (Lines{"9", "50", "9", "3"}));
}

TEST_F(UpdateCategory, DecidesAgainWhetherTheResponseIsBinary) {
  Execute("UPDATE TrainingSet SET d2 = 0 WHERE row = 4");
  EXPECT_TRUE(set_.As<ILRServices>()->IsBinary());
  Update("d2", "yes", 0);
  EXPECT_FALSE(set_.As<ILRServices>()->IsBinary());
}

TEST_F(UpdateCategory, ForgetsTheStatistics) {
  set_->CalculateStatistics(nullptr);
  ASSERT_EQ(set_->GetGlobalCentroid(0), 1.75);
  ASSERT_EQ(set_->GetMax(0, 0, 0), 3.0);
  Update("d0", "red", 9);
  EXPECT_EQ(set_->GetGlobalCentroid(0), 0.0);
  EXPECT_EQ(set_->GetMax(0, 0, 0), 9.0);
  set_->CalculateStatistics(nullptr);
  EXPECT_EQ(set_->GetGlobalCentroid(0), 5.75);
}

TEST_F(UpdateCategory, OfAnUnknownCategoryChangesNothing) {
  EXPECT_EQ(Refusal("d1", "nope", 5), error_number::kNoCurrentRecord);
  EXPECT_EQ(Refusal("d0", "Red", 5), error_number::kNoCurrentRecord);
  EXPECT_EQ(Refusal("d9", "red", 5), error_number::kNoCurrentRecord);
  EXPECT_EQ(run_.Log().statements.size(), 3U);
}

TEST_F(UpdateCategory, TakesNothingButAFiniteNumber) {
  EXPECT_EQ(Refusal("d0", "red", "1,5"), error_number::kTypeMismatch);
  EXPECT_EQ(Refusal("d0", "red", ""), error_number::kTypeMismatch);
  EXPECT_EQ(Refusal("d0", "red", Null{}), error_number::kTypeMismatch);
  EXPECT_EQ(Refusal("d0", "red", std::numeric_limits<double>::quiet_NaN()),
            error_number::kTypeMismatch);
  EXPECT_EQ(Refusal("d0", "red", std::numeric_limits<double>::infinity()), error_number::kOverflow);
  EXPECT_EQ(Refusal("d0", "red", -std::numeric_limits<double>::infinity()),
            error_number::kOverflow);
  EXPECT_TRUE(run_.Log().statements.empty());
}

TEST_F(UpdateCategory, WritesANumberWithAPointInEveryLocale) {
  const LocaleVariables german("de_DE.UTF-8", nullptr, nullptr);
  Update("d0", "red", 1.5);
  Update("d0", "blue", "2.25");
  EXPECT_EQ(Training("d0"), (Lines{"1.5", "2.25", "1.5", "3"}));
}

TEST_F(UpdateCategory, KeepsEveryDigit) {
  Update("d0", "red", 1.0 / 3);
  EXPECT_EQ(set_->GetItem(0, 0), 1.0 / 3);
  Update("d0", "red", 1e300);
  EXPECT_EQ(set_->GetItem(0, 0), 1e300);
}

TEST_F(UpdateCategory, RefusesAnApostropheBeforeTheFirstStatement) {
  Execute("INSERT INTO DataSetColumnCategories VALUES ('d0', 'it''s', 4, 1)");
  for (const char* nominal : {"it's", "red'--", "red' OR 'a'='a",
                              "red'; DELETE FROM TrainingSet; --", "'", "red' AND d0 = 'red"}) {
    EXPECT_EQ(Refusal("d0", nominal, 5), 1) << nominal;
  }
  EXPECT_EQ(Refusal("d0' OR 'a'='a", "red", 5), 1);
  EXPECT_TRUE(run_.Log().statements.empty());
  const Error error = Raised([&] { Update("d0", "it's", 5); });
  EXPECT_EQ(error.Source(), "UpdateCategory");
  EXPECT_EQ(error.Description(),
            "The value \"it's\" holds an apostrophe, which no statement about it can take. Nothing "
            "was changed; write it without one in the original data.");
}

TEST_F(UpdateCategory, KeepsWhatWasDoneBeforeAFailure) {
  Execute("DROP TABLE OriginalData");
  EXPECT_EQ(RaisedNumber([&] { Update("d0", "red", 7); }), 1);
  EXPECT_EQ(Categories().front(), "d0|red|7");
  EXPECT_EQ(Training("d0"), (Lines{"1", "2", "1", "3"}));
}

TEST_F(UpdateCategory, ForgetsTheStatisticsEvenWhenTheTestingSetFails) {
  set_->CalculateStatistics(nullptr);
  run_.Log().FailAt(4, Error(1, "", "the testing set"));
  EXPECT_EQ(RaisedNumber([&] { Update("d0", "red", 9); }), 1);
  run_.Log().before = nullptr;
  EXPECT_EQ(Testing("d0"), (Lines{"1", "2"}));
  EXPECT_EQ(set_->GetMax(0, 0, 0), 9.0);
}

TEST_F(UpdateCategory, IsUndoneWithTheTransactionOfTheApplication) {
  const Ref<IConnection> connection = run_.Connection();
  connection->BeginTrans();
  Update("d0", "red", 7);
  EXPECT_EQ(set_->GetItem(0, 0), 7.0);
  connection->RollbackTrans();
  EXPECT_EQ(set_->GetItem(0, 0), 1.0);
  EXPECT_EQ(Categories().front(), "d0|red|1");
}

}  // namespace
}  // namespace tslm5
