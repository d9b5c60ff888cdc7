#ifndef TSLM5_PLATFORM_REF_H_
#define TSLM5_PLATFORM_REF_H_

#include <concepts>
#include <cstddef>
#include <type_traits>
#include <utility>

#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// The owning pointer to a counted object or to one of its faces. Raw pointers never own.
/// Copying counts, moving does not; the last one to go releases the object.
template <class T>
class Ref {
 public:
  ///@{
  /// An empty reference.
  Ref() = default;
  Ref(std::nullptr_t) {}
  ///@}

  /// Shares ownership of `object` (may be null): the count grows by one.
  explicit Ref(T* object) : object_(object) {
    if (object_ != nullptr) object_->AddRef();
  }

  ///@{
  /// Shares the object, or takes the reference over, which leaves `other` empty. A reference to a
  /// derived interface goes where one to its base is expected.
  Ref(const Ref& other) : Ref(other.object_) {}
  Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}

  template <class U>
  requires(std::derived_from<U, T> && !std::same_as<U, T>) Ref(const Ref<U>& other)
      : Ref(static_cast<T*>(other.get())) {}

  template <class U>
  requires(std::derived_from<U, T> && !std::same_as<U, T>) Ref(Ref<U>&& other)
  noexcept : object_(other.Detach()) {}
  ///@}

  ~Ref() { Reset(); }

  /// Lets go of the object held once the new one is held: assigning a reference to itself is safe.
  Ref& operator=(Ref other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  /// Takes over a reference that is already counted.
  static Ref Adopt(T* object) {
    Ref result;
    result.object_ = object;
    return result;
  }

  /// Gives the counted reference away; this one is empty afterwards.
  [[nodiscard]] T* Detach() noexcept { return std::exchange(object_, nullptr); }

  /// Lets go of the object, if any; this is empty before the object's destructor runs.
  void Reset() noexcept {
    if (T* object = std::exchange(object_, nullptr)) object->Release();
  }

  /// The object, borrowed: good as long as some reference holds it. Null when this is empty.
  T* get() const { return object_; }
  ///@{
  /// The object. REQUIRES: this is not empty.
  // The static analyzer does not follow an atomic count: it takes any release for the last one.
  T* operator->() const { return object_; }  // NOLINT(clang-analyzer-cplusplus.NewDelete)
  T& operator*() const { return *object_; }
  ///@}
  /// Whether an object is held.
  explicit operator bool() const { return object_ != nullptr; }

  /// The object's face for interface `I`; empty when it has none, or when this is empty.
  template <class I>
  Ref<I> As() const {
    void* face = nullptr;
    if (object_ == nullptr || !object_->QueryInterface(I::kId, &face)) return nullptr;
    return Ref<I>::Adopt(static_cast<I*>(face));
  }

 private:
  T* object_ = nullptr;
};

///@{
/// Whether both hold the same face, or hold none. Two faces of one object differ: compare what
/// `As<IUnknown>` gives.
template <class T, class U>
bool operator==(const Ref<T>& left, const Ref<U>& right) {
  return left.get() == right.get();
}

template <class T>
bool operator==(const Ref<T>& left, std::nullptr_t) {
  return left.get() == nullptr;
}
///@}

///@{
/// The face of `object` (may be null) for interface `I`, or an empty reference.
template <class I, class T>
Ref<I> Query(T* object) {
  return Ref<T>(object).template As<I>();
}

template <class I, class T>
Ref<I> Query(const Ref<T>& object) {
  return object.template As<I>();
}
///@}

}  // namespace tslm5

#endif  // TSLM5_PLATFORM_REF_H_
