#ifndef TSLM5_DELIMITED_TEXT_PROFILE_H_
#define TSLM5_DELIMITED_TEXT_PROFILE_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "delimited/field_block.h"

namespace tslm5::delimited {

/// Texts of one column, each once, in the order of their first appearance, with their counts; up
/// to a bound on how many.
class DistinctTexts {
 public:
  struct Entry {
    std::string text;
    std::int64_t count;
  };

  void Add(std::string_view text, std::size_t most);

  const std::vector<Entry>& Entries() const { return entries_; }
  /// Whether there were more than the bound; the entries then are the first ones, and their counts
  /// are exact.
  bool IsCut() const { return is_cut_; }

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };

  std::vector<Entry> entries_;
  std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> places_;
  bool is_cut_ = false;
};

/// What the cells of one column are.
struct ColumnProfile {
  std::int64_t numbers = 0;
  std::int64_t missing = 0;
  std::int64_t texts = 0;
  std::int64_t quoted = 0;         ///< of any class
  std::int64_t first_missing = 0;  ///< line of the first, 1-based; 0 for none
  std::int64_t first_text = 0;
  DistinctTexts missing_tokens;  ///< the empty cell is ""
  DistinctTexts categories;      ///< the cells of the class text
};

/// What the cells of a table are, column by column, gathered from the blocks of a reader.
class TextProfile {
 public:
  /// At most `most_distinct` categories and tokens of a column are held.
  explicit TextProfile(std::size_t most_distinct = 10'000) : most_distinct_(most_distinct) {}

  void Add(const FieldBlock& block);

  const std::vector<ColumnProfile>& Columns() const { return columns_; }

 private:
  void AddOther(const Field& field, std::int64_t line, ColumnProfile& column) const;

  std::size_t most_distinct_;
  std::vector<ColumnProfile> columns_;
};

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_TEXT_PROFILE_H_
