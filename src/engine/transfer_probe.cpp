#include "engine/transfer_probe.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "engine/batch_schema.h"
#include "engine/record_format.h"
#include "engine/sqlite_error.h"
#include "engine/sqlite_statement.h"
#include "engine/sqlite_value.h"
#include "engine/table_image.h"

namespace tslm5 {
namespace {

constexpr std::size_t kTextSize = 300;
constexpr std::int64_t kSchemaFormat = 4;

/// Numbers at the edges of their forms: signs, whole numbers of every width, what is no whole
/// number, and the ends of the doubles.
constexpr std::array kNumbers = {
    0.0,
    -0.0,
    1.0,
    -1.0,
    127.0,
    -128.0,
    32768.0,
    8388608.0,
    2147483648.0,
    140737488355327.0,
    -140737488355328.0,
    140737488355328.0,
    9007199254740992.0,
    9007199254740993e3,
    0.1,
    -2.5,
    1e300,
    std::numeric_limits<double>::denorm_min(),
    std::numeric_limits<double>::max(),
    std::numeric_limits<double>::quiet_NaN(),
};

constexpr std::string_view kColumns = "(a FLOAT, b TEXT, row INTEGER PRIMARY KEY)";

class MemoryDatabase {
 public:
  MemoryDatabase() {
    const int code = sqlite3_open(":memory:", &handle_);
    if (code == SQLITE_OK) return;
    sqlite3_close(handle_);
    RaiseSqliteError(nullptr, code, {});
  }
  MemoryDatabase(const MemoryDatabase&) = delete;
  MemoryDatabase& operator=(const MemoryDatabase&) = delete;
  ~MemoryDatabase() { sqlite3_close_v2(handle_); }

  sqlite3* Handle() const { return handle_; }
  void Run(std::string_view sql) { SqliteStatement(handle_, sql).Run(); }

 private:
  sqlite3* handle_ = nullptr;
};

/// The text beside number `i`: of no bytes, of a few, and long.
std::string TextOf(std::size_t i) {
  return std::string(i % 3 == 2 ? kTextSize : i % 3 * i, static_cast<char>('a' + i));
}

void InsertOrdinarily(sqlite3* database) {
  SqliteStatement insert(database, "INSERT INTO ordinary VALUES (?,?,?)");
  for (std::size_t i = 0; i < kNumbers.size(); ++i) {
    const std::string text = TextOf(i);
    insert.BindDouble(1, kNumbers[i]);  // SQLite takes NaN for NULL
    insert.BindText(2, text);
    insert.BindInteger(3, static_cast<std::int64_t>(i) + 1);
    insert.Run();
  }
}

void AppendAll(TableImage& image) {
  RecordEncoder encoder;
  for (std::size_t i = 0; i < kNumbers.size(); ++i) {
    encoder.Begin(3);
    if (std::isnan(kNumbers[i])) {
      encoder.AddNull();
    } else {
      encoder.AddNumber(kNumbers[i]);
    }
    encoder.AddText(TextOf(i));
    encoder.AddNull();  // the key
    encoder.End();
    image.Append(static_cast<std::int64_t>(i) + 1, encoder.Header(), encoder.Body());
  }
}

/// The records of a page that is a table leaf, each with its key, as they are stored.
std::vector<std::string> RecordsOfLeaf(const unsigned char* page) {
  std::vector<std::string> records;
  const auto number = [](const unsigned char* at) {
    return static_cast<std::size_t>(at[0]) << 8 | at[1];
  };
  constexpr unsigned char kLeaf = 13;
  if (page[0] != kLeaf) return records;
  const std::size_t count = number(page + 3);
  records.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const unsigned char* const cell = page + number(page + 8 + 2 * i);
    std::uint64_t size = 0;
    std::uint64_t key = 0;
    const unsigned char* const end = ReadVarint(ReadVarint(cell, size), key) + size;
    records.emplace_back(reinterpret_cast<const char*>(cell), static_cast<std::size_t>(end - cell));
  }
  return records;
}

/// Whether both tables of the database, which are its pages 2 and 3, hold the same bytes.
bool TablesAreEqual(sqlite3* database) {
  SqliteStatement pragma(database, "PRAGMA page_size");
  pragma.Step();
  const auto page_size = static_cast<std::size_t>(sqlite3_column_int(pragma.Handle(), 0));
  pragma.Reset();
  sqlite3_int64 size = 0;
  const TableImage::Bytes bytes(sqlite3_serialize(database, "main", &size, 0));
  if (!bytes || static_cast<std::size_t>(size) < 3 * page_size) return false;
  const std::vector<std::string> ordinary = RecordsOfLeaf(bytes.get() + page_size);
  return ordinary.size() == kNumbers.size() &&
         ordinary == RecordsOfLeaf(bytes.get() + 2 * page_size);
}

bool IsFaithful() {
  MemoryDatabase database;
  sqlite3* const handle = database.Handle();
  database.Run("PRAGMA page_size = 16384");  // all of a table on one page
  database.Run("CREATE TABLE ordinary " + std::string(kColumns));
  const std::string create = "CREATE TABLE copied " + std::string(kColumns);
  database.Run(create);
  database.Run("BEGIN");
  InsertOrdinarily(handle);

  TableImage image("copied", create);
  AppendAll(image);
  image.Finish();
  batch_schema::Attach(handle);
  batch_schema::Lend(handle, image);
  const std::string copy = batch_schema::CopyStatement("copied");
  if (!batch_schema::CopiesWholeRecords(handle, copy)) return false;
  database.Run(copy);
  batch_schema::Release(handle);
  database.Run("COMMIT");
  return TablesAreEqual(handle);
}

/// Whether the file's schema has the format in which 0 and 1 need no content; so has a new one.
bool HasTodaysFormat(sqlite3* database) {
  sqlite3_file* file = nullptr;
  sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file);
  if (file == nullptr || file->pMethods == nullptr) return true;  // in memory
  constexpr int kSize = 4;
  constexpr sqlite3_int64 kPlace = 44;
  unsigned char bytes[kSize] = {};
  const int code = file->pMethods->xRead(file, bytes, kSize, kPlace);
  if (code == SQLITE_IOERR_SHORT_READ) return true;
  return code == SQLITE_OK && bytes[kSize - 1] == kSchemaFormat;
}

bool IsUtf8(sqlite3* database) {
  SqliteStatement encoding(database, "PRAGMA main.encoding");
  return encoding.Step() && ColumnText(encoding.Handle(), 0) == "UTF-8";
}

bool IsSwitchedOff() {
  const char* const value = std::getenv("TSLM5_BULK");
  return value != nullptr && std::strcmp(value, "0") == 0;
}

}  // namespace

bool CanTransferImages(sqlite3* database) noexcept try {
  return !IsSwitchedOff() && batch_schema::IsSupported() && HasTodaysFormat(database) &&
         IsUtf8(database) && IsFaithful();
} catch (const std::exception&) {
  return false;
}

}  // namespace tslm5
