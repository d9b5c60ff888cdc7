#include "engine/table_image.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/bare_database.h"
#include "engine/record_format.h"

namespace tslm5 {
namespace {

constexpr const char* kCreate = "CREATE TABLE t (a FLOAT, b TEXT, row INTEGER PRIMARY KEY)";

void Append(TableImage& image, std::int64_t key, double number, std::string_view text) {
  RecordEncoder encoder;
  encoder.Begin(3);
  encoder.AddNumber(number);
  encoder.AddText(text);
  encoder.AddNull();
  encoder.End();
  image.Append(key, encoder.Header(), encoder.Body());
}

/// A SQLite database that is the image.
class ImageDatabase {
 public:
  explicit ImageDatabase(TableImage& image) : database_(":memory:") {
    image.Finish();
    const auto size = static_cast<sqlite3_int64>(image.Size());
    EXPECT_EQ(
        sqlite3_deserialize(database_.Handle(), "main", image.TakeBytes().release(), size, size,
                            SQLITE_DESERIALIZE_READONLY | SQLITE_DESERIALIZE_FREEONCLOSE),
        SQLITE_OK);
  }
  std::string Text(std::string_view sql) {
    const auto records = database_.Records(sql);
    if (records.empty()) return "no record";
    const BareValue& value = records.front().front();
    return value.type == SQLITE_INTEGER ? std::to_string(value.integer) : value.bytes;
  }
  std::vector<std::vector<BareValue>> Records(std::string_view sql) {
    return database_.Records(sql);
  }

 private:
  BareDatabase database_;
};

TEST(TableImage, IsADatabaseOfOneRecord) {
  TableImage image("t", kCreate);
  Append(image, 1, 0.5, "x");
  ImageDatabase database(image);
  EXPECT_EQ(database.Text("PRAGMA integrity_check"), "ok");
  EXPECT_EQ(database.Text("SELECT a || b || row FROM t"), "0.5x1");
  EXPECT_EQ(database.Text("SELECT sql FROM sqlite_master"), kCreate);
  EXPECT_EQ(database.Text("PRAGMA page_count"), "2");
}

TEST(TableImage, SpreadsRecordsOverLeaves) {
  TableImage image("t", kCreate);
  for (int i = 0; i < 20000; ++i) Append(image, i * 3 - 100, i / 8.0, std::to_string(i));
  ImageDatabase database(image);
  EXPECT_EQ(database.Text("PRAGMA integrity_check"), "ok");
  EXPECT_EQ(database.Text("SELECT count(*) FROM t"), "20000");
  EXPECT_EQ(database.Text("SELECT sum(a * 8 = (row + 100) / 3 AND b = (row + 100) / 3) FROM t"),
            "20000");
  EXPECT_EQ(database.Text("SELECT b FROM t WHERE row = 30002"), "10034");  // found by the root
}

TEST(TableImage, PutsLongRecordsIntoOverflowPages) {
  // Around what a leaf of 64 KiB holds, around whole overflow pages, and far beyond.
  const std::vector<std::size_t> sizes = {65480, 65484, 65485,  65486,  65490,  65500,  65536,
                                          73700, 73720, 100000, 131000, 139250, 1000000};
  TableImage image("t", kCreate);
  std::int64_t key = 0;
  for (const std::size_t size : sizes) Append(image, ++key, 1, std::string(size, 'q'));
  for (std::size_t size = 65400; size < 65600; ++size) {
    Append(image, ++key, 0.25, std::string(size, 'r'));
  }
  ImageDatabase database(image);
  EXPECT_EQ(database.Text("PRAGMA integrity_check"), "ok");
  const auto records = database.Records("SELECT length(b), b = replace(b, 'q', 'q') FROM t");
  ASSERT_EQ(records.size(), sizes.size() + 200);
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    EXPECT_EQ(static_cast<std::size_t>(records[i][0].integer), sizes[i]);
  }
  EXPECT_EQ(database.Text("SELECT count(*) FROM t WHERE trim(b, 'qr') = ''"), "213");
}

TEST(TableImage, TakesKeysOfEverySize) {
  TableImage image("t", kCreate);
  const std::vector<std::int64_t> keys = {INT64_MIN, -1, 0, 1, 127, 128, 1LL << 40, INT64_MAX};
  for (const std::int64_t key : keys) Append(image, key, 2, "k");
  ImageDatabase database(image);
  EXPECT_EQ(database.Text("PRAGMA integrity_check"), "ok");
  const auto records = database.Records("SELECT row FROM t");
  ASSERT_EQ(records.size(), keys.size());
  for (std::size_t i = 0; i < keys.size(); ++i) EXPECT_EQ(records[i][0].integer, keys[i]);
}

TEST(TableImage, HoldsATableOfManyColumns) {
  std::string create = "CREATE TABLE t (";
  for (int i = 0; i < 1999; ++i) create.append("d").append(std::to_string(i)).append(" FLOAT, ");
  create += "row INTEGER PRIMARY KEY)";
  ASSERT_TRUE(TableImage::Fits("t", create));
  TableImage image("t", create);
  RecordEncoder encoder;
  for (int row = 1; row <= 100; ++row) {
    encoder.Begin(2000);
    for (int i = 0; i < 1999; ++i) encoder.AddNumber(row + i / 4.0);
    encoder.AddNull();
    encoder.End();
    image.Append(row, encoder.Header(), encoder.Body());
  }
  ImageDatabase database(image);
  EXPECT_EQ(database.Text("PRAGMA integrity_check"), "ok");
  EXPECT_EQ(database.Text("SELECT count(*) FROM t WHERE d1998 = row + 499.5 AND d0 = row"), "100");
}

TEST(TableImage, HasNoRoomForAStatementOfAPage) {
  EXPECT_TRUE(TableImage::Fits("t", std::string(65000, 'x')));
  EXPECT_FALSE(TableImage::Fits("t", std::string(65200, 'x')));
  EXPECT_FALSE(TableImage::Fits(std::string(40000, 't'), "x"));
}

TEST(TableImage, GoesThroughItsRecordsInOrder) {
  TableImage image("t", kCreate);
  for (int i = 0; i < 3000; ++i) Append(image, i, i, std::string(i % 700 == 0 ? 200000 : 40, 'a'));
  std::int64_t next = 0;
  image.ForEach(image.Data(), [&next](std::int64_t key, std::string_view record) {
    EXPECT_EQ(key, next);
    RecordDecoder decoder(record);
    RecordFormatCell cell;
    ASSERT_TRUE(decoder.Next(cell));
    EXPECT_EQ(cell.integer, next);
    ASSERT_TRUE(decoder.Next(cell));
    EXPECT_EQ(cell.text, std::string(next % 700 == 0 ? 200000 : 40, 'a'));
    ++next;
  });
  EXPECT_EQ(next, 3000);
}

TEST(TableImage, BeginsAnewWhenItIsCleared) {
  TableImage image("t", kCreate);
  for (int i = 0; i < 5000; ++i) Append(image, i, i, "before");
  image.Clear();
  EXPECT_EQ(image.Records(), 0U);
  EXPECT_EQ(image.Size(), 0U);
  Append(image, -7, 1, "after");
  ImageDatabase database(image);
  EXPECT_EQ(database.Text("PRAGMA integrity_check"), "ok");
  EXPECT_EQ(database.Text("SELECT group_concat(b || row) FROM t"), "after-7");
}

}  // namespace
}  // namespace tslm5
