// Record sets over tables and results of every shape.

#include <malloc.h>

#include <cmath>
#include <cstdint>

#include "engine/engine_fixture.h"

#if defined(__SANITIZE_ADDRESS__)
#define TSLM5_OWN_ALLOCATOR 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TSLM5_OWN_ALLOCATOR 1
#endif
#endif

namespace tslm5 {
namespace {

class RecordSetShapes : public EngineTest {
 protected:
  /// Fills t (d0 FLOAT, row INTEGER PRIMARY KEY) with `count` records: d0 is i / 2, row is `key`,
  /// an expression of i = 0, 1, …
  void Fill(int count, const std::string& key) {
    Execute("CREATE TABLE t (d0 FLOAT, row INTEGER PRIMARY KEY)");
    Execute("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < " +
            std::to_string(count) + ") INSERT INTO t SELECT i / 2.0, " + key + " FROM n");
  }

  static double Number(const Ref<IRecordSet>& records, int record, int field) {
    double number = -1e99;
    EXPECT_TRUE(records->ReadNumber(record, field, &number)) << record << ", " << field;
    return number;
  }

  /// Expects d0 = i / 2 and row = key(i) in every record, backwards and forwards.
  template <class Key>
  static void ExpectFilled(const Ref<IRecordSet>& records, int count, Key key) {
    ASSERT_EQ(records->RecordCount(), count);
    for (int step = 1; step < 2 * count; ++step) {
      const int record = step < count ? count - step + 1 : step - count + 1;
      ASSERT_EQ(Number(records, record, 0), (record - 1) / 2.0) << record;
      ASSERT_EQ(Number(records, record, 1), static_cast<double>(key(record - 1))) << record;
    }
  }
};

TEST_F(RecordSetShapes, ManyBlocksOfKeysThatFollowEachOther) {
  constexpr int kCount = 50000;
  Fill(kCount, "i + 1");
  ExpectFilled(Open("SELECT * FROM t"), kCount, [](int i) { return i + 1; });
}

TEST_F(RecordSetShapes, ManyBlocksOfKeysWithGaps) {
  constexpr int kCount = 50000;
  Fill(kCount, "i * 3 + i / 7");
  ExpectFilled(Open("SELECT * FROM t;"), kCount, [](int i) { return i * 3 + i / 7; });
}

TEST_F(RecordSetShapes, OneGapAfterKeysThatFollowEachOther) {
  constexpr int kCount = 20000;
  for (const int last : {5, 19000}) {
    Execute("DROP TABLE IF EXISTS t");
    Fill(kCount, "i + (i > " + std::to_string(last) + ")");
    ExpectFilled(Open("SELECT * FROM t"), kCount, [last](int i) { return i + (i > last ? 1 : 0); });
  }
}

TEST_F(RecordSetShapes, NegativeKeys) {
  Fill(20000, "i - 19990");
  ExpectFilled(Open("SELECT * FROM t"), 20000, [](int i) { return i - 19990; });
}

TEST_F(RecordSetShapes, KeysAtBothEndsOf64Bits) {
  Execute("CREATE TABLE t (d0 FLOAT, row INTEGER PRIMARY KEY)");
  Execute("INSERT INTO t VALUES (1, -9223372036854775808), (2, 0), (3, 9223372036854775807)");
  const auto records = Open("SELECT * FROM t");
  ASSERT_EQ(records->RecordCount(), 3);
  for (const int record : {3, 1, 2}) EXPECT_EQ(Number(records, record, 0), record);
  records->MoveTo(3, 0);
  EXPECT_EQ(records->GetField(1), Variant(9223372036854775807.0));
  records->MoveTo(1, 0);
  EXPECT_EQ(records->GetField(1), Variant(-9223372036854775808.0));
}

TEST_F(RecordSetShapes, RecordsFollowTheirKeysWhateverTheirOrderOfInsertion) {
  Execute("CREATE TABLE t (d0 FLOAT, row INTEGER PRIMARY KEY)");
  Execute("INSERT INTO t VALUES (3, 30), (1, 10), (2, 20)");
  Execute("CREATE INDEX i ON t (d0 DESC, row)");
  const auto records = Open("SELECT * FROM t");
  for (const int record : {1, 2, 3}) EXPECT_EQ(Number(records, record, 1), 10.0 * record);
}

TEST_F(RecordSetShapes, NineteenHundredColumns) {
  constexpr int kColumns = 1900;
  std::string columns;
  std::string values;
  for (int i = 0; i < kColumns; ++i) {
    columns += "d" + std::to_string(i) + " FLOAT, ";
    values += std::to_string(i) + " + i, ";
  }
  Execute("CREATE TABLE w (" + columns + "row INTEGER PRIMARY KEY)");
  Execute(
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 150)"
      " INSERT INTO w SELECT " +
      values + "i FROM n");
  const auto records = Open("SELECT * FROM w");
  EXPECT_EQ(records->FieldCount(), kColumns + 1);
  for (const int record : {150, 1, 65, 64, 128, 129}) {
    EXPECT_EQ(Number(records, record, 0), record);
    EXPECT_EQ(Number(records, record, 1899), 1899.0 + record);
    EXPECT_EQ(Number(records, record, 1900), record);
  }
}

/// A table of as many columns as the database takes, and 150 records.
class WidestTable : public FileEngineTest {
 protected:
  static constexpr int kColumns = 1999;

  WidestTable() {
    std::string columns;
    std::string values;
    for (int i = 0; i < kColumns; ++i) {
      columns += "d" + std::to_string(i) + " FLOAT, ";
      values += std::to_string(i) + " + i, ";
    }
    Execute("CREATE TABLE w (" + columns + "row INTEGER PRIMARY KEY)");
    Execute(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 150)"
        " INSERT INTO w SELECT " +
        values + "i FROM n");
  }
};

TEST_F(WidestTable, IsReadAndWritten) {
  const auto records = connection_->OpenRecordSet("SELECT * FROM w");
  EXPECT_EQ(records->FieldCount(), kColumns + 1);
  for (const int record : {150, 1, 65}) {
    records->MoveTo(record, 0);
    EXPECT_EQ(records->GetField(0), Variant(1.0 * record));
    EXPECT_EQ(records->GetField(1998), Variant(1998.0 + record));
    EXPECT_EQ(records->GetField(1999), Variant(record));
  }
  records->SetField(1998, -7.5);
  records->Update();
  EXPECT_EQ(Listed("SELECT d1998 FROM w WHERE d1998 < 0 OR row = 64"), "2062 -7.5");
  EXPECT_EQ(RaisedNumber([&] { records->SetField(1999, 5.0); }), error_number::kInvalidCall);
}

TEST_F(WidestTable, IsReadInBlocks) {
  const auto records = connection_->OpenRecordSet("SELECT * FROM w");
  OpenSecond()->Execute("UPDATE w SET d0 = -1 WHERE row = 150");
  double number = 0.0;
  ASSERT_TRUE(records->ReadNumber(150, 0, &number));
  EXPECT_EQ(number, -1.0);
}

TEST_F(RecordSetShapes, KeysThatAreNotTheRecordsNumber) {
  for (const char* columns :
       {"a INTEGER, b INTEGER, PRIMARY KEY (a, b)", "a INTEGER PRIMARY KEY DESC, b INTEGER",
        "a INT PRIMARY KEY, b INTEGER", "b INTEGER, a INTEGER UNIQUE"}) {
    Execute("DROP TABLE IF EXISTS k");
    Execute("CREATE TABLE k (" + std::string(columns) + ")");
    Execute("INSERT INTO k (a, b) VALUES (30, 1), (10, 2), (20, 3)");
    const auto records = Open("SELECT * FROM k");
    const int b = columns[0] == 'b' ? 0 : 1;
    for (const int record : {1, 2, 3}) EXPECT_EQ(Number(records, record, b), record) << columns;
    records->MoveTo(2, 0);
    records->SetField(b, 7.0);
    records->Update();
    EXPECT_EQ(Listed("SELECT b FROM k WHERE a = 10"), "7") << columns;
    EXPECT_EQ(Listed("SELECT sum(b) FROM k"), "11") << columns;
  }
}

TEST_F(RecordSetShapes, EmptyResultsKeepTheirFields) {
  Execute("CREATE TABLE t (d0 FLOAT, row INTEGER PRIMARY KEY)");
  for (const char* sql : {"SELECT * FROM t", "SELECT d0, row FROM t"}) {
    const auto records = Open(sql);
    EXPECT_TRUE(records->EndOfFile()) << sql;
    EXPECT_EQ(records->RecordCount(), 0);
    EXPECT_EQ(records->FieldCount(), 2);
  }
}

TEST_F(RecordSetShapes, ResultsThatAreNoWholeTable) {
  Fill(20000, "i + 1");
  Execute("CREATE VIEW v AS SELECT row, d0 FROM t WHERE row % 2 = 0");
  Execute("CREATE TABLE k (name TEXT PRIMARY KEY, d0 FLOAT) WITHOUT ROWID");
  Execute("INSERT INTO k VALUES ('b', 2), ('a', 1)");

  const auto view = Open("SELECT * FROM v");
  EXPECT_EQ(view->RecordCount(), 10000);
  EXPECT_EQ(Number(view, 10000, 0), 20000.0);
  const auto keyed = Open("SELECT * FROM k");
  EXPECT_EQ(keyed->RecordCount(), 2);
  EXPECT_EQ(keyed->GetField(0), Variant("a"));
  const auto joined = Open("SELECT k.name, t.d0 FROM k JOIN t ON t.row = k.d0 ORDER BY 1 DESC");
  EXPECT_EQ(joined->RecordCount(), 2);
  EXPECT_EQ(joined->GetField(0), Variant("b"));
  const auto backwards = Open("SELECT d0 FROM t ORDER BY row DESC");
  EXPECT_EQ(backwards->RecordCount(), 20000);
  EXPECT_EQ(Number(backwards, 1, 0), 19999 / 2.0);
  EXPECT_EQ(Number(backwards, 20000, 0), 0.0);
}

TEST_F(RecordSetShapes, ATableWhoseNamesMustBeQuoted) {
  Execute("CREATE TABLE odd (\"a \"\"b\"\"\" FLOAT, \"select\" TEXT)");
  Execute("INSERT INTO odd VALUES (1.5, 'x')");
  const auto records = Open("SELECT * FROM ODD");
  records->SetField(0, 2.5);
  records->Update();
  EXPECT_EQ(Listed("SELECT \"a \"\"b\"\"\" FROM odd"), "2.5");
  EXPECT_EQ(records->GetField(1), Variant("x"));
}

TEST_F(RecordSetShapes, AColumnThatIsNamedLikeTheHiddenKey) {
  Execute("CREATE TABLE r (d0 FLOAT, RowId TEXT)");
  Execute("INSERT INTO r VALUES (1, 'b'), (2, 'a'), (3, 'c')");
  const auto records = Open("SELECT * FROM r");
  EXPECT_EQ(records->RecordCount(), 3);
  for (const int record : {1, 2, 3}) EXPECT_EQ(Number(records, record, 0), record);
}

TEST_F(RecordSetShapes, AColumnThatIsComputed) {
  Execute("CREATE TABLE g (d0 FLOAT, twice AS (d0 * 2), d1 FLOAT)");
  Execute("INSERT INTO g VALUES (1, 7)");
  const auto records = Open("SELECT * FROM g");
  EXPECT_EQ(records->FieldCount(), 3);
  EXPECT_EQ(Number(records, 1, 1), 2.0);
  EXPECT_EQ(Number(records, 1, 2), 7.0);
}

TEST_F(RecordSetShapes, ColumnsOfMixedKinds) {
  Execute("CREATE TABLE m (a, row INTEGER PRIMARY KEY)");
  Execute(
      "INSERT INTO m VALUES (1, 1), (2.5, 2), ('x', 3), (NULL, 4), (4, 5), (x'41', 6),"
      " (9223372036854775807, 7), (1e999, 8), (-2147483649, 9), ('', 10)");
  const Variant expected[] = {1,        2.5,           "x", Null{}, 4, "A", 9223372036854775807.0,
                              INFINITY, -2147483649.0, ""};
  for (const char* sql : {"SELECT * FROM m", "SELECT a FROM m ORDER BY row"}) {
    const auto records = Open(sql);
    ASSERT_EQ(records->RecordCount(), 10);
    for (int record = 1; record <= 10; ++record) {
      records->MoveTo(record, 0);
      EXPECT_EQ(records->GetField(0), expected[record - 1]) << sql << " " << record;
    }
  }
}

TEST_F(RecordSetShapes, OpeningDoesNotReadTheRecords) {
#ifdef TSLM5_OWN_ALLOCATOR
  GTEST_SKIP() << "the sanitizer's allocator does not tell how much is in use";
#endif
  constexpr int kCount = 1000000;
  Fill(kCount, "i + 1");
  Execute("SELECT sum(d0) FROM t");  // so that the page cache grows no more
  const auto in_use = [] {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<std::int64_t>(info.uordblks) + static_cast<std::int64_t>(info.hblkhd);
  };
  const std::int64_t before = in_use();
  const auto records = Open("SELECT * FROM t");
  EXPECT_EQ(records->RecordCount(), kCount);
  EXPECT_EQ(Number(records, kCount, 0), (kCount - 1) / 2.0);
  EXPECT_LT(in_use() - before, 1 << 20);

  const std::int64_t before_all = in_use();
  for (int record = 1; record <= kCount; record += 64) Number(records, record, 0);
  EXPECT_GT(in_use() - before_all, kCount * 8);  // the measure sees the records, once read
}

}  // namespace
}  // namespace tslm5
