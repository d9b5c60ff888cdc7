#include "storage/sqlite_helpers.h"

#include <gtest/gtest.h>

#include "platform/raised.h"
#include "storage/run_tables.h"
#include "storage/test_run.h"

namespace tslm5 {
namespace {

class SqliteHelpersTest : public testing::Test {
 protected:
  SqliteHelpersTest() { CreateRunTables(*run_.Connection()); }

  void AddParameter(std::string_view values) const {
    run_.Execute("INSERT INTO RunParameters VALUES (" + std::string(values) + ")");
  }
  double FloatParameter(std::string_view element) const {
    return SqliteHelpers::GetFloatParameter(*connection_, element);
  }
  std::int32_t IntParameter(std::string_view element) const {
    return SqliteHelpers::GetIntParameter(*connection_, element);
  }

  TestRun run_;
  Ref<IConnection> connection_ = ConnectionOf(run_.Service().get());
};

TEST_F(SqliteHelpersTest, GivesTheFirstFieldOfTheFirstRecord) {
  constexpr std::string_view kTwoRecords = "SELECT 2.5, 7 UNION ALL SELECT 4.5, 9";
  EXPECT_EQ(SqliteHelpers::QueryDouble(*connection_, kTwoRecords), 2.5);
  EXPECT_EQ(SqliteHelpers::QueryString(*connection_, kTwoRecords), "2.5");
  EXPECT_EQ(SqliteHelpers::QueryInteger(*connection_, "SELECT 7, 8"), 7);
  EXPECT_EQ(run_.Log().statements,
            (Lines{std::string(kTwoRecords), std::string(kTwoRecords), "SELECT 7, 8"}));
}

TEST_F(SqliteHelpersTest, ReadsNullAsNothing) {
  EXPECT_EQ(SqliteHelpers::QueryDouble(*connection_, "SELECT NULL"), 0.0);
  EXPECT_EQ(SqliteHelpers::QueryInteger(*connection_, "SELECT SUM(row) FROM OriginalData"), 0);
  EXPECT_EQ(SqliteHelpers::QueryString(*connection_, "SELECT NULL"), "");
}

TEST_F(SqliteHelpersTest, RaisesWhenThereIsNoRecord) {
  constexpr std::string_view kNone = "SELECT row FROM OriginalData";
  const Error error = Raised([&] { SqliteHelpers::QueryDouble(*connection_, kNone); });
  EXPECT_EQ(error.Number(), error_number::kNoCurrentRecord);
  EXPECT_EQ(error.Description(), "no current record");
  EXPECT_EQ(RaisedNumber([&] { SqliteHelpers::QueryInteger(*connection_, kNone); }), 100);
  EXPECT_EQ(RaisedNumber([&] { SqliteHelpers::QueryString(*connection_, kNone); }), 100);
}

TEST_F(SqliteHelpersTest, PassesTheEnginesErrorsOn) {
  EXPECT_EQ(RaisedNumber([&] { SqliteHelpers::QueryInteger(*connection_, "SELEKT 1"); }), 1);
  EXPECT_EQ(RaisedNumber([&] { SqliteHelpers::QueryInteger(*connection_, "SELECT 1e10"); }),
            error_number::kOverflow);
  run_.Execute("DROP TABLE RunParameters");
  EXPECT_EQ(RaisedNumber([&] { IntParameter("x"); }), 1);
}

TEST_F(SqliteHelpersTest, LetsItsTableGo) {
  AddParameter("'n', 'x', 1, 2.5");
  AddParameter("'n', 'x', 3, 4.5");
  SqliteHelpers::QueryDouble(*connection_, "SELECT floatvalue FROM RunParameters");
  IntParameter("x");
  FloatParameter("x");
  run_.Execute("DROP TABLE RunParameters");  // refused while a reader is open
}

TEST_F(SqliteHelpersTest, FindsAParameterByItsElementInAnyNamespace) {
  AddParameter("'other', 'range', 9, 9.5");
  AddParameter("'missing', 'NormalizationType', 3, 4.5");
  AddParameter("'later', 'NormalizationType', 7, 8.5");
  EXPECT_EQ(IntParameter("NormalizationType"), 3);
  EXPECT_EQ(FloatParameter("NormalizationType"), 4.5);
  EXPECT_EQ(run_.Log().statements,
            (Lines{"SELECT intvalue FROM RunParameters WHERE element='NormalizationType'",
                   "SELECT floatvalue FROM RunParameters WHERE element='NormalizationType'"}));
}

TEST_F(SqliteHelpersTest, AnAbsentParameterIs0) {
  AddParameter("'n', 'x', 1, 2.5");
  EXPECT_EQ(IntParameter("X"), 0) << "element names match by case";
  EXPECT_EQ(FloatParameter("y"), 0.0);
}

TEST_F(SqliteHelpersTest, AParameterWithoutAValueIs0) {
  AddParameter("'n', 'x', NULL, NULL");
  EXPECT_EQ(IntParameter("x"), 0);
  EXPECT_EQ(FloatParameter("x"), 0.0);
}

TEST_F(SqliteHelpersTest, PastesTheElementAsItIs) {
  EXPECT_EQ(RaisedNumber([&] { IntParameter("it's"); }), 1);
}

}  // namespace
}  // namespace tslm5
