// Figures of columns come from one scan where that is possible: they must be those that SQLite's
// own aggregates give.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

constexpr std::string_view kFigures =
    "SELECT min(a), max(a), avg(a), median(a), stdev(a), COUNT(*), min(b), max(b), avg(b),"
    " median(b), stdev(b) FROM t";

class FiguresScan : public ::testing::Test {
 protected:
  void Make(std::string_view columns) {
    connection_->Execute("DROP TABLE IF EXISTS t");
    connection_->Execute("CREATE TABLE t (" + std::string(columns) + ")");
  }

  /// The record of the query as it stands, and of the same query with an alias, which goes
  /// SQLite's way.
  std::vector<Variant> Scanned(const std::string& where = "") {
    return Record(std::string(kFigures) + where);
  }
  std::vector<Variant> Aggregated(const std::string& where = "") {
    return Record(std::string(kFigures) + " AS x" + where);
  }

  void ExpectSame(const std::string& where, double scale, const std::string& what) {
    const std::vector<Variant> scanned = Scanned(where);
    const std::vector<Variant> aggregated = Aggregated(where);
    ASSERT_EQ(scanned.size(), aggregated.size());
    for (std::size_t i = 0; i < scanned.size(); ++i) {
      ASSERT_EQ(scanned[i].GetKind(), aggregated[i].GetKind()) << what << ", figure " << i;
      if (!scanned[i].IsNumber()) {
        EXPECT_EQ(scanned[i], aggregated[i]) << what << ", figure " << i;
        continue;
      }
      const double left = scanned[i].ToDouble();
      const double right = aggregated[i].ToDouble();
      const bool is_exact = i % 6 < 2 || i == 5;
      if (is_exact || std::isinf(right)) {
        EXPECT_EQ(left, right) << what << ", figure " << i;
      } else {
        EXPECT_NEAR(left, right, 1e-12 * std::max(scale, std::fabs(right)))
            << what << ", figure " << i;
      }
    }
  }

  Ref<IConnectionService> run_ = OpenRun("", InMemory());
  Ref<IConnection> connection_ = Query<IConnection>(run_->GetConnection().ToObject());

 private:
  std::vector<Variant> Record(const std::string& sql) {
    const Ref<IDataReader> reader = connection_->ExecuteReader(sql);
    EXPECT_TRUE(reader->Read());
    std::vector<Variant> record;
    for (std::int32_t i = 0; i < reader->FieldCount(); ++i) record.push_back(reader->GetValue(i));
    EXPECT_FALSE(reader->Read());
    return record;
  }
};

/// A cell as SQL writes it: mostly numbers of one magnitude, some NULL, and now and then what the
/// flavour asks for.
std::string RandomCell(std::mt19937_64& random, int flavour, double scale) {
  const std::uint64_t kind = random() % 20;
  if (kind == 0) return "NULL";
  if (kind == 1 && flavour == 1) return random() % 2 == 0 ? "9e999" : "-9e999";
  if (kind == 1 && flavour == 2) return "'word'";
  if (kind == 1 && flavour == 3) return "9e999";
  return NumberText((static_cast<double>(random() % 2001) / 1000 - 1) * scale);
}

/// Value `i` of a column: random, sorted, the same everywhere, few different ones, two far heaps.
double Shaped(int shape, std::size_t i, std::mt19937_64& random) {
  switch (shape) {
    case 0:
      return static_cast<double>(random() % 1000003);
    case 1:
      return static_cast<double>(i);
    case 2:
      return 4.5;
    case 3:
      return static_cast<double>(random() % 3);
    default:
      return i % 2 == 0 ? -1e9 - static_cast<double>(i) : 1e9 + static_cast<double>(i);
  }
}

TEST_F(FiguresScan, GivesTheFiguresOfTheAggregates) {
  std::mt19937_64 random(7);
  for (int round = 0; round < 240; ++round) {
    const double scale = std::pow(10.0, static_cast<double>(random() % 13) - 6);
    const int flavour = round % 4;
    const std::size_t records = random() % 4 == 0 ? random() % 3 : random() % 200;
    Make("a FLOAT, b FLOAT, c FLOAT, row INTEGER PRIMARY KEY");
    for (std::size_t i = 0; i < records; ++i) {
      connection_->Execute("INSERT INTO t VALUES (" + RandomCell(random, flavour, scale) + ", " +
                           RandomCell(random, 0, scale) + ", " + std::to_string(random() % 2) +
                           ", " + std::to_string(i * 3 + 1) + ");");
    }
    const std::string what = "round " + std::to_string(round);
    ExpectSame("", scale, what);
    ExpectSame(" WHERE c = 1", scale, what + " with a condition");
  }
}

TEST_F(FiguresScan, FindsTheMedianOfManyRecords) {
  std::mt19937_64 random(11);
  for (const std::size_t records : {16383U, 16384U, 20001U, 50000U}) {
    for (int shape = 0; shape < 5; ++shape) {
      Make("a FLOAT, b FLOAT");
      std::vector<double> values;
      connection_->BeginTrans();
      for (std::size_t i = 0; i < records; ++i) {
        const double value = Shaped(shape, i, random);
        values.push_back(value);
        connection_->Execute("INSERT INTO t VALUES (" + NumberText(value) + ", NULL);");
      }
      connection_->CommitTrans();
      std::sort(values.begin(), values.end());
      const std::size_t middle = records / 2;
      const double expected =
          records % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
      EXPECT_EQ(Scanned()[3], Variant(expected)) << records << " records of shape " << shape;
    }
  }
}

TEST_F(FiguresScan, OfWordsInTheColumnIsThatOfTheAggregates) {
  Make("a FLOAT, b FLOAT");
  connection_->Execute("INSERT INTO t VALUES (1, 2)");
  connection_->Execute("INSERT INTO t VALUES ('zebra', 4)");
  EXPECT_EQ(Scanned()[1], Variant("zebra"));
  ExpectSame("", 1, "a word");
}

TEST_F(FiguresScan, OfWholeNumbersKeepsTheirKind) {
  Make("a INTEGER, b FLOAT");
  connection_->Execute("INSERT INTO t VALUES (1, 2)");
  EXPECT_EQ(Scanned()[0], Variant(1));
  ExpectSame("", 1, "whole numbers");
}

TEST_F(FiguresScan, RefusesWhatTheAggregatesRefuse) {
  EXPECT_EQ(RaisedNumber([this] { connection_->ExecuteReader("SELECT min(a) FROM nowhere"); }), 1);
  Make("a FLOAT, b FLOAT");
  EXPECT_EQ(RaisedNumber([this] { connection_->ExecuteReader("SELECT min(nothing) FROM t"); }), 1);
}

TEST_F(FiguresScan, WorksOverAViewToo) {
  Make("a FLOAT, b FLOAT");
  connection_->Execute("INSERT INTO t VALUES (1, 2)");
  connection_->Execute("CREATE VIEW v AS SELECT a FROM t");
  const Ref<IDataReader> reader = connection_->ExecuteReader("SELECT max(a), COUNT(*) FROM v");
  ASSERT_TRUE(reader->Read());
  EXPECT_EQ(reader->GetDouble(0), 1.0);
  EXPECT_EQ(reader->GetInteger(1), 1);
}

TEST_F(FiguresScan, ReaderBehavesAsAnyOther) {
  Make("a FLOAT, b FLOAT");
  connection_->Execute("INSERT INTO t VALUES (2.5, NULL)");
  const Ref<IDataReader> reader =
      connection_->ExecuteReader("SELECT max(a), min(b), COUNT(*) FROM t");
  EXPECT_EQ(reader->FieldCount(), 3);
  EXPECT_EQ(reader->FieldName(1), "min(b)");
  EXPECT_EQ(RaisedNumber([&reader] { reader->GetDouble(0); }), 100);
  ASSERT_TRUE(reader->Read());
  EXPECT_EQ(reader->GetString(0), "2.5");
  EXPECT_TRUE(reader->IsNull(1));
  EXPECT_EQ(reader->GetDouble(1), 0.0);
  EXPECT_EQ(reader->GetInteger(1), 0);
  EXPECT_EQ(reader->GetString(1), "");
  EXPECT_EQ(reader->GetInteger(2), 1);
  EXPECT_EQ(RaisedNumber([&reader] { reader->GetDouble(3); }), 9);
  EXPECT_EQ(RaisedNumber([&reader] { reader->FieldName(-1); }), 9);
  EXPECT_FALSE(reader->Read());
  EXPECT_EQ(RaisedNumber([&reader] { reader->GetDouble(0); }), 100);
  reader->Close();
  EXPECT_EQ(reader->FieldCount(), 0);
  EXPECT_FALSE(reader->Read());
}

}  // namespace
}  // namespace tslm5
