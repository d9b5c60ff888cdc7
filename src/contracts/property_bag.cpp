#include "contracts/property_bag.h"

namespace tslm5 {

void PropertyBag::Put(std::string_view key, std::string_view value) {
  if (std::string* present = properties_.Find(key)) {
    *present = value;
  } else {
    properties_.Add(key, std::string(value));
  }
}

const std::string& PropertyBag::Find(std::string_view key) const {
  static const std::string kNothing;
  const std::string* value = properties_.Find(key);
  return value == nullptr ? kNothing : *value;
}

const std::string& PropertyBag::Get(std::string_view key) const {
  return properties_.Item(key, "GetProperty");
}

}  // namespace tslm5
