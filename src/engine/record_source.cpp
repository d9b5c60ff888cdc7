#include "engine/record_source.h"

#include <algorithm>
#include <limits>

#include "engine/sqlite_error.h"
#include "engine/sqlite_statement.h"
#include "engine/sqlite_value.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

constexpr std::size_t kCellsInBlock = std::size_t{1} << 17;  // 1 MiB of numbers
constexpr std::size_t kBlocksKept = 2048;                    // 2 GiB of numbers
constexpr unsigned kSmallestShift = 6;
constexpr unsigned kLargestShift = 14;

unsigned ShiftFor(int fields) {
  unsigned shift = kLargestShift;
  while (shift > kSmallestShift &&
         (std::size_t{1} << shift) * static_cast<std::size_t>(fields) > kCellsInBlock) {
    --shift;
  }
  return shift;
}

/// The table name in "SELECT * FROM name" with or without ";", or nothing.
std::string_view WholeTableName(std::string_view sql) {
  constexpr std::string_view kHead = "SELECT * FROM ";
  if (!sql.starts_with(kHead)) return {};
  std::string_view name = sql.substr(kHead.size());
  if (name.ends_with(';')) name.remove_suffix(1);
  for (const char c : name) {
    const bool plain =
        (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || (c >= '0' && c <= '9');
    if (!plain) return {};
  }
  return name;
}

}  // namespace

RecordSource::RecordSource(sqlite3* database, std::string_view sql)
    : database_(database), sql_(sql) {
  Refresh();
}

void RecordSource::Refresh() {
  blocks_.clear();
  fetched_.clear();
  block_starts_.clear();
  count_ = 0;
  RecognizeTable(sql_);
  if (IsWholeTable()) {
    CountTable();
  } else {
    ReadAll();
  }
}

void RecordSource::RecognizeTable(std::string_view sql) {
  name_.clear();
  table_.clear();
  columns_.clear();
  key_field_ = -1;
  const std::string_view name = WholeTableName(sql);
  if (name.empty()) return;
  SqliteStatement columns(
      database_,
      "SELECT t.name, t.hidden <> 0, upper(t.type) IN ('FLOAT', 'REAL', 'DOUBLE'),"
      " l.wr OR lower(t.name) = 'rowid', t.pk = 1 AND upper(t.type) = 'INTEGER'"
      " AND (SELECT count(*) FROM pragma_table_info(?1) WHERE pk > 0) = 1"
      " AND NOT EXISTS (SELECT 1 FROM pragma_index_list(?1) WHERE origin = 'pk')"
      " FROM pragma_table_xinfo(?1) AS t, pragma_table_list AS l"
      " WHERE l.name = ?1 COLLATE NOCASE AND l.schema = 'main' AND l.type = 'table'"
      // SQLite writes its own tables without saying so.
      " AND l.name NOT LIKE 'sqlite~_%' ESCAPE '~'");
  columns.BindText(1, name);
  while (columns.Step()) {
    sqlite3_stmt* record = columns.Handle();
    // Without a rowid, or with another column of that name, there is no key to go by.
    if (sqlite3_column_int(record, 3) != 0) return columns_.clear();
    Column column;
    column.name = QuotedName(ColumnText(record, 0));
    column.is_fixed = sqlite3_column_int(record, 1) != 0;
    column.is_real = sqlite3_column_int(record, 2) != 0;
    if (sqlite3_column_int(record, 4) != 0) {
      column.is_fixed = true;
      key_field_ = static_cast<int>(columns_.size());
    }
    columns_.push_back(std::move(column));
  }
  if (columns_.empty()) return;
  // Beside as many columns as a result can have there is no room for a rowid that is none of them:
  // such a table is read as any other SELECT is.
  if (key_field_ < 0 && columns_.size() >= static_cast<std::size_t>(
                                               sqlite3_limit(database_, SQLITE_LIMIT_COLUMN, -1))) {
    return columns_.clear();
  }
  SqliteStatement side_effects(
      database_,
      "SELECT EXISTS (SELECT 1 FROM sqlite_master WHERE type = 'trigger')"
      " OR EXISTS (SELECT 1 FROM sqlite_temp_master WHERE type = 'trigger')"
      " OR (SELECT foreign_keys FROM pragma_foreign_keys)");
  side_effects.Step();
  has_side_effects_ = sqlite3_column_int(side_effects.Handle(), 0) != 0;
  name_ = name;
  table_ = QuotedName(name);
  fields_ = static_cast<int>(columns_.size());
  shift_ = ShiftFor(fields_);
}

void RecordSource::CountTable() {
  const std::string from = " FROM " + table_ + ")";
  SqliteStatement counted(database_, "SELECT (SELECT count(*)" + from + ", (SELECT min(rowid)" +
                                         from + ", (SELECT max(rowid)" + from);
  counted.Step();
  const std::int64_t count = sqlite3_column_int64(counted.Handle(), 0);
  if (count > std::numeric_limits<std::int32_t>::max()) RaiseOverflow();
  count_ = static_cast<std::size_t>(count);
  first_key_ = sqlite3_column_int64(counted.Handle(), 1);
  const std::int64_t last_key = sqlite3_column_int64(counted.Handle(), 2);
  is_dense_ =
      count > 0 && static_cast<std::uint64_t>(last_key) - static_cast<std::uint64_t>(first_key_) ==
                       static_cast<std::uint64_t>(count - 1);
  blocks_.resize((count_ + BlockCapacity() - 1) >> shift_);
}

void RecordSource::ReadAll() {
  SqliteStatement records(database_, sql_);
  if (!records.IsSelect()) {
    RaiseEngineError(SQLITE_ERROR, "only a SELECT gives a record set", sql_);
  }
  fields_ = sqlite3_column_count(records.Handle());
  shift_ = ShiftFor(fields_ > 0 ? fields_ : 1);
  while (records.Step()) {
    if (OffsetInBlock(count_) == 0) {
      blocks_.push_back(std::make_unique<RecordBlock>(BlockCapacity(), fields_));
    }
    blocks_.back()->Append(records.Handle(), {});
    if (++count_ > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
      RaiseOverflow();
    }
  }
}

void RecordSource::FindBlockStarts() {
  SqliteStatement keys(database_, "SELECT rowid FROM " + table_ + " ORDER BY rowid");
  for (std::size_t index = 0; keys.Step(); ++index) {
    if (OffsetInBlock(index) == 0) {
      block_starts_.push_back(sqlite3_column_int64(keys.Handle(), 0));
    }
  }
}

void RecordSource::RaiseChangedByOthers() const {
  RaiseEngineError(SQLITE_BUSY_SNAPSHOT,
                   "the table " + table_ + " was changed by another program while it was read", "");
}

RecordBlock& RecordSource::Fetch(std::size_t block) {
  if (!is_dense_ && block_starts_.empty()) FindBlockStarts();
  if (!is_dense_ && block >= block_starts_.size()) RaiseChangedByOthers();
  const std::int64_t start =
      is_dense_ ? first_key_ + static_cast<std::int64_t>(block << shift_) : block_starts_[block];
  const bool has_key = key_field_ >= 0;
  const RecordBlock::Layout layout{has_key ? key_field_ : 0, has_key ? 0 : 1};
  SqliteStatement records(database_, std::string("SELECT ") + (has_key ? "*" : "rowid, *") +
                                         " FROM " + table_ +
                                         " WHERE rowid >= ?1 ORDER BY rowid LIMIT ?2");
  records.BindInteger(1, start);
  records.BindInteger(2, static_cast<std::int64_t>(BlockCapacity()));

  auto fetched = std::make_unique<RecordBlock>(BlockCapacity(), fields_);
  while (records.Step()) fetched->Append(records.Handle(), layout);
  const std::size_t expected = std::min(count_ - (block << shift_), BlockCapacity());
  if (fetched->Size() < expected) RaiseChangedByOthers();
  if (fetched_.size() >= kBlocksKept && !keep_all_blocks_) {
    blocks_[fetched_.front()].reset();
    fetched_.pop_front();
  }
  fetched_.push_back(block);
  blocks_[block] = std::move(fetched);
  return *blocks_[block];
}

}  // namespace tslm5
