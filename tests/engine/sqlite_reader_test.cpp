#include <gmock/gmock.h>

#include <limits>

#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class SqliteReaderTest : public EngineTest {
 protected:
  /// A reader on the first record of `sql`.
  Ref<IDataReader> On(std::string_view sql) {
    Ref<IDataReader> reader = connection_->ExecuteReader(sql);
    EXPECT_TRUE(reader->Read()) << sql;
    return reader;
  }
};

TEST_F(SqliteReaderTest, StepsThroughTheRecordsOnce) {
  const auto reader = connection_->ExecuteReader("SELECT 1 UNION ALL SELECT 2;");
  EXPECT_TRUE(reader->Read());
  EXPECT_EQ(reader->GetInteger(0), 1);
  EXPECT_TRUE(reader->Read());
  EXPECT_EQ(reader->GetInteger(0), 2);
  EXPECT_FALSE(reader->Read());
  EXPECT_FALSE(reader->Read());
}

TEST_F(SqliteReaderTest, ReadsNullAsZeroAndEmptyText) {
  const auto reader = On("SELECT NULL, 0");
  EXPECT_EQ(reader->GetInteger(0), 0);
  EXPECT_EQ(reader->GetDouble(0), 0.0);
  EXPECT_EQ(reader->GetString(0), "");
  EXPECT_EQ(reader->GetValue(0), Variant(Null{}));
  EXPECT_TRUE(reader->IsNull(0));
  EXPECT_FALSE(reader->IsNull(1));
}

TEST_F(SqliteReaderTest, GivesEveryKindInEveryWay) {
  struct Case {
    const char* sql;
    std::int32_t integer;
    double real;
    const char* text;
    Variant value;
  };
  const Case cases[] = {
      {"42", 42, 42.0, "42", Variant(42)},
      {"-2147483648", std::numeric_limits<std::int32_t>::min(), -2147483648.0, "-2147483648",
       Variant(std::numeric_limits<std::int32_t>::min())},
      {"2.5", 2, 2.5, "2.5", Variant(2.5)},
      {"3.5", 4, 3.5, "3.5", Variant(3.5)},
      {"-7.0", -7, -7.0, "-7", Variant(-7.0)},
      {"'12.25'", 12, 12.25, "12.25", Variant("12.25")},
      {"' 12 '", 12, 12.0, " 12 ", Variant(" 12 ")},
      {"'word'", 0, 0.0, "word", Variant("word")},
      {"''", 0, 0.0, "", Variant("")},
      {"x'414243'", 0, 0.0, "ABC", Variant("ABC")},
      {"'\u00e9'", 0, 0.0, "\u00e9", Variant("\u00e9")},
  };
  for (const Case& one : cases) {
    const auto reader = On(std::string("SELECT ") + one.sql);
    EXPECT_EQ(reader->GetInteger(0), one.integer) << one.sql;
    EXPECT_EQ(reader->GetDouble(0), one.real) << one.sql;
    EXPECT_EQ(reader->GetString(0), one.text) << one.sql;
    EXPECT_EQ(reader->GetValue(0), one.value) << one.sql;
    EXPECT_FALSE(reader->IsNull(0)) << one.sql;
  }
}

TEST_F(SqliteReaderTest, GivesOneKindWhateverWasAskedBefore) {
  const auto reader = On("SELECT 42, 2.5, '7'");
  for (int round = 0; round < 2; ++round) {
    for (const int field : {0, 1, 2}) reader->GetString(field);
    for (const int field : {0, 1, 2}) reader->GetDouble(field);
    EXPECT_EQ(reader->GetValue(0), Variant(42));
    EXPECT_EQ(reader->GetValue(1), Variant(2.5));
    EXPECT_EQ(reader->GetValue(2), Variant("7"));
  }
}

TEST_F(SqliteReaderTest, TextKeepsANulCharacter) {
  EXPECT_EQ(On("SELECT 'a' || char(0) || 'b'")->GetString(0), std::string("a\0b", 3));
}

TEST_F(SqliteReaderTest, Raises6ForANumberBeyond32Bits) {
  for (const char* sql : {"2147483648", "-2147483649", "9223372036854775807", "1e10", "-1e300",
                          "9e999", "'2147483648'", "'1e10'"}) {
    const auto reader = On(std::string("SELECT ") + sql);
    EXPECT_EQ(RaisedNumber([&] { reader->GetInteger(0); }), error_number::kOverflow) << sql;
  }
  const auto reader = On("SELECT 9223372036854775807");
  EXPECT_EQ(reader->GetString(0), "9223372036854775807");
  EXPECT_EQ(reader->GetDouble(0), 9223372036854775807.0);
  EXPECT_EQ(reader->GetValue(0), Variant(9223372036854775807.0));
}

TEST_F(SqliteReaderTest, ReadsTextAsTheNumberThatItsValueIs) {
  const auto reader = On("SELECT '2.7', 2.7");
  EXPECT_EQ(reader->GetInteger(0), 3);
  EXPECT_EQ(reader->GetInteger(1), 3);
}

TEST_F(SqliteReaderTest, WritesRealsAsTheirShortestText) {
  EXPECT_EQ(On("SELECT 0.1 + 0.2")->GetString(0), "0.30000000000000004");
  EXPECT_EQ(On("SELECT 1.0 / 3")->GetString(0), "0.3333333333333333");
  EXPECT_EQ(On("SELECT 1e300")->GetString(0), "1E+300");
  EXPECT_EQ(On("SELECT 5.0")->GetString(0), "5");
}

TEST_F(SqliteReaderTest, Raises100OffARecord) {
  const auto reader = connection_->ExecuteReader("SELECT 1 WHERE 1 = 0");
  const auto expect_none = [&reader] {
    const Error error = Raised([&] { reader->GetInteger(0); });
    EXPECT_EQ(error.Number(), error_number::kNoCurrentRecord);
    EXPECT_EQ(error.Description(), "no current record");
    EXPECT_EQ(RaisedNumber([&] { reader->GetDouble(0); }), error_number::kNoCurrentRecord);
    EXPECT_EQ(RaisedNumber([&] { reader->GetString(0); }), error_number::kNoCurrentRecord);
    EXPECT_EQ(RaisedNumber([&] { reader->GetValue(0); }), error_number::kNoCurrentRecord);
    EXPECT_EQ(RaisedNumber([&] { reader->IsNull(0); }), error_number::kNoCurrentRecord);
  };
  expect_none();
  EXPECT_FALSE(reader->Read());
  expect_none();
  reader->Close();
  expect_none();
}

TEST_F(SqliteReaderTest, Raises9ForAFieldThatIsNotThere) {
  const auto reader = On("SELECT 1, 2");
  for (const int field : {-1, 2, 1000}) {
    EXPECT_EQ(RaisedNumber([&] { reader->GetInteger(field); }), error_number::kSubscriptOutOfRange);
    EXPECT_EQ(RaisedNumber([&] { reader->GetDouble(field); }), error_number::kSubscriptOutOfRange);
    EXPECT_EQ(RaisedNumber([&] { reader->GetString(field); }), error_number::kSubscriptOutOfRange);
    EXPECT_EQ(RaisedNumber([&] { reader->GetValue(field); }), error_number::kSubscriptOutOfRange);
    EXPECT_EQ(RaisedNumber([&] { reader->IsNull(field); }), error_number::kSubscriptOutOfRange);
    EXPECT_EQ(RaisedNumber([&] { reader->FieldName(field); }), error_number::kSubscriptOutOfRange);
  }
}

TEST_F(SqliteReaderTest, NamesItsFieldsBeforeAndAfterReading) {
  const auto reader = connection_->ExecuteReader("SELECT 1 AS one, 2 AS \"the second\"");
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(reader->FieldCount(), 2);
    EXPECT_EQ(reader->FieldName(0), "one");
    EXPECT_EQ(reader->FieldName(1), "the second");
    reader->Read();
  }
}

TEST_F(SqliteReaderTest, ClosesTwice) {
  const auto reader = On("SELECT 1");
  reader->Close();
  reader->Close();
  EXPECT_FALSE(reader->Read());
  EXPECT_EQ(reader->FieldCount(), 0);
  EXPECT_EQ(RaisedNumber([&] { reader->FieldName(0); }), error_number::kSubscriptOutOfRange);
}

TEST_F(SqliteReaderTest, KeepsItsTableFromBeingDroppedUntilItCloses) {
  Execute("CREATE TABLE t (a INTEGER)");
  Execute("INSERT INTO t VALUES (1), (2)");
  const auto closed = On("SELECT a FROM t");
  const Error error = Raised([&] { Execute("DROP TABLE t"); });
  EXPECT_EQ(error.Number(), 6);
  EXPECT_EQ(error.Description(), "database table is locked [DROP TABLE t]");
  EXPECT_TRUE(closed->Read());
  EXPECT_EQ(closed->GetInteger(0), 2);
  closed->Close();
  Execute("DROP TABLE t");
  EXPECT_FALSE(connection_->TableExists("t"));
}

TEST_F(SqliteReaderTest, LetsItsTableGoAtTheEndAndWhenReleased) {
  for (const bool to_the_end : {true, false}) {
    Execute("CREATE TABLE t (a INTEGER)");
    Execute("INSERT INTO t VALUES (1)");
    auto reader = On("SELECT a FROM t");
    if (to_the_end) {
      EXPECT_FALSE(reader->Read());
    } else {
      reader.Reset();
    }
    EXPECT_EQ(RaisedNumber([&] { Execute("DROP TABLE t"); }), 0) << to_the_end;
  }
}

TEST_F(SqliteReaderTest, EndsWhenARecordFails) {
  const auto reader = connection_->ExecuteReader(
      "SELECT abs(column1) FROM (VALUES (5), (-9223372036854775807 - 1), (7))");
  EXPECT_TRUE(reader->Read());
  const Error error = Raised([&] { reader->Read(); });
  EXPECT_EQ(error.Number(), 1);
  EXPECT_THAT(error.Description(), StartsWith("integer overflow"));
  EXPECT_THAT(error.Description(), HasSubstr("SELECT abs(column1)"));
  EXPECT_EQ(RaisedNumber([&] { reader->GetInteger(0); }), error_number::kNoCurrentRecord);
  EXPECT_FALSE(reader->Read());
}

TEST_F(SqliteReaderTest, TakesOnlyAQuery) {
  Execute("CREATE TABLE t (a INTEGER)");
  for (const std::string sql : {"INSERT INTO t VALUES (9)", "INSERT INTO t VALUES (9) RETURNING a",
                                "DELETE FROM t", "CREATE TABLE u (a)", "BEGIN"}) {
    const Error error = Raised([&] { connection_->ExecuteReader(sql); });
    EXPECT_EQ(error.Number(), 1) << sql;
    EXPECT_EQ(error.Description(), "only a SELECT can be read [" + sql + "]");
  }
  EXPECT_EQ(Listed("SELECT count(*) FROM t"), "0");
  EXPECT_EQ(Listed("SELECT count(*) FROM sqlite_master"), "1");
  EXPECT_EQ(Listed("PRAGMA user_version"), "0");
  EXPECT_EQ(Listed("VALUES (7)"), "7");
  EXPECT_NE(Listed("EXPLAIN INSERT INTO t VALUES (9)"), "");
}

}  // namespace
}  // namespace tslm5
