#include "engine/image_transfer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/bare_database.h"
#include "engine/record_format.h"
#include "engine/statement_watch.h"
#include "engine/table_versions.h"

namespace tslm5 {
namespace {

constexpr const char* kCreate = "CREATE TABLE t (a FLOAT, row INTEGER PRIMARY KEY)";

class ImageTransferTest : public testing::Test {
 protected:
  ImageTransferTest() {
    database_.Run(kCreate);
    database_.Run("BEGIN");
    RecordEncoder encoder;
    for (int key = 1; key <= 3; ++key) {
      encoder.Begin(2);
      encoder.AddNumber(key / 2.0);
      encoder.AddNull();
      encoder.End();
      image_.Append(key, encoder.Header(), encoder.Body());
    }
    watch_.TakeUnseen();  // the statements above
  }
  ImageTransfer::Outcome Run(const std::string& table) {
    return transfer_.Run(table, image_,
                         [this](std::int64_t key, std::string_view) { inserted_.push_back(key); });
  }
  std::int64_t Integer(std::string_view sql) {
    return database_.Records(sql).front().front().integer;
  }

  BareDatabase database_{":memory:"};
  TableVersions versions_;
  StatementWatch watch_{database_.Handle(), versions_};
  ImageTransfer transfer_{database_.Handle(), watch_};
  TableImage image_{"t", kCreate};
  std::vector<std::int64_t> inserted_;
};

TEST_F(ImageTransferTest, CopiesTheRecords) {
  EXPECT_EQ(Run("t"), ImageTransfer::Outcome::kCopied);
  EXPECT_TRUE(inserted_.empty());
  EXPECT_EQ(Integer("SELECT count(*) FROM t WHERE a * 2 = row"), 3);
  EXPECT_EQ(image_.Records(), 0U);
  EXPECT_FALSE(watch_.TakeUnseen());
}

TEST_F(ImageTransferTest, ShowsTheRecordsToNobodyElse) {
  Run("t");
  EXPECT_EQ(Integer("SELECT count(*) FROM tslm5_batch.sqlite_master"), 0);
  database_.Run("DROP TABLE t");
  EXPECT_EQ(database_.Run("SELECT * FROM t"), SQLITE_ERROR);
}

TEST_F(ImageTransferTest, HandsTheRecordsOverWhereOneIsRefused) {
  database_.Run("INSERT INTO t VALUES (9, 2)");
  EXPECT_EQ(Run("t"), ImageTransfer::Outcome::kRefused);
  EXPECT_EQ(inserted_, (std::vector<std::int64_t>{1, 2, 3}));
  EXPECT_EQ(Integer("SELECT count(*) FROM t"), 1);  // the failed copy left nothing
}

TEST_F(ImageTransferTest, HandsTheRecordsOverWhereTheyAreNotCopiedWhole) {
  database_.Run("CREATE INDEX i ON t (a)");
  EXPECT_EQ(Run("t"), ImageTransfer::Outcome::kUnable);
  EXPECT_EQ(inserted_, (std::vector<std::int64_t>{1, 2, 3}));
  EXPECT_EQ(Integer("SELECT count(*) FROM t"), 0);
}

TEST_F(ImageTransferTest, HandsTheRecordsOverWhereNothingCanBeAttached) {
  sqlite3_limit(database_.Handle(), SQLITE_LIMIT_ATTACHED, 0);
  EXPECT_EQ(Run("t"), ImageTransfer::Outcome::kUnable);
  EXPECT_EQ(inserted_, (std::vector<std::int64_t>{1, 2, 3}));
  EXPECT_EQ(image_.Records(), 0U);
}

TEST_F(ImageTransferTest, StaysAttachedUntilItIsDetached) {
  constexpr const char* kCount =
      "SELECT count(*) FROM pragma_database_list WHERE name = 'tslm5_batch'";
  EXPECT_EQ(Integer(kCount), 0);
  Run("t");
  EXPECT_EQ(Integer(kCount), 1);
  database_.Run("COMMIT");
  transfer_.Detach();
  EXPECT_EQ(Integer(kCount), 0);
}

}  // namespace
}  // namespace tslm5
