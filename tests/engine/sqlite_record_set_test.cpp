#include <cmath>

#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

class SqliteRecordSetTest : public EngineTest {
 protected:
  SqliteRecordSetTest() {
    Execute("CREATE TABLE t (d0 FLOAT, d1 TEXT, row INTEGER PRIMARY KEY)");
    Execute("INSERT INTO t VALUES (1.5, 'a', 10), (NULL, '22', 11), (-3, NULL, 12)");
    records_ = Open("SELECT * FROM t");
  }

  Ref<IRecordSet> records_;
};

TEST_F(SqliteRecordSetTest, CountsItsRecordsAndItsFieldsWithTheKey) {
  EXPECT_EQ(records_->RecordCount(), 3);
  EXPECT_EQ(records_->FieldCount(), 3);
}

TEST_F(SqliteRecordSetTest, StartsOnTheFirstRecord) {
  EXPECT_FALSE(records_->EndOfFile());
  EXPECT_EQ(records_->GetField(2), Variant(10));
}

TEST_F(SqliteRecordSetTest, MovesToRecordsCountedFromOne) {
  for (const int number : {3, 1, 2}) {
    records_->MoveTo(number, 0);
    EXPECT_FALSE(records_->EndOfFile());
    EXPECT_EQ(records_->GetField(2), Variant(9 + number));
  }
}

TEST_F(SqliteRecordSetTest, HasNoCurrentRecordOutsideTheResult) {
  for (const int number : {0, -1, 4, std::numeric_limits<int>::max()}) {
    records_->MoveTo(number, 0);
    EXPECT_TRUE(records_->EndOfFile()) << number;
    const Error error = Raised([&] { records_->GetField(0); });
    EXPECT_EQ(error.Number(), error_number::kNoCurrentRecord);
    EXPECT_EQ(error.Description(), "no current record");
    EXPECT_EQ(RaisedNumber([&] { records_->SetField(0, 1.0); }), error_number::kNoCurrentRecord);
  }
  records_->MoveTo(2, 0);
  EXPECT_FALSE(records_->EndOfFile());
}

TEST_F(SqliteRecordSetTest, RefusesAnotherOriginAndStaysWhereItIs) {
  records_->MoveTo(2, 0);
  EXPECT_EQ(RaisedNumber([&] { records_->MoveTo(1, 1); }), error_number::kInvalidCall);
  EXPECT_EQ(records_->GetField(2), Variant(11));
}

TEST_F(SqliteRecordSetTest, GivesEveryFieldInItsOwnKind) {
  EXPECT_EQ(records_->GetField(0), Variant(1.5));
  EXPECT_EQ(records_->GetField(1), Variant("a"));
  records_->MoveTo(2, 0);
  EXPECT_EQ(records_->GetField(0), Variant(Null{}));
  EXPECT_EQ(records_->GetField(1), Variant("22"));
  records_->MoveTo(3, 0);
  EXPECT_EQ(records_->GetField(0), Variant(-3.0));
  EXPECT_EQ(records_->GetField(1), Variant(Null{}));
}

TEST_F(SqliteRecordSetTest, TakesAFieldIndexOfAnyNumericKind) {
  EXPECT_EQ(records_->GetField(2.0), Variant(10));
  EXPECT_EQ(records_->GetField("2"), Variant(10));
  EXPECT_EQ(RaisedNumber([&] { records_->GetField("x"); }), error_number::kTypeMismatch);
}

TEST_F(SqliteRecordSetTest, Raises9ForAFieldThatIsNotThere) {
  for (const int field : {-1, 3, 1000}) {
    EXPECT_EQ(RaisedNumber([&] { records_->GetField(field); }), error_number::kSubscriptOutOfRange);
    EXPECT_EQ(RaisedNumber([&] { records_->SetField(field, 1.0); }),
              error_number::kSubscriptOutOfRange);
  }
}

TEST_F(SqliteRecordSetTest, ReadsNumbersWithoutMoving) {
  double number = 0.0;
  ASSERT_TRUE(records_->ReadNumber(3, 0, &number));
  EXPECT_EQ(number, -3.0);
  ASSERT_TRUE(records_->ReadNumber(3, 2, &number));
  EXPECT_EQ(number, 12.0);
  EXPECT_EQ(records_->GetField(2), Variant(10));
}

TEST_F(SqliteRecordSetTest, ReadsNoNumberForACellThatIsNotThere) {
  const int cells[][2] = {{0, 0}, {-1, 0}, {4, 0}, {1, -1}, {1, 3}};
  for (const auto& [record, field] : cells) {
    double number = 77.0;
    EXPECT_FALSE(records_->ReadNumber(record, field, &number)) << record << ", " << field;
    EXPECT_EQ(number, 77.0);
  }
}

TEST_F(SqliteRecordSetTest, ReadsACellWithoutANumberAsNaN) {
  double number = 0.0;
  ASSERT_TRUE(records_->ReadNumber(2, 0, &number));
  EXPECT_TRUE(std::isnan(number));  // NULL
  number = 0.0;
  ASSERT_TRUE(records_->ReadNumber(1, 1, &number));
  EXPECT_TRUE(std::isnan(number));  // a word
}

TEST_F(SqliteRecordSetTest, ReadsTextThatIsANumberAsThatNumber) {
  double number = 0.0;
  ASSERT_TRUE(records_->ReadNumber(2, 1, &number));
  EXPECT_EQ(number, 22.0);
  const auto literals = Open("SELECT ' -2.5e1 ', '1,5', '0x10', 'inf', '', x'35'");
  const double expected[] = {-25.0, NAN, NAN, NAN, NAN, NAN};
  for (int field = 0; field < 6; ++field) {
    ASSERT_TRUE(literals->ReadNumber(1, field, &number));
    EXPECT_TRUE(std::isnan(expected[field]) ? std::isnan(number) : number == expected[field])
        << field << ": " << number;
  }
  EXPECT_EQ(literals->GetField(0), Variant(" -2.5e1 "));
}

TEST_F(SqliteRecordSetTest, ClosedHasNoRecords) {
  for (int round = 0; round < 2; ++round) {
    records_->Close();
    double number = 0.0;
    EXPECT_TRUE(records_->EndOfFile());
    EXPECT_EQ(records_->RecordCount(), 0);
    EXPECT_EQ(records_->FieldCount(), 0);
    EXPECT_FALSE(records_->ReadNumber(1, 0, &number));
    EXPECT_EQ(RaisedNumber([&] { records_->GetField(0); }), error_number::kNoCurrentRecord);
    EXPECT_EQ(RaisedNumber([&] { records_->SetField(0, 1.0); }), error_number::kNoCurrentRecord);
    EXPECT_EQ(RaisedNumber([&] { records_->Update(); }), 0);
  }
}

TEST_F(SqliteRecordSetTest, KeepsNoStatementOpen) {
  EXPECT_EQ(records_->GetField(0), Variant(1.5));
  EXPECT_EQ(RaisedNumber([&] { Execute("DROP TABLE t"); }), 0);
  EXPECT_FALSE(connection_->TableExists("t"));
}

TEST_F(SqliteRecordSetTest, RaisesTheDatabasesErrorWhenOpened) {
  const Error error = Raised([&] { Open("SELECT * FROM none"); });
  EXPECT_EQ(error.Number(), 1);
  EXPECT_EQ(error.Description(), "no such table: none [SELECT * FROM none]");
  EXPECT_EQ(RaisedNumber([&] { Open("SELECT abs(-9223372036854775807 - 1)"); }), 1);
}

TEST_F(SqliteRecordSetTest, TakesOnlyASelect) {
  for (const char* sql : {"INSERT INTO t VALUES (4, 'b', 13)", "DELETE FROM t RETURNING *",
                          "CREATE TABLE u (a FLOAT)", "BEGIN"}) {
    const Error error = Raised([&] { Open(sql); });
    EXPECT_EQ(error.Number(), 1) << sql;
    EXPECT_EQ(error.Description(), "only a SELECT gives a record set [" + std::string(sql) + "]");
  }
  EXPECT_EQ(records_->RecordCount(), 3);
}

}  // namespace
}  // namespace tslm5
