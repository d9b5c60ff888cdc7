#ifndef TSLM5_SRC_PLATFORM_COLLECTION_H_
#define TSLM5_SRC_PLATFORM_COLLECTION_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tslm5 {

/// The form of `key` (UTF-8) in which keys that differ only by case are the same text: Unicode's
/// full case folding, the same under every locale.
std::string FoldKey(std::string_view key);

/// Raises 457: `key` is already in the collection. The source is "Collection".
[[noreturn]] void RaiseKeyPresent(std::string_view key);

/// Raises 5 with the given source: `key` is not in the collection.
[[noreturn]] void RaiseKeyAbsent(std::string_view key, std::string_view source);

/// Values under text keys, in the order in which they were added; keys are compared without regard
/// to case. A plain value: copies are deep. Not for keys that must match exactly: see `Dictionary`.
template <class Value>
class KeyedCollection {
 public:
  /// A key as it was first written, and its value.
  using Entry = std::pair<std::string, Value>;

  /// Adds a new entry at the end. A key already present raises 457; that, or a lack of memory,
  /// changes nothing.
  void Add(std::string_view key, Value value) {
    std::string folded = FoldKey(key);
    if (places_.contains(folded)) RaiseKeyPresent(key);
    entries_.emplace_back(std::string(key), std::move(value));
    try {
      places_.emplace(std::move(folded), entries_.size() - 1);
    } catch (...) {  // an entry without a place would never be found
      entries_.pop_back();
      throw;
    }
  }

  /// The value under `key`. An absent key raises 5 with `source`.
  const Value& Item(std::string_view key, std::string_view source = "Collection") const {
    const Value* value = Find(key);
    if (value == nullptr) RaiseKeyAbsent(key, source);
    return *value;
  }

  /// The value under `key`, or nullptr; good until the collection is next changed.
  const Value* Find(std::string_view key) const {
    const auto place = places_.find(FoldKey(key));
    return place == places_.end() ? nullptr : &entries_[place->second].second;
  }
  Value* Find(std::string_view key) {
    const auto place = places_.find(FoldKey(key));
    return place == places_.end() ? nullptr : &entries_[place->second].second;
  }

  /// Takes the entry of `key` out; its cost grows with the number of entries.
  /// An absent key raises 5 with `source`.
  void Remove(std::string_view key, std::string_view source = "Collection") {
    const auto place = places_.find(FoldKey(key));
    if (place == places_.end()) RaiseKeyAbsent(key, source);
    const std::size_t gap = place->second;
    places_.erase(place);
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(gap));
    for (auto& entry : places_) {
      if (entry.second > gap) --entry.second;
    }
  }

  void Clear() {
    places_.clear();
    entries_.clear();
  }

  std::size_t Count() const { return entries_.size(); }

  /// Keys and values in the order of insertion.
  const std::vector<Entry>& Entries() const { return entries_; }

 private:
  std::vector<Entry> entries_;
  std::unordered_map<std::string, std::size_t> places_;  // folded key to index in entries_
};

}  // namespace tslm5

#endif  // TSLM5_SRC_PLATFORM_COLLECTION_H_
