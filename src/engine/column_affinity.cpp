#include "engine/column_affinity.h"

#include <string>

namespace tslm5 {

Affinity AffinityOf(std::string_view declared_type) {
  std::string type(declared_type);
  for (char& c : type) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  const auto holds = [&type](std::string_view part) {
    return type.find(part) != std::string::npos;
  };
  if (holds("INT")) return Affinity::kInteger;
  if (holds("CHAR") || holds("CLOB") || holds("TEXT")) return Affinity::kText;
  if (type.empty() || holds("BLOB")) return Affinity::kBlob;
  if (holds("REAL") || holds("FLOA") || holds("DOUB")) return Affinity::kReal;
  return Affinity::kNumeric;
}

}  // namespace tslm5
