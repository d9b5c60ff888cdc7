#ifndef TSLM5_ENGINE_RECORD_SOURCE_H_
#define TSLM5_ENGINE_RECORD_SOURCE_H_

#include <sqlite3.h>

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/record_block.h"

namespace tslm5 {

/// The records of one SELECT, in blocks. Over a whole table ("SELECT * FROM t") they are counted
/// first and a block is fetched when it is first asked for; any other SELECT is read at once.
/// No statement stays open.
class RecordSource {
 public:
  /// Counts the records of `sql` (or reads them). Raises SQLite's error.
  RecordSource(sqlite3* database, std::string_view sql);

  /// Forgets what was read and looks again.
  void Refresh();

  /// While true, no block is let go of to make room: some hold what the table does not have yet.
  void KeepAllBlocks(bool keep) { keep_all_blocks_ = keep; }

  std::int32_t RecordCount() const { return static_cast<std::int32_t>(count_); }
  int FieldCount() const { return fields_; }
  bool IsWholeTable() const { return !table_.empty(); }

  /// The block that holds record `index` (0-based, below the count), fetched if need be.
  RecordBlock& BlockOf(std::size_t index) {
    RecordBlock* block = blocks_[index >> shift_].get();
    return block != nullptr ? *block : Fetch(index >> shift_);
  }
  bool HasBlockOf(std::size_t index) const { return blocks_[index >> shift_] != nullptr; }
  std::size_t OffsetInBlock(std::size_t index) const {
    return index & ((std::size_t{1} << shift_) - 1);
  }

  /// The table's name as the SELECT gives it; empty when it is not over a whole table.
  const std::string& PlainName() const { return name_; }
  /// The quoted names of the table and of a field, and whether the field cannot be written (the key
  /// and what is computed), or is a column that stores a number as it is given. Only for a whole
  /// table.
  const std::string& TableName() const { return table_; }
  const std::string& FieldName(int field) const {
    return columns_[static_cast<std::size_t>(field)].name;
  }
  bool IsFixed(int field) const { return columns_[static_cast<std::size_t>(field)].is_fixed; }
  bool StoresDoubles(int field) const { return columns_[static_cast<std::size_t>(field)].is_real; }
  /// Whether a write to the table may change other cells and tables too: there are triggers, or
  /// foreign keys are heeded.
  bool HasSideEffects() const { return has_side_effects_; }

 private:
  struct Column {
    std::string name;
    bool is_fixed = false;
    bool is_real = false;
  };

  void RecognizeTable(std::string_view sql);
  void CountTable();
  void ReadAll();
  void FindBlockStarts();
  RecordBlock& Fetch(std::size_t block);
  [[noreturn]] void RaiseChangedByOthers() const;
  std::size_t BlockCapacity() const { return std::size_t{1} << shift_; }

  sqlite3* database_;
  std::string sql_;
  std::string name_;
  std::string table_;  // quoted; empty when the SELECT is not over a whole table
  std::vector<Column> columns_;
  int key_field_ = -1;  // the column that is the rowid, or -1
  bool has_side_effects_ = false;
  int fields_ = 0;
  unsigned shift_ = 0;
  std::size_t count_ = 0;
  std::int64_t first_key_ = 0;
  bool is_dense_ = true;                    // the keys follow each other without a gap
  std::vector<std::int64_t> block_starts_;  // first key of each block, when they do not
  std::vector<std::unique_ptr<RecordBlock>> blocks_;
  std::deque<std::size_t> fetched_;  // oldest first
  bool keep_all_blocks_ = false;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_RECORD_SOURCE_H_
