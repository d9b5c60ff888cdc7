#include "engine/transfer_probe.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include "engine/bare_database.h"
#include "engine/batch_schema.h"
#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

/// Sets TSLM5_BULK for one test.
class BulkVariable {
 public:
  explicit BulkVariable(const char* value) {
    const char* const before = getenv("TSLM5_BULK");
    if (before != nullptr) before_ = before;
    had_ = before != nullptr;
    if (value == nullptr) {
      unsetenv("TSLM5_BULK");
    } else {
      setenv("TSLM5_BULK", value, 1);
    }
  }
  BulkVariable(const BulkVariable&) = delete;
  BulkVariable& operator=(const BulkVariable&) = delete;
  ~BulkVariable() {
    if (had_) {
      setenv("TSLM5_BULK", before_.c_str(), 1);
    } else {
      unsetenv("TSLM5_BULK");
    }
  }

 private:
  std::string before_;
  bool had_ = false;
};

TEST(TransferProbe, TrustsThisSqlite) {
  const BulkVariable unset(nullptr);
  BareDatabase database(":memory:");
  EXPECT_TRUE(CanTransferImages(database.Handle()));
}

TEST(TransferProbe, CanBeSwitchedOff) {
  BareDatabase database(":memory:");
  const BulkVariable off("0");
  EXPECT_FALSE(CanTransferImages(database.Handle()));
  const BulkVariable on("1");
  EXPECT_TRUE(CanTransferImages(database.Handle()));
}

TEST(TransferProbe, RefusesADatabaseOfAnotherEncoding) {
  const BulkVariable unset(nullptr);
  BareDatabase database(":memory:");
  ASSERT_EQ(database.Run("PRAGMA encoding = 'UTF-16le'"), SQLITE_OK);
  ASSERT_EQ(database.Run("CREATE TABLE t (a)"), SQLITE_OK);
  EXPECT_FALSE(CanTransferImages(database.Handle()));
}

TEST(TransferProbe, RefusesAFileOfAnOlderFormat) {
  const BulkVariable unset(nullptr);
  const TempFolder folder;
  BareDatabase database(folder.File("old.db"));
  ASSERT_EQ(sqlite3_db_config(database.Handle(), SQLITE_DBCONFIG_LEGACY_FILE_FORMAT, 1, nullptr),
            SQLITE_OK);
  EXPECT_TRUE(CanTransferImages(database.Handle()));  // no file yet
  ASSERT_EQ(database.Run("CREATE TABLE t (a)"), SQLITE_OK);
  EXPECT_FALSE(CanTransferImages(database.Handle()));
}

TEST(BatchSchema, SeesWhereRecordsAreNotCopiedWhole) {
  BareDatabase database(":memory:");
  batch_schema::Attach(database.Handle());
  ASSERT_EQ(database.Run("CREATE TABLE t (a FLOAT, row INTEGER PRIMARY KEY)"), SQLITE_OK);
  ASSERT_EQ(database.Run("CREATE TABLE tslm5_batch.t (a FLOAT, row INTEGER PRIMARY KEY)"),
            SQLITE_OK);
  const std::string copy = batch_schema::CopyStatement("t");
  EXPECT_TRUE(batch_schema::CopiesWholeRecords(database.Handle(), copy));
  ASSERT_EQ(database.Run("CREATE TRIGGER g AFTER INSERT ON t BEGIN DELETE FROM t; END"), SQLITE_OK);
  EXPECT_FALSE(batch_schema::CopiesWholeRecords(database.Handle(), copy));
}

}  // namespace
}  // namespace tslm5
