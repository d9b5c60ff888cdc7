#ifndef TSLM5_PLATFORM_DICTIONARY_H_
#define TSLM5_PLATFORM_DICTIONARY_H_

#include <cstddef>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "tslm5/platform/error.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// A map that keeps the order of its insertions and compares keys exactly: by kind and value, so
/// "Yes" and "yes" are two keys, and so are 1 and "1"; 1 and 1.0 are one.
/// Keys are numbers, booleans or texts; any other kind raises 13.
class Dictionary {
 public:
  /// Adds a new entry at the end. A key already present raises 457; that, or a lack of memory,
  /// changes nothing.
  void Add(const Variant& key, Variant value) {
    std::string code = Encode(key);
    if (places_.contains(code)) {
      throw Error(error_number::kKeyPresent, "Dictionary",
                  "The key \"" + key.ToString() + "\" is already present.");
    }
    Append(std::move(code), key, std::move(value));
  }

  /// Writes the value of a key, adding the key at the end when it is new.
  void Set(const Variant& key, Variant value) {
    std::string code = Encode(key);
    const auto place = places_.find(code);
    if (place == places_.end()) {
      Append(std::move(code), key, std::move(value));
    } else {
      entries_[place->second].second = std::move(value);
    }
  }

  /// The value of `key`; an absent key gives an empty variant.
  Variant Item(const Variant& key) const {
    const auto place = places_.find(Encode(key));
    return place == places_.end() ? Variant() : entries_[place->second].second;
  }

  /// Whether there is an entry of that key, be its value empty.
  bool Exists(const Variant& key) const { return places_.contains(Encode(key)); }
  /// Number of entries.
  std::size_t Count() const { return entries_.size(); }

  /// Keys and values in the order of insertion; good until the dictionary is next changed.
  const std::vector<std::pair<Variant, Variant>>& Entries() const { return entries_; }

 private:
  /// One text a key: its kind, then its value.
  static std::string Encode(const Variant& key) {
    std::string code;
    switch (key.GetKind()) {
      case Variant::Kind::kInteger:
      case Variant::Kind::kDouble:
        code = 'n';
        AppendNumber(code, key.ToDouble() + 0.0);  // the sum makes -0 the key 0
        return code;
      case Variant::Kind::kBoolean:
        return key.ToBoolean() ? "b1" : "b0";
      case Variant::Kind::kString:
        code = 's';
        return code.append(key.ToString());
      default:
        RaiseTypeMismatch();
    }
  }

  void Append(std::string code, const Variant& key, Variant value) {
    entries_.emplace_back(key, std::move(value));
    try {
      places_.emplace(std::move(code), entries_.size() - 1);
    } catch (...) {  // an entry without a place would never be found
      entries_.pop_back();
      throw;
    }
  }

  std::vector<std::pair<Variant, Variant>> entries_;
  std::unordered_map<std::string, std::size_t> places_;
};

}  // namespace tslm5

#endif  // TSLM5_PLATFORM_DICTIONARY_H_
