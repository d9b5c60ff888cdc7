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
  friend bool operator==(Null, Null) { return true; }
};

/// A self-describing value. Conversions follow the automation rules: an empty one reads as 0, ""
/// or false; true is -1; a number text is read with "."; what cannot be converted raises
/// 13 "Type mismatch", and a number outside 32 bits 6 "Overflow".
/// Copies are deep but for objects, arrays and maps, which are shared.
class Variant {
 public:
  enum class Kind { kEmpty, kNull, kBoolean, kInteger, kDouble, kString, kObject, kArray, kMap };

  Variant() = default;
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
  /// A raw pointer is no value (it would pass for a boolean): hand over a `Ref`.
  Variant(const void*) = delete;

  Kind GetKind() const { return static_cast<Kind>(value_.index()); }
  bool IsEmpty() const { return GetKind() == Kind::kEmpty; }
  bool IsNull() const { return GetKind() == Kind::kNull; }
  bool IsNumber() const { return GetKind() == Kind::kInteger || GetKind() == Kind::kDouble; }

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

  /// A fraction goes to the nearest whole number, a half to the even one.
  std::int32_t ToInteger() const {
    if (const auto* integer = std::get_if<std::int32_t>(&value_)) return *integer;
    const double number = std::nearbyint(ToDouble());
    if (!(number >= std::numeric_limits<std::int32_t>::min() &&
          number <= std::numeric_limits<std::int32_t>::max())) {
      RaiseOverflow();
    }
    return static_cast<std::int32_t>(number);
  }

  bool ToBoolean() const {
    if (const auto* text = std::get_if<std::string>(&value_)) {
      if (*text == "True" || *text == "true") return true;
      if (*text == "False" || *text == "false") return false;
    }
    return ToDouble() != 0.0;
  }

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

  /// The object held; empty when an object variant holds none.
  const Ref<IUnknown>& ToObject() const { return Get<Ref<IUnknown>>(); }
  const std::shared_ptr<VariantArray>& ToArray() const {
    return Get<std::shared_ptr<VariantArray>>();
  }
  const std::shared_ptr<Dictionary>& ToMap() const { return Get<std::shared_ptr<Dictionary>>(); }

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
