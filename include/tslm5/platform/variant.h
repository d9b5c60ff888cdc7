#ifndef TSLM5_PLATFORM_VARIANT_H_
#define TSLM5_PLATFORM_VARIANT_H_

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "tslm5/platform/array.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/number_text.h"
#include "tslm5/platform/ref.h"

namespace tslm5 {

class Dictionary;
class Variant;

/// An array of variants; empty elements hold no value, which is not the number 0.
using VariantArray = Array<Variant>;

/// The value that a database calls NULL.
struct Null {
  /// Always equal, unlike NULL in SQL.
  friend bool operator==(Null, Null) { return true; }
};

/// A self-describing value. Conversions follow the automation rules: an empty one reads as 0, ""
/// or false; true is -1; a number text is read with "."; what cannot be converted raises
/// 13 "Type mismatch", and a number outside 32 bits 6 "Overflow".
/// Copies are deep but for objects, arrays and maps, which are shared.
class Variant {
 public:
  /// What a variant holds: nothing, NULL, a boolean, 32 bits, a double, UTF-8, a `Ref`, an array, a
  /// map.
  enum class Kind { kEmpty, kNull, kBoolean, kInteger, kDouble, kString, kObject, kArray, kMap };

  /// Holds nothing.
  Variant() = default;
  ///@{
  /// Holds the value given; an object by its `IUnknown` face, an array or a map shared.
  Variant(Null) : value_(Null{}) {}
  Variant(bool value) : value_(value) {}
  Variant(std::int32_t value) : value_(value) {}
  Variant(double value) : value_(value) {}
  Variant(std::string value) : value_(std::move(value)) {}
  Variant(std::string_view value) : value_(std::string(value)) {}
  Variant(const char* value) : value_(std::string(value)) {}
  template <class T>
  Variant(Ref<T> object) : value_(object.template As<IUnknown>()) {}
  Variant(std::shared_ptr<VariantArray> array) : value_(std::move(array)) {}
  Variant(std::shared_ptr<Dictionary> map) : value_(std::move(map)) {}
  ///@}
  /// A raw pointer is no value (it would pass for a boolean): hand over a `Ref`.
  Variant(const void*) = delete;

  /// Conversions do not change it.
  Kind GetKind() const { return static_cast<Kind>(value_.index()); }
  /// Holds nothing; NULL and "" are values.
  bool IsEmpty() const { return GetKind() == Kind::kEmpty; }
  /// Holds NULL.
  bool IsNull() const { return GetKind() == Kind::kNull; }
  /// Holds an integer or a double; a text that reads as one is none.
  bool IsNumber() const { return GetKind() == Kind::kInteger || GetKind() == Kind::kDouble; }

  /// The value as a number. NULL, objects, arrays, maps and texts that are no number raise 13.
  double ToDouble() const {
    switch (GetKind()) {
      case Kind::kEmpty:
        return 0.0;
      case Kind::kBoolean:
        return std::get<bool>(value_) ? -1.0 : 0.0;
      case Kind::kInteger:
        return std::get<std::int32_t>(value_);
      case Kind::kDouble:
        return std::get<double>(value_);
      case Kind::kString: {
        double number = 0.0;
        if (ParseNumber(std::get<std::string>(value_), '.', number)) return number;
        break;
      }
      default:
        break;
    }
    RaiseTypeMismatch();
  }

  /// The value as a whole number: a fraction goes to the nearest one, a half to the even one.
  std::int32_t ToInteger() const {
    if (const auto* integer = std::get_if<std::int32_t>(&value_)) return *integer;
    const double number = std::nearbyint(ToDouble());
    if (!(number >= std::numeric_limits<std::int32_t>::min() &&
          number <= std::numeric_limits<std::int32_t>::max())) {
      RaiseOverflow();
    }
    return static_cast<std::int32_t>(number);
  }

  /// Whether the value as a number is not 0; of the texts also "True", "true", "False", "false".
  bool ToBoolean() const {
    if (const auto* text = std::get_if<std::string>(&value_)) {
      if (*text == "True" || *text == "true") return true;
      if (*text == "False" || *text == "false") return false;
    }
    return ToDouble() != 0.0;
  }

  /// The value as text, a number in its shortest form with "."; raises 13 for NULL, objects, arrays
  /// and maps.
  std::string ToString() const {
    switch (GetKind()) {
      case Kind::kEmpty:
        return {};
      case Kind::kBoolean:
        return std::get<bool>(value_) ? "True" : "False";
      case Kind::kInteger:
        return std::to_string(std::get<std::int32_t>(value_));
      case Kind::kDouble:
        return NumberText(std::get<double>(value_));
      case Kind::kString:
        return std::get<std::string>(value_);
      default:
        RaiseTypeMismatch();
    }
  }

  ///@{
  /// What is held, good as long as the variant keeps it; any other kind raises 13. An object may be
  /// an empty reference.
  const Ref<IUnknown>& ToObject() const { return Get<Ref<IUnknown>>(); }
  const std::shared_ptr<VariantArray>& ToArray() const {
    return Get<std::shared_ptr<VariantArray>>();
  }
  const std::shared_ptr<Dictionary>& ToMap() const { return Get<std::shared_ptr<Dictionary>>(); }
  ///@}

  /// Same kind and same value; objects, arrays and maps are equal when they are the same one.
  friend bool operator==(const Variant& left, const Variant& right) {
    return left.value_ == right.value_;
  }

 private:
  template <class T>
  const T& Get() const {
    if (const T* value = std::get_if<T>(&value_)) return *value;
    RaiseTypeMismatch();
  }

  std::variant<std::monostate, Null, bool, std::int32_t, double, std::string, Ref<IUnknown>,
               std::shared_ptr<VariantArray>, std::shared_ptr<Dictionary>>
      value_;
};

}  // namespace tslm5

#endif  // TSLM5_PLATFORM_VARIANT_H_
