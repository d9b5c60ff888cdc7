#include "engine/table_versions.h"

namespace tslm5 {

TableVersions::Counter* TableVersions::Of(std::string_view name) {
  std::string lower(name);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return &tables_[std::move(lower)];
}

}  // namespace tslm5
