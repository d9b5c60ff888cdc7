// Appended records beside ordinary ones: the same values bound to an INSERT by SQLite alone.
#include <gtest/gtest.h>

#include <cmath>
#include <deque>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "engine/bare_database.h"
#include "engine/bulk_way.h"
#include "engine/engine_fixture.h"
#include "tslm5/engine/record_appender.h"

namespace tslm5 {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// A table of columns of given types with the key somewhere among them, twice: in a run, filled by
/// an appender, and in a database that the engine never saw.
class TwoTables {
 public:
  TwoTables(const std::vector<const char*>& types, std::size_t key_column)
      : key_column_(key_column), ordinary_(folder_.File("ordinary.db")) {
    std::string create = "CREATE TABLE t (";
    std::string insert = "INSERT INTO t VALUES (?";
    for (std::size_t i = 0; i <= types.size(); ++i) {
      if (i > 0) create += ", ";
      if (i == key_column) create += "row INTEGER PRIMARY KEY";
      if (i == key_column && i < types.size()) create += ", ";
      if (i < types.size()) create.append("c").append(std::to_string(i)).append(" ");
      if (i < types.size()) create += types[i];
    }
    for (std::size_t i = 0; i < types.size(); ++i) insert += ",?";
    create += ")";
    if (create.ends_with(", )")) create.replace(create.size() - 3, 3, ")");
    connection_->Execute(create);
    EXPECT_EQ(ordinary_.Run(create), SQLITE_OK) << create;
    EXPECT_EQ(sqlite3_prepare_v2(ordinary_.Handle(), (insert + ")").c_str(), -1, &insert_, nullptr),
              SQLITE_OK);
    connection_->BeginTrans();
    ordinary_.Run("BEGIN");
    appender_ = connection_.As<IRecordAppending>()->OpenAppender("t");
  }
  TwoTables(const TwoTables&) = delete;
  TwoTables& operator=(const TwoTables&) = delete;
  ~TwoTables() { sqlite3_finalize(insert_); }

  void Append(const std::vector<RecordCell>& cells, std::int64_t key) {
    appender_->AppendCells(cells, key);
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const int parameter = static_cast<int>(i) + (i < key_column_ ? 1 : 2);
      const std::string_view text = cells[i].text;
      switch (cells[i].kind) {
        case RecordCell::Kind::kNull:
          sqlite3_bind_null(insert_, parameter);
          break;
        case RecordCell::Kind::kNumber:
          sqlite3_bind_double(insert_, parameter, cells[i].number);
          break;
        case RecordCell::Kind::kText:
          sqlite3_bind_text64(insert_, parameter, text.data() == nullptr ? "" : text.data(),
                              text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
          break;
      }
    }
    sqlite3_bind_int64(insert_, static_cast<int>(key_column_) + 1, key);
    EXPECT_EQ(sqlite3_step(insert_), SQLITE_DONE);
    sqlite3_reset(insert_);
  }

  /// Commits both and holds them to each other: every value to its bits, and every page but the
  /// first, where a file counts its changes.
  void ExpectEqual() {
    appender_->Flush();
    was_transferred_ = WasTransferred(*connection_);
    connection_->CommitTrans();
    appender_.Reset();
    connection_.Reset();
    EXPECT_EQ(ordinary_.Run("COMMIT"), SQLITE_OK);
    BareDatabase appended(folder_.File("run.db"));
    const auto records = appended.Records("SELECT * FROM t");
    EXPECT_FALSE(records.empty());
    EXPECT_TRUE(records == ordinary_.Records("SELECT * FROM t"));
    EXPECT_EQ(appended.Records("PRAGMA integrity_check").front().front().bytes, "ok");
    EXPECT_TRUE(Pages(appended.Handle()) == Pages(ordinary_.Handle()));
  }
  bool WasInOneTransfer() const { return was_transferred_; }

 private:
  static std::string Pages(sqlite3* database) {
    sqlite3_int64 size = 0;
    unsigned char* const bytes = sqlite3_serialize(database, "main", &size, 0);
    constexpr sqlite3_int64 kFirstPage = 4096;
    std::string pages;
    if (bytes != nullptr && size > kFirstPage) {
      pages.assign(reinterpret_cast<const char*>(bytes) + kFirstPage,
                   static_cast<std::size_t>(size - kFirstPage));
    }
    sqlite3_free(bytes);
    return pages;
  }

  TempFolder folder_;
  std::size_t key_column_;
  Ref<IConnection> connection_ = ConnectionOf(OpenRun(folder_.File("run.db"), Creating()));
  BareDatabase ordinary_;
  sqlite3_stmt* insert_ = nullptr;
  Ref<IRecordAppender> appender_;
  bool was_transferred_ = false;
};

RecordCell Text(std::string_view text) {
  return {RecordCell::Kind::kText, 0.0, text};
}
RecordCell Number(double number) {
  return {RecordCell::Kind::kNumber, number, {}};
}

TEST(AppendedRecords, AreThoseOfAnInsertAtEveryEdge) {
  std::vector<double> numbers = {0.0,
                                 -0.0,
                                 0.1,
                                 -0.1,
                                 kNan,
                                 std::numeric_limits<double>::denorm_min(),
                                 -std::numeric_limits<double>::denorm_min(),
                                 std::numeric_limits<double>::min(),
                                 std::numeric_limits<double>::max(),
                                 std::numeric_limits<double>::lowest()};
  for (int bit = 0; bit < 70; ++bit) {
    for (const double more : {-1.0, -0.5, 0.0, 0.5, 1.0}) {
      numbers.push_back(std::ldexp(1.0, bit) + more);
      numbers.push_back(-std::ldexp(1.0, bit) + more);
    }
  }
  TwoTables tables({"FLOAT", "REAL", "DOUBLE PRECISION"}, 3);
  std::int64_t key = 0;
  for (const double number : numbers) {
    tables.Append({Number(number), Number(-number), Number(number / 3)}, ++key);
  }
  tables.ExpectEqual();
  EXPECT_EQ(tables.WasInOneTransfer(), !IsBulkSwitchedOff());
}

TEST(AppendedRecords, AreThoseOfAnInsertForTextsOfEverySize) {
  std::string text;
  for (int i = 0; i < 400000; ++i) text += static_cast<char>('!' + i % 90);
  TwoTables tables({"TEXT", "VARCHAR(9)"}, 1);
  std::int64_t key = 0;
  for (std::size_t size = 0; size < 300; ++size) {
    tables.Append({Text(std::string_view(text).substr(0, size)), RecordCell{}}, ++key);
  }
  constexpr std::size_t kSizes[] = {3900,  4050,  4060,  4061,  4062,   8000,   16000,
                                    65400, 65500, 65501, 65536, 100000, 262144, 400000};
  for (const std::size_t size : kSizes) {
    tables.Append({Text(std::string_view(text).substr(0, size)), Text("\u00e9\u20ac\xff'")}, ++key);
  }
  for (int i = 0; i < 200; ++i) tables.Append({Text(""), Text("'")}, ++key);
  tables.ExpectEqual();
  EXPECT_EQ(tables.WasInOneTransfer(), !IsBulkSwitchedOff());
}

TEST(AppendedRecords, AreThoseOfAnInsertForATextBeyondABatch) {
  const std::string text(3000000, 'x');
  TwoTables tables({"TEXT"}, 0);
  for (int key = 1; key <= 200; ++key) {
    tables.Append({Text(key % 100 == 50 ? std::string_view(text) : "short")}, key);
  }
  tables.ExpectEqual();
}

TEST(AppendedRecords, AreThoseOfAnInsertForManyColumns) {
  TwoTables tables(std::vector<const char*>(1999, "FLOAT"), 1999);
  std::vector<RecordCell> cells(1999);
  for (int key = 1; key <= 150; ++key) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      cells[i] = (i + static_cast<std::size_t>(key)) % 11 == 0
                     ? RecordCell{}
                     : Number(key * 1000 + static_cast<double>(i) / (key % 2 == 0 ? 1 : 7));
    }
    tables.Append(cells, key);
  }
  tables.ExpectEqual();
  EXPECT_EQ(tables.WasInOneTransfer(), !IsBulkSwitchedOff());
}

TEST(AppendedRecords, AreThoseOfAnInsertForAKeyAlone) {
  TwoTables tables({}, 0);
  for (int key = -100; key <= 100; ++key) tables.Append({}, key * 1000003LL);
  tables.ExpectEqual();
}

/// Random tables, values and keys; the same on every run.
class RandomRecords {
 public:
  explicit RandomRecords(unsigned seed) : random_(seed) {}

  std::size_t Below(std::size_t limit) { return random_() % limit; }

  RecordCell Cell() {
    switch (Below(8)) {
      case 0:
        return {};
      case 1:
        return Text(TextOf(Below(Below(50) == 0 ? 9000 : 30)));
      case 2:
        return Number(static_cast<double>(random_()));
      case 3:
        return Number(-static_cast<double>(Below(300)));
      case 4:
        return Number(
            std::ldexp(static_cast<double>(random_()), static_cast<int>(Below(2000)) - 1050));
      case 5:
        return Text(Below(2) == 0 ? "12.50" : " -3e4");
      default:
        return Number(static_cast<double>(Below(100000)) / 100);
    }
  }
  /// A cell that a column of `type` stores as it is, most of the time.
  RecordCell CellFor(std::string_view type) {
    for (;;) {
      const RecordCell cell = Cell();
      const bool suits = cell.kind == RecordCell::Kind::kNull ||
                         (cell.kind == RecordCell::Kind::kText) == (type == "TEXT");
      if (suits || Below(2000) == 0) return cell;
    }
  }

 private:
  std::string_view TextOf(std::size_t size) {
    text_.push_back(std::string(size, static_cast<char>('a' + Below(26))));
    return text_.back();
  }

  std::mt19937_64 random_;
  std::deque<std::string> text_;
};

TEST(AppendedRecords, AreThoseOfInsertsForRandomTables) {
  for (unsigned seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE(seed);
    RandomRecords random(seed);
    std::vector<const char*> types(random.Below(12));
    for (const char*& type : types) {
      constexpr const char* kTypes[] = {"FLOAT", "FLOAT", "FLOAT", "TEXT", "TEXT"};
      type = kTypes[random.Below(5)];
      if (random.Below(60) == 0) type = random.Below(2) == 0 ? "" : "INTEGER";
    }
    TwoTables tables(types, random.Below(types.size() + 1));
    std::int64_t key = 0;
    std::int64_t largest = 0;
    for (std::size_t i = random.Below(1500) + 1; i > 0; --i) {
      std::vector<RecordCell> cells;
      cells.reserve(types.size());
      for (const char* const type : types) cells.push_back(random.CellFor(type));
      key = largest + 1 + static_cast<std::int64_t>(random.Below(random.Below(9) == 0 ? 1000 : 1));
      largest = key;
      tables.Append(cells, key);
    }
    tables.ExpectEqual();
  }
}

}  // namespace
}  // namespace tslm5
