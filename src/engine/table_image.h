#ifndef TSLM5_ENGINE_TABLE_IMAGE_H_
#define TSLM5_ENGINE_TABLE_IMAGE_H_

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tslm5 {

/// A database of one table, made in memory page by page: what SQLite would have in a file of 64 KiB
/// pages after inserting the same records in the order of their keys. Records go into table leaves
/// from page 2 on, the long ones into overflow pages as well, and the root comes last.
/// A failing allocation raises 7 and leaves the image as it was.
class TableImage {
 public:
  /// `create_sql` is the statement that makes the table, for which `Fits` must hold.
  TableImage(std::string_view table, std::string_view create_sql)
      : table_(table), create_sql_(create_sql) {}

  /// Whether the statement that makes a table has room beside what the first page holds.
  static bool Fits(std::string_view table, std::string_view create_sql);

  /// Appends a record, its key being larger than the one before. `header` and `body` are those of
  /// `RecordEncoder`.
  void Append(std::int64_t key, std::string_view header, std::string_view body);
  std::size_t Records() const { return records_; }
  /// Bytes of the pages in use.
  std::size_t Size() const { return pages_ * kPageSize; }
  void Clear();
  const std::string& Table() const { return table_; }
  const std::string& CreateSql() const { return create_sql_; }

  /// Memory that SQLite can take over.
  struct Release {
    void operator()(unsigned char* bytes) const { sqlite3_free(bytes); }
  };
  using Bytes = std::unique_ptr<unsigned char, Release>;
  /// Makes the image whole. Nothing is appended from then on until `Clear`.
  void Finish();
  /// The whole image, and gives it up.
  Bytes TakeBytes() { return std::move(bytes_); }

  /// Calls `visit` with every record in order; the text holds until the next call.
  /// REQUIRES: the bytes were not taken, or the pointer that was taken is `bytes` and still good.
  using Visit = std::function<void(std::int64_t key, std::string_view record)>;
  void ForEach(const unsigned char* bytes, const Visit& visit) const;
  const unsigned char* Data() const { return bytes_.get(); }

  static constexpr std::size_t kPageSize = 65536;

 private:
  void Reserve(std::size_t pages);
  unsigned char* Page(std::size_t number) { return bytes_.get() + (number - 1) * kPageSize; }
  void BeginLeaf();
  void WriteOverflow(std::string_view header, std::string_view body, std::size_t local);
  void WriteRoot();
  void WriteFirstPage();

  struct Leaf {
    std::uint32_t page;
    std::int64_t last_key;
  };

  std::string table_;
  std::string create_sql_;
  Bytes bytes_;
  std::size_t reserved_pages_ = 0;
  std::size_t pages_ = 0;
  std::size_t records_ = 0;
  std::size_t cells_ = 0;          // in the last leaf
  std::size_t content_start_ = 0;  // in the last leaf
  std::vector<Leaf> leaves_;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_TABLE_IMAGE_H_
