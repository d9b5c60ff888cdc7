#ifndef TSLM5_SRC_CONTRACTS_PROPERTY_BAG_H_
#define TSLM5_SRC_CONTRACTS_PROPERTY_BAG_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/collection.h"

namespace tslm5 {

/// A dataset's named texts. Keys are compared without regard to case. A plain value, owned by its
/// dataset. The order of arguments is key, value: the operations of the dataset interfaces take
/// them the other way round.
class PropertyBag {
 public:
  /// Writes `value` under `key`; the last write wins. A new key comes last, a known one keeps its
  /// place and its first spelling.
  void Put(std::string_view key, std::string_view value);

  /// The value under `key`, or "" when there is none; good until the bag is next changed.
  const std::string& Find(std::string_view key) const;

  /// As `Find`, but an unknown key raises 5 with the source "GetProperty".
  const std::string& Get(std::string_view key) const;

  void Clear() { properties_.Clear(); }
  std::size_t Count() const { return properties_.Count(); }

  /// Keys and values in the order in which the keys were first written.
  const std::vector<KeyedCollection<std::string>::Entry>& Entries() const {
    return properties_.Entries();
  }

 private:
  KeyedCollection<std::string> properties_;
};

}  // namespace tslm5

#endif  // TSLM5_SRC_CONTRACTS_PROPERTY_BAG_H_
