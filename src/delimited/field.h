#ifndef TSLM5_DELIMITED_FIELD_H_
#define TSLM5_DELIMITED_FIELD_H_

#include <cstdint>
#include <string_view>

namespace tslm5::delimited {

enum class FieldClass : std::uint8_t { kNumber, kMissing, kText };

/// A cell of a table: its text and what it is. A view: `FieldBlock` says how long it lives.
struct Field {
  const char* data = nullptr;
  std::uint32_t size = 0;
  FieldClass field_class = FieldClass::kMissing;
  bool is_quoted = false;  ///< quotes stood around it in the file
  double value = 0.0;      ///< of a number, correctly rounded; of no meaning otherwise

  /// Without the blanks around it and, where it was quoted, without the quotes; blanks inside the
  /// quotes are part of it.
  std::string_view Text() const { return {data, size}; }
};

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_FIELD_H_
