#ifndef TSLM5_ENGINE_RECORD_BLOCK_H_
#define TSLM5_ENGINE_RECORD_BLOCK_H_

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "tslm5/platform/variant.h"

namespace tslm5 {

/// Consecutive records of a result, in column order. Every cell has a place among the numbers;
/// what is no number stands there as NaN, and beside it in `others_` unless it is NULL.
class RecordBlock {
 public:
  RecordBlock(std::size_t capacity, int fields)
      : capacity_(capacity),
        numbers_(capacity * static_cast<std::size_t>(fields)),
        is_integer_(static_cast<std::size_t>(fields)) {}

  /// Where a result has the key of a record and the first of its fields.
  struct Layout {
    int key_column = -1;  // -1 for none: the place in the result serves as one
    int first_field = 0;
  };

  /// Adds the record that `statement` stands on.
  void Append(sqlite3_stmt* statement, const Layout& layout);

  std::size_t Size() const { return keys_.size(); }
  std::int64_t Key(std::size_t record) const { return keys_[record]; }

  /// The number in a cell, NaN when it holds none.
  double Number(std::size_t record, int field) const { return numbers_[Place(record, field)]; }

  /// The cell in its own kind.
  Variant Value(std::size_t record, int field) const;

  /// Writes a number or (with NaN) NULL into a cell.
  void Put(std::size_t record, int field, double value);

 private:
  std::size_t Place(std::size_t record, int field) const {
    return static_cast<std::size_t>(field) * capacity_ + record;
  }

  std::size_t capacity_;
  std::vector<double> numbers_;
  std::vector<char> is_integer_;  // of a column's first record; others differ in `others_`
  std::vector<std::int64_t> keys_;
  std::unordered_map<std::size_t, Variant> others_;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_RECORD_BLOCK_H_
