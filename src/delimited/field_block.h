#ifndef TSLM5_DELIMITED_FIELD_BLOCK_H_
#define TSLM5_DELIMITED_FIELD_BLOCK_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "delimited/field.h"
#include "delimited/text_arena.h"

namespace tslm5::delimited {

/// Consecutive records of a table, as many as fit into a processor's cache. What its fields point
/// to is good until the reader that filled it is asked for the next block, or is gone.
class FieldBlock {
 public:
  /// Records are taken until there are this many fields.
  static constexpr std::size_t kMostFields = 8192;

  std::size_t Records() const { return lines_.size(); }
  std::size_t Columns() const { return columns_; }
  /// The number of the first record in the table, 0-based.
  std::int64_t FirstRecord() const { return first_record_; }
  /// The fields of a record, one a column.
  const Field* Record(std::size_t record) const { return fields_.data() + record * columns_; }
  /// The same records as an application sees them.
  DelimitedBlock View() const {
    return {fields_.data(), lines_.data(), Records(), columns_, first_record_};
  }
  /// The line of the file where a record begins, 1-based.
  std::int64_t Line(std::size_t record) const { return lines_[record]; }

 private:
  friend class DelimitedReader;

  void Begin(std::size_t columns, std::int64_t first_record) {
    columns_ = columns;
    first_record_ = first_record;
    lines_.clear();
    arena_.Clear();
    fields_.resize(columns == 0 ? 0 : (kMostFields + columns - 1) / columns * columns);
  }
  bool IsFull() const { return lines_.size() * columns_ >= fields_.size(); }
  /// Room for the fields of the next record, which counts from `Commit` on.
  Field* Next() { return fields_.data() + lines_.size() * columns_; }
  void Commit(std::int64_t line) { lines_.push_back(line); }

  std::size_t columns_ = 0;
  std::int64_t first_record_ = 0;
  std::vector<Field> fields_;
  std::vector<std::int64_t> lines_;
  TextArena arena_;
};

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_FIELD_BLOCK_H_
