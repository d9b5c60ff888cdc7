#include <cmath>
#include <cstdint>
#include <fstream>
#include <limits>

#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

class RecordSetWrites : public FileEngineTest {
 protected:
  RecordSetWrites() {
    Execute("CREATE TABLE t (d0 FLOAT, d1 FLOAT, name TEXT, row INTEGER PRIMARY KEY)");
    Execute("INSERT INTO t VALUES (1, 10, 'a', 5), (2, 20, 'b', 7), (3, 30, 'c', 9)");
    records_ = connection_->OpenRecordSet("SELECT * FROM t");
  }

  void Set(int record, int field, const Variant& value) {
    records_->MoveTo(record, 0);
    records_->SetField(field, value);
  }

  /// What another connection sees in column `column`, in the order of the keys.
  std::string Stored(const std::string& column) {
    return tslm5::Listed(OpenSecond(), "SELECT " + column + " FROM t ORDER BY row");
  }

  /// How many transactions have changed the file, as its header tells.
  std::uint32_t FileChanges() const {
    std::ifstream file(path_, std::ios::binary);
    file.seekg(24);
    std::uint32_t changes = 0;
    for (int i = 0; i < 4; ++i) changes = changes << 8 | static_cast<std::uint32_t>(file.get());
    return changes;
  }

  Ref<IRecordSet> records_;
};

TEST_F(RecordSetWrites, ShowAtOnceAndReachTheTableAtUpdate) {
  Set(2, 0, 2.5);
  Set(3, 1, 0.1);
  EXPECT_EQ(records_->GetField(1), Variant(0.1));
  records_->MoveTo(2, 0);
  EXPECT_EQ(records_->GetField(0), Variant(2.5));
  EXPECT_EQ(Stored("d0"), "1 2 3");
  records_->Update();
  EXPECT_EQ(Stored("d0"), "1 2.5 3");
  EXPECT_EQ(Stored("d1"), "10 20 0.1");
}

TEST_F(RecordSetWrites, ReachTheTableAtClose) {
  Set(1, 0, -1.0);
  records_->Close();
  EXPECT_EQ(Stored("d0"), "-1 2 3");
}

TEST_F(RecordSetWrites, TheLastOneOfACellHolds) {
  for (const double value : {4.0, 5.0, 6.0}) Set(1, 0, value);
  Set(1, 1, 11.0);
  Set(1, 0, 7.0);
  EXPECT_EQ(records_->GetField(0), Variant(7.0));
  records_->Update();
  EXPECT_EQ(Stored("d0"), "7 2 3");
  EXPECT_EQ(Stored("d1"), "11 20 30");
}

TEST_F(RecordSetWrites, TheLastOneOfACellHoldsAmongMany) {
  Execute(
      "WITH RECURSIVE n(i) AS (SELECT 11 UNION ALL SELECT i + 1 FROM n WHERE i < 110)"
      " INSERT INTO t SELECT 0, 0, '', i FROM n");
  for (const double round : {1000.0, 2000.0, 3000.0}) {
    for (int record = 103; record > 3; --record) {
      Set(record, 0, round + record);
      Set(record, 1, -round - record);
    }
  }
  records_->Update();
  EXPECT_EQ(Stored("sum(d0 = 3000 + row - 7) || ' ' || sum(d1 = -3000 - row + 7)"), "100 100");
}

TEST_F(RecordSetWrites, ShowWhatEveryColumnMadeOfThem) {
  Execute("CREATE TABLE k (name TEXT, n INTEGER, d FLOAT, row INTEGER PRIMARY KEY)");
  Execute("INSERT INTO k VALUES ('x', 5, 2.5, 1)");
  for (const int field : {0, 1}) {
    const auto records = connection_->OpenRecordSet("SELECT * FROM k");
    records->SetField(field, 7.0);
    records->SetField(2, 8.5);
    records->Update();
    EXPECT_EQ(records->GetField(field), field == 0 ? Variant("7.0") : Variant(7));
    EXPECT_EQ(records->GetField(2), Variant(8.5));
  }
}

TEST_F(RecordSetWrites, NullAndNaNAreStoredAsNull) {
  Set(1, 0, Null{});
  Set(2, 0, std::nan(""));
  double number = 0.0;
  ASSERT_TRUE(records_->ReadNumber(1, 0, &number));
  EXPECT_TRUE(std::isnan(number));
  EXPECT_EQ(records_->GetField(0), Variant(Null{}));
  records_->Update();
  EXPECT_EQ(Stored("d0"), "NULL NULL 3");
  EXPECT_EQ(records_->GetField(0), Variant(Null{}));
}

TEST_F(RecordSetWrites, KeepEveryBitOfADouble) {
  for (const double value :
       {1.0 / 3, 1e300, -5e-324, 0.1 + 0.2, std::numeric_limits<double>::infinity()}) {
    Set(1, 0, value);
    records_->Update();
    const auto reader = connection_->ExecuteReader("SELECT d0 FROM t WHERE row = 5");
    ASSERT_TRUE(reader->Read());
    EXPECT_EQ(reader->GetDouble(0), value);
  }
}

TEST_F(RecordSetWrites, ConvertWhatIsGiven) {
  Set(1, 0, 4);
  Set(2, 0, "2.5");
  Set(3, 0, Variant());
  EXPECT_EQ(RaisedNumber([&] { Set(1, 1, "word"); }), error_number::kTypeMismatch);
  records_->Update();
  EXPECT_EQ(Stored("d0"), "4 2.5 0");
  EXPECT_EQ(Stored("d1"), "10 20 30");
}

TEST_F(RecordSetWrites, FollowTheKindOfTheColumn) {
  Execute("CREATE TABLE k (i INTEGER, x TEXT, n NUMERIC)");
  Execute("INSERT INTO k VALUES (1, 'a', 1)");
  const auto records = connection_->OpenRecordSet("SELECT * FROM k");
  for (const int field : {0, 1, 2}) records->SetField(field, 8.0);
  records->Update();
  EXPECT_EQ(records->GetField(0), Variant(8));
  EXPECT_EQ(records->GetField(1), Variant("8.0"));
  EXPECT_EQ(records->GetField(2), Variant(8));
}

TEST_F(RecordSetWrites, ShowInPlaceOfWhatTheCellHeld) {
  Execute("CREATE TABLE k (x)");
  Execute("INSERT INTO k VALUES (1), ('word'), (2.5), (NULL)");
  const auto records = connection_->OpenRecordSet("SELECT * FROM k");
  for (const Variant& value : {Variant(8.5), Variant(Null{}), Variant(-1.0)}) {
    for (int record = 1; record <= 4; ++record) {
      records->MoveTo(record, 0);
      records->SetField(0, value);
      EXPECT_EQ(records->GetField(0), value) << record;
    }
  }
}

TEST_F(RecordSetWrites, RefuseTheKeyAndWhatIsNoTable) {
  const Error error = Raised([&] { Set(1, 3, 8.0); });
  EXPECT_EQ(error.Number(), error_number::kInvalidCall);
  EXPECT_EQ(error.Description(),
            "Only a field of a whole table that is not its key can be written.");
  Execute("CREATE VIEW v AS SELECT * FROM t");
  for (const char* sql : {"SELECT * FROM v", "SELECT d0 FROM t", "SELECT * FROM t WHERE row > 0"}) {
    const auto records = connection_->OpenRecordSet(sql);
    EXPECT_EQ(RaisedNumber([&] { records->SetField(0, 8.0); }), error_number::kInvalidCall) << sql;
    EXPECT_EQ(records->GetField(0), Variant(1.0)) << sql;
  }
  EXPECT_EQ(Stored("d0"), "1 2 3");
}

TEST_F(RecordSetWrites, TenThousandAreOneTransaction) {
  Execute(
      "WITH RECURSIVE n(i) AS (SELECT 10 UNION ALL SELECT i + 1 FROM n WHERE i < 10006)"
      " INSERT INTO t SELECT i, i, 'n', i FROM n");
  ASSERT_EQ(records_->RecordCount(), 10000);
  const std::uint32_t before = FileChanges();
  for (int record = 1; record <= 10000; ++record) Set(record, record % 2, 0.5);
  EXPECT_EQ(FileChanges(), before);
  records_->Update();
  EXPECT_EQ(FileChanges(), before + 1);
  EXPECT_EQ(tslm5::Listed(OpenSecond(), "SELECT sum(d0 = 0.5) + sum(d1 = 0.5) FROM t"), "10000");
  records_->Update();
  records_->Close();
  EXPECT_EQ(FileChanges(), before + 1);  // nothing was pending any more
}

TEST_F(RecordSetWrites, InsideATransactionEndWithIt) {
  connection_->BeginTrans();
  Set(1, 0, 8.0);
  records_->Update();
  Set(2, 0, 9.0);
  connection_->RollbackTrans();
  for (const auto& [record, value] : {std::pair{1, 1.0}, std::pair{2, 2.0}}) {
    records_->MoveTo(record, 0);
    EXPECT_EQ(records_->GetField(0), Variant(value));
  }
  connection_->BeginTrans();
  Set(1, 0, 8.0);
  connection_->CommitTrans();
  EXPECT_EQ(Stored("d0"), "8 2 3");
}

TEST_F(RecordSetWrites, InsideATransactionThatAStatementBegan) {
  Execute("BEGIN");
  Set(1, 0, 8.0);
  records_->Update();
  EXPECT_EQ(Stored("d0"), "1 2 3");
  Execute("ROLLBACK");
  EXPECT_EQ(records_->GetField(0), Variant(1.0));
  EXPECT_EQ(Stored("d0"), "1 2 3");
}

TEST_F(RecordSetWrites, MadeBeforeATransactionOutliveItsRollback) {
  Set(1, 0, 8.0);
  connection_->BeginTrans();
  connection_->RollbackTrans();
  EXPECT_EQ(Stored("d0"), "8 2 3");
}

TEST_F(RecordSetWrites, StayPendingWhenTheDatabaseIsLocked) {
  const Ref<IConnection> second = OpenSecond();
  second->BeginTrans();
  Set(1, 0, 8.0);
  EXPECT_EQ(RaisedNumber([&] { records_->Update(); }) & 0xFF, 5);
  EXPECT_EQ(records_->GetField(0), Variant(8.0));
  second->RollbackTrans();
  records_->Update();
  EXPECT_EQ(Stored("d0"), "8 2 3");
}

TEST_F(RecordSetWrites, AllOrNoneReachTheTable) {
  Execute("CREATE TABLE c (a FLOAT CHECK (a < 100), row INTEGER PRIMARY KEY)");
  Execute("INSERT INTO c VALUES (1, 1), (2, 2)");
  auto records = connection_->OpenRecordSet("SELECT * FROM c");
  records->SetField(0, 50.0);
  records->MoveTo(2, 0);
  records->SetField(0, 500.0);
  EXPECT_EQ(RaisedNumber([&] { records->Update(); }), 275);
  EXPECT_EQ(tslm5::Listed(OpenSecond(), "SELECT a FROM c"), "1 2");
  records->SetField(0, 60.0);
  records->Update();
  EXPECT_EQ(tslm5::Listed(OpenSecond(), "SELECT a FROM c"), "50 60");
}

TEST_F(RecordSetWrites, ReachTheTableWhenTheRecordSetIsLetGoOf) {
  Set(1, 0, 8.0);
  records_.Reset();
  EXPECT_EQ(Stored("d0"), "8 2 3");
}

}  // namespace
}  // namespace tslm5
