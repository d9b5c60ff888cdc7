#ifndef TSLM5_ENGINE_TABLE_VERSIONS_H_
#define TSLM5_ENGINE_TABLE_VERSIONS_H_

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace tslm5 {

/// Counts the writes to each table of a connection, and all of them together. Whoever buffers what
/// a table holds compares one number to know whether to look again.
class TableVersions {
 public:
  using Counter = std::uint64_t;

  /// The counter of the table `name` (case does not matter), which lives as long as this object.
  Counter* Of(std::string_view name);
  /// The counter of all writes.
  const Counter* OfAll() const { return &all_; }

  /// The table of `counter` was written.
  void Advance(Counter* counter) {
    ++*counter;
    ++all_;
  }
  /// Every table may have been.
  void AdvanceAll() noexcept {
    for (auto& [name, counter] : tables_) ++counter;
    ++all_;
  }

 private:
  std::map<std::string, Counter> tables_;  // by their names in lower case
  Counter all_ = 0;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_TABLE_VERSIONS_H_
