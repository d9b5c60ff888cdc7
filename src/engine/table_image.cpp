// The layout is that of SQLite's file format: a header of 100 bytes on the first page, b-tree pages
// with an array of cell offsets in front and the cells filled in from the end, chains of overflow
// pages.
#include "engine/table_image.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "engine/record_format.h"

namespace tslm5 {
namespace {

constexpr std::size_t kPageSize = TableImage::kPageSize;
constexpr std::size_t kFileHeaderSize = 100;
constexpr std::size_t kLeafHeaderSize = 8;
constexpr std::size_t kInteriorHeaderSize = 12;
constexpr std::size_t kPointerSize = 2;
constexpr std::size_t kPageNumberSize = 4;
constexpr unsigned char kLeafPage = 13;
constexpr unsigned char kInteriorPage = 5;

// How much of a record stays in its leaf.
constexpr std::size_t kLargestLocal = kPageSize - 35;
constexpr std::size_t kSmallestLocal = (kPageSize - 12) * 32 / 255 - 23;
constexpr std::size_t kOverflowContent = kPageSize - kPageNumberSize;

std::size_t LocalSize(std::size_t size) {
  if (size <= kLargestLocal) return size;
  const std::size_t local = kSmallestLocal + (size - kSmallestLocal) % kOverflowContent;
  return local <= kLargestLocal ? local : kSmallestLocal;
}

std::uint64_t ReadBigEndian(const unsigned char* bytes, std::size_t size) {
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < size; ++i) value = value << 8 | bytes[i];
  return value;
}

unsigned char* Copy(unsigned char* out, std::string_view bytes) {
  std::memcpy(out, bytes.data(), bytes.size());
  return out + bytes.size();
}

/// Copies `room` bytes, or as many as there are, from the place `from` of `header` and `body`
/// together.
void CopyPart(unsigned char* out, std::size_t room, std::string_view header, std::string_view body,
              std::size_t from) {
  if (from < header.size()) {
    const std::string_view part = header.substr(from, room);
    out = Copy(out, part);
    room -= part.size();
    from = header.size();
  }
  Copy(out, body.substr(from - header.size(), room));
}

/// The record of the table in the schema.
void EncodeSchema(RecordEncoder& encoder, std::string_view table, std::string_view create_sql,
                  std::size_t root) {
  encoder.Begin(5);
  encoder.AddText("table");
  encoder.AddText(table);
  encoder.AddText(table);
  encoder.AddInteger(static_cast<std::int64_t>(root));
  encoder.AddText(create_sql);
  encoder.End();
}

}  // namespace

bool TableImage::Fits(std::string_view table, std::string_view create_sql) {
  constexpr std::size_t kOther = 256;  // headers and the other cells, generously
  return 2 * table.size() + create_sql.size() < kPageSize - kFileHeaderSize - kOther;
}

void TableImage::Clear() {
  pages_ = 0;
  records_ = 0;
  cells_ = 0;
  leaves_.clear();
  if (!bytes_) reserved_pages_ = 0;
}

void TableImage::Reserve(std::size_t pages) {
  if (pages <= reserved_pages_) return;
  const std::size_t reserved = std::max(pages, 2 * reserved_pages_);
  void* const grown = sqlite3_realloc64(bytes_.get(), reserved * kPageSize);
  if (grown == nullptr) throw std::bad_alloc();
  static_cast<void>(bytes_.release());
  bytes_.reset(static_cast<unsigned char*>(grown));
  reserved_pages_ = reserved;
}

void TableImage::BeginLeaf() {
  leaves_.push_back({static_cast<std::uint32_t>(++pages_), 0});
  cells_ = 0;
  content_start_ = kPageSize;
  unsigned char* const page = Page(pages_);
  std::memset(page, 0, kLeafHeaderSize);
  page[0] = kLeafPage;
}

void TableImage::Append(std::int64_t key, std::string_view header, std::string_view body) {
  const std::size_t size = header.size() + body.size();
  const std::size_t local = LocalSize(size);
  const std::size_t overflow_pages = (size - local + kOverflowContent - 1) / kOverflowContent;
  const auto unsigned_key = static_cast<std::uint64_t>(key);
  const std::size_t cell_size = VarintSize(size) + VarintSize(unsigned_key) + local +
                                (overflow_pages > 0 ? kPageNumberSize : 0);

  // Pages for the schema, a new leaf, the overflow and the root.
  Reserve(pages_ + overflow_pages + 3);
  leaves_.reserve(leaves_.size() + 1);
  if (pages_ == 0) pages_ = 1;
  if (leaves_.empty() ||
      content_start_ < kLeafHeaderSize + (cells_ + 1) * kPointerSize + cell_size) {
    BeginLeaf();
  }

  Leaf& leaf = leaves_.back();
  unsigned char* const page = Page(leaf.page);
  content_start_ -= cell_size;
  WriteBigEndian(page + kLeafHeaderSize + cells_ * kPointerSize, content_start_, kPointerSize);
  ++cells_;
  WriteBigEndian(page + 3, cells_, 2);
  WriteBigEndian(page + 5, content_start_, 2);

  unsigned char* out = WriteVarint(page + content_start_, size);
  out = WriteVarint(out, unsigned_key);
  if (overflow_pages == 0) {
    Copy(Copy(out, header), body);
  } else {
    CopyPart(out, local, header, body, 0);
    WriteBigEndian(out + local, pages_ + 1, kPageNumberSize);
    WriteOverflow(header, body, local);
  }
  leaf.last_key = key;
  ++records_;
}

void TableImage::WriteOverflow(std::string_view header, std::string_view body, std::size_t local) {
  const std::size_t size = header.size() + body.size();
  for (std::size_t from = local; from < size; from += kOverflowContent) {
    unsigned char* const page = Page(++pages_);
    const bool is_last = size - from <= kOverflowContent;
    WriteBigEndian(page, is_last ? 0 : pages_ + 1, kPageNumberSize);
    CopyPart(page + kPageNumberSize, kOverflowContent, header, body, from);
  }
}

void TableImage::Finish() {
  if (leaves_.size() > 1) WriteRoot();
  WriteFirstPage();
}

/// The interior page above the leaves. A batch never has more of them than one page can name.
void TableImage::WriteRoot() {
  unsigned char* const page = Page(++pages_);
  std::memset(page, 0, kInteriorHeaderSize);
  page[0] = kInteriorPage;
  std::size_t start = kPageSize;
  const std::size_t last = leaves_.size() - 1;
  for (std::size_t i = 0; i < last; ++i) {
    const auto key = static_cast<std::uint64_t>(leaves_[i].last_key);
    start -= kPageNumberSize + VarintSize(key);
    WriteBigEndian(page + start, leaves_[i].page, kPageNumberSize);
    WriteVarint(page + start + kPageNumberSize, key);
    WriteBigEndian(page + kInteriorHeaderSize + i * kPointerSize, start, kPointerSize);
  }
  WriteBigEndian(page + 3, last, 2);
  WriteBigEndian(page + 5, start, 2);
  WriteBigEndian(page + 8, leaves_[last].page, kPageNumberSize);
}

void TableImage::WriteFirstPage() {
  RecordEncoder encoder;
  EncodeSchema(encoder, table_, create_sql_, leaves_.size() > 1 ? pages_ : 2);

  unsigned char* const page = Page(1);
  std::memset(page, 0, kFileHeaderSize + kLeafHeaderSize);
  std::memcpy(page, "SQLite format 3", 16);
  WriteBigEndian(page + 16, 1, 2);  // 65536
  page[18] = page[19] = 1;          // written and read with a rollback journal
  page[21] = 64;                    // the payload fractions, which are fixed
  page[22] = page[23] = 32;
  WriteBigEndian(page + 24, 1, 4);  // the count of changes, for which the size below holds
  WriteBigEndian(page + 28, pages_, 4);
  WriteBigEndian(page + 40, 1, 4);  // version of the schema
  WriteBigEndian(page + 44, 4, 4);  // format of the schema
  WriteBigEndian(page + 56, 1, 4);  // UTF-8
  WriteBigEndian(page + 92, 1, 4);
  WriteBigEndian(page + 96, static_cast<std::uint64_t>(sqlite3_libversion_number()), 4);

  const std::size_t size = encoder.Header().size() + encoder.Body().size();
  const std::size_t start = kPageSize - VarintSize(size) - 1 - size;
  unsigned char* const header = page + kFileHeaderSize;
  header[0] = kLeafPage;
  WriteBigEndian(header + 3, 1, 2);
  WriteBigEndian(header + 5, start, 2);
  WriteBigEndian(header + kLeafHeaderSize, start, kPointerSize);
  unsigned char* out = WriteVarint(page + start, size);
  *out++ = 1;  // its key
  Copy(Copy(out, encoder.Header()), encoder.Body());
}

void TableImage::ForEach(const unsigned char* bytes, const Visit& visit) const {
  std::string whole;
  for (const Leaf& leaf : leaves_) {
    const unsigned char* const page = bytes + (leaf.page - 1) * kPageSize;
    const auto cells = static_cast<std::size_t>(ReadBigEndian(page + 3, 2));
    for (std::size_t i = 0; i < cells; ++i) {
      const auto start = ReadBigEndian(page + kLeafHeaderSize + i * kPointerSize, kPointerSize);
      std::uint64_t size = 0;
      std::uint64_t key = 0;
      const unsigned char* at = ReadVarint(ReadVarint(page + start, size), key);
      const std::size_t local = LocalSize(size);
      std::string_view record(reinterpret_cast<const char*>(at), local);
      if (local < size) {
        whole.assign(record);
        std::uint64_t next = ReadBigEndian(at + local, kPageNumberSize);
        while (next != 0) {
          const unsigned char* const part = bytes + (next - 1) * kPageSize;
          whole.append(reinterpret_cast<const char*>(part) + kPageNumberSize,
                       std::min<std::size_t>(size - whole.size(), kOverflowContent));
          next = ReadBigEndian(part, kPageNumberSize);
        }
        record = whole;
      }
      visit(static_cast<std::int64_t>(key), record);
    }
  }
}

}  // namespace tslm5
