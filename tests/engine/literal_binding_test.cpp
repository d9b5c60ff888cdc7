// Random INSERTs through the engine and through SQLite alone: the same errors, and in the file the
// same values down to their bits. They may differ only where SQLite's own conversion of a decimal
// text is a last place off; the engine's is correctly rounded.

#include <charconv>
#include <cmath>

#include "engine/bare_database.h"
#include "engine/engine_fixture.h"
#include "engine/insert_literals.h"
#include "engine/random_inserts.h"

namespace tslm5 {
namespace {

constexpr int kColumns = RandomInserts::kColumns;
constexpr const char* kMakeTable =
    "CREATE TABLE t (f FLOAT, r REAL, s TEXT, i INTEGER, n NUMERIC, b BLOB, x)";

/// The number of a decimal text by the standard library; NaN when the text is none.
double CorrectlyRounded(std::string_view text) {
  double number = std::nan("");
  if (text.starts_with('+')) text.remove_prefix(1);
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

/// Whether `value` is the correctly rounded value of some number in `sql`.
bool IsRoundedFrom(const std::string& sql, double value) {
  for (std::size_t at = 0; at < sql.size(); ++at) {
    const double number = CorrectlyRounded(std::string_view(sql).substr(at));
    if (number == value || -number == value) return true;
  }
  return false;
}

bool AreNeighbours(double one, double other) {
  return std::nextafter(one, other) == other;
}

TEST(LiteralBindingRandom, StoresWhatSqliteStores) {
  const TempFolder folder;
  const std::string path = folder.File("run.db");
  const Ref<IConnection> connection = ConnectionOf(OpenRun(path, Creating()));
  connection->Execute(kMakeTable);
  BareDatabase stored(path);
  BareDatabase alone(":memory:");
  ASSERT_EQ(alone.Run(kMakeTable), 0);

  RandomInserts generator;
  int known = 0;
  int refused = 0;
  int rounded_otherwise = 0;
  for (int batch = 0; batch < 80; ++batch) {
    std::vector<std::string> done;
    connection->BeginTrans();
    alone.Run("BEGIN");
    connection->Execute("DELETE FROM t");
    alone.Run("DELETE FROM t");
    for (int i = 0; i < 500; ++i) {
      const std::string sql = generator.Statement();
      const int number = RaisedNumber([&] { connection->Execute(sql); });
      ASSERT_EQ(number, alone.Run(sql)) << sql;
      if (number != 0) {
        ++refused;
        continue;
      }
      done.push_back(sql);
      InsertLiterals literals(std::string_view(sql).substr(sql.find('(') + 1));
      InsertLiteral literal;
      int taken = 0;
      while (taken < kColumns && literals.Next(literal)) ++taken;
      if (taken == kColumns && literals.AtEnd()) ++known;
    }
    connection->CommitTrans();
    alone.Run("COMMIT");

    const auto ours = stored.Records("SELECT * FROM t ORDER BY rowid");
    const auto theirs = alone.Records("SELECT * FROM t ORDER BY rowid");
    ASSERT_EQ(ours.size(), done.size());
    ASSERT_EQ(theirs.size(), done.size());
    for (std::size_t record = 0; record < done.size(); ++record) {
      for (std::size_t column = 0; column < kColumns; ++column) {
        const BareValue& our = ours[record][column];
        const BareValue& their = theirs[record][column];
        if (our == their) continue;
        ASSERT_EQ(our.type, their.type) << column << ": " << done[record];
        ASSERT_EQ(our.integer, their.integer) << column << ": " << done[record];
        ASSERT_EQ(our.bytes, their.bytes) << column << ": " << done[record];
        ASSERT_TRUE(AreNeighbours(our.real, their.real)) << column << ": " << done[record];
        ASSERT_TRUE(IsRoundedFrom(done[record], our.real)) << column << ": " << done[record];
        ++rounded_otherwise;
      }
    }
  }
  // Both ways, and both outcomes, were met often enough.
  RecordProperty("known", known);
  RecordProperty("refused", refused);
  RecordProperty("rounded_otherwise", rounded_otherwise);
  EXPECT_GT(known, 15000);
  EXPECT_LT(known + refused, 38000);
  EXPECT_GT(refused, 2000);
}

TEST(LiteralBindingRandom, RoundsNumericTextCorrectly) {
  const TempFolder folder;
  const std::string path = folder.File("run.db");
  const Ref<IConnection> connection = ConnectionOf(OpenRun(path, Creating()));
  connection->Execute("CREATE TABLE t (f FLOAT, r DOUBLE PRECISION)");
  RandomInserts generator;
  std::vector<double> expected;
  connection->BeginTrans();
  while (expected.size() < 20000) {
    const std::string text = generator.Number();
    const double number = CorrectlyRounded(text);
    double checked = 0.0;
    if (!ParseNumber(text, '.', checked) || !std::isfinite(number)) continue;
    connection->Execute("INSERT INTO t VALUES ('" + text + "', '-" + text + "')");
    expected.push_back(number);
  }
  connection->CommitTrans();
  const auto records = BareDatabase(path).Records("SELECT f, r FROM t ORDER BY rowid");
  ASSERT_EQ(records.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    ASSERT_EQ(records[i][0].real, expected[i]) << i;
    ASSERT_EQ(records[i][1].real, -expected[i]) << i;
  }
}

TEST(LiteralBindingRandom, FollowsEveryDeclaredType) {
  const TempFolder folder;
  const std::string path = folder.File("run.db");
  const Ref<IConnection> connection = ConnectionOf(OpenRun(path, Creating()));
  BareDatabase stored(path);
  BareDatabase alone(":memory:");
  for (const char* type : {"",
                           "FLOAT",
                           "float",
                           "Real",
                           "DOUBLE PRECISION",
                           "FLOATING POINT",
                           "xdoubx",
                           "INT FLOAT",
                           "FLOAT INT",
                           "POINT",
                           "CHAR REAL",
                           "REAL TEXT",
                           "CLOB DOUBLE",
                           "BLOB REAL",
                           "REAL BLOB",
                           "NUMERIC",
                           "DECIMAL(10,2)",
                           "BOOLEAN",
                           "DATE",
                           "VARCHAR(9)",
                           "INTEGER",
                           "BIGINT"}) {
    connection->BeginTrans();
    for (const std::string& sql :
         {std::string("DROP TABLE IF EXISTS t"), "CREATE TABLE t (a " + std::string(type) + ")"}) {
      connection->Execute(sql);
      alone.Run(sql);
    }
    for (const char* value :
         {"'1.50'", "'5'", "'5.0'", "'9007199254740993'", "' 7 '", "'word'", "'-0'", "-0.0", "12",
          "2.5", "-2.50e2", "NULL", "''", "'1e3'", "1e3", "'it''s'"}) {
      const std::string sql = "INSERT INTO t VALUES (" + std::string(value) + ")";
      connection->Execute(sql);
      alone.Run(sql);
    }
    connection->CommitTrans();
    EXPECT_EQ(alone.Records("SELECT a FROM t").size(), 16u);
    EXPECT_EQ(stored.Records("SELECT a FROM t"), alone.Records("SELECT a FROM t")) << type;
  }
}

TEST(LiteralBindingRandom, TakesNoMoreRoomThanSqlite) {
  const TempFolder folder;
  const std::string path = folder.File("run.db");
  const Ref<IConnection> connection = ConnectionOf(OpenRun(path, Creating()));
  connection->Execute(kMakeTable);
  BareDatabase alone(folder.File("alone.db"));
  alone.Run(kMakeTable);
  connection->BeginTrans();
  alone.Run("BEGIN");
  for (int i = 0; i < 5000; ++i) {
    std::string sql = "INSERT INTO t VALUES (";
    for (int column = 0; column < kColumns; ++column) {
      sql += (column > 0 ? ",'" : "'") + std::to_string(i * column % 200) + "'";
    }
    connection->Execute(sql + ")");
    alone.Run(sql + ")");
  }
  connection->CommitTrans();
  alone.Run("COMMIT");
  EXPECT_EQ(std::filesystem::file_size(path), std::filesystem::file_size(folder.File("alone.db")));
}

}  // namespace
}  // namespace tslm5
