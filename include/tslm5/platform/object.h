#ifndef TSLM5_PLATFORM_OBJECT_H_
#define TSLM5_PLATFORM_OBJECT_H_

#include <atomic>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "tslm5/platform/live_objects.h"
#include "tslm5/platform/ref.h"
#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// The reference count of one object. It starts at one, for the maker.
class RefCount {
 public:
  /// Adds one and returns the new count.
  std::uint32_t Increment() { return count_.fetch_add(1, std::memory_order_relaxed) + 1; }
  /// Takes one away and returns what is left; at 0 the caller destroys the object.
  std::uint32_t Decrement() { return count_.fetch_sub(1, std::memory_order_acq_rel) - 1; }

  /// Parks the count while the object is destroyed, so that a passing `AddRef`/`Release` pair
  /// inside the destructor cannot destroy it a second time.
  void Park() { count_.store(1, std::memory_order_relaxed); }

 private:
  std::atomic<std::uint32_t> count_{1};
};

/// Base of a counted object with one interface. The derived class implements the interface and
/// `TypeName`, keeps its destructor private, and is made by `MakeObject`.
template <class I>
class CountedObject : public I {
 public:
  CountedObject(const CountedObject&) = delete;
  CountedObject& operator=(const CountedObject&) = delete;

  /// The faces are `I` and `IUnknown`, one pointer.
  bool QueryInterface(const Uuid& pId, void** pObject) override {
    const bool known = pId == I::kId || pId == IUnknown::kId;
    *pObject = known ? static_cast<I*>(this) : nullptr;
    if (known) count_.Increment();
    return known;
  }

  /// As `IUnknown` says.
  std::uint32_t AddRef() final { return count_.Increment(); }

  /// As `IUnknown` says; the count is parked while the destructor runs.
  std::uint32_t Release() noexcept final {
    const std::uint32_t left = count_.Decrement();
    if (left == 0) {
      count_.Park();
      delete this;
    }
    return left;
  }

 protected:
  CountedObject() { LiveObjects::Add(this); }
  virtual ~CountedObject() { LiveObjects::Remove(this); }

 private:
  RefCount count_;
};

/// Base of a counted object with many interfaces: it is the root identity and the count, and hands
/// out one facet an interface. The derived class names its facets in `FindFacet`.
class FacetOwner : public IUnknown {
 public:
  FacetOwner(const FacetOwner&) = delete;
  FacetOwner& operator=(const FacetOwner&) = delete;

  bool QueryInterface(const Uuid& pId, void** pObject) final {
    *pObject = pId == IUnknown::kId ? static_cast<IUnknown*>(this) : FindFacet(pId);
    if (*pObject == nullptr) return false;
    count_.Increment();
    return true;
  }

  std::uint32_t AddRef() final { return count_.Increment(); }

  std::uint32_t Release() noexcept final {
    const std::uint32_t left = count_.Decrement();
    if (left == 0) {
      count_.Park();
      delete this;
    }
    return left;
  }

 protected:
  FacetOwner() { LiveObjects::Add(this); }
  virtual ~FacetOwner() { LiveObjects::Remove(this); }

  /// The facet that implements `pId`, cast to that interface, or nullptr. Does not count.
  virtual void* FindFacet(const Uuid& pId) = 0;

 private:
  RefCount count_;
};

/// Base of a facet: implements interface `I` for `owner`, whose count and identity it shares.
/// A facet is a member of its owner and never outlives it.
template <class I>
class Facet : public I {
 public:
  /// A facet of `owner`, which is not counted: it holds the facet.
  explicit Facet(IUnknown& owner) : owner_(owner) {}
  Facet(const Facet&) = delete;
  Facet& operator=(const Facet&) = delete;

  ///@{
  /// The owner's, as `IUnknown` says.
  bool QueryInterface(const Uuid& pId, void** pObject) final {
    return owner_.QueryInterface(pId, pObject);
  }
  std::uint32_t AddRef() final { return owner_.AddRef(); }
  std::uint32_t Release() noexcept final { return owner_.Release(); }
  std::string_view TypeName() final { return owner_.TypeName(); }
  ///@}

 protected:
  ~Facet() = default;

 private:
  IUnknown& owner_;
};

/// Makes a counted object; the reference returned is its first.
template <class T, class... Arguments>
Ref<T> MakeObject(Arguments&&... arguments) {
  static_assert(!std::is_destructible_v<T>, "the destructor of a counted class is private");
  return Ref<T>::Adopt(new T(std::forward<Arguments>(arguments)...));
}

}  // namespace tslm5

#endif  // TSLM5_PLATFORM_OBJECT_H_
