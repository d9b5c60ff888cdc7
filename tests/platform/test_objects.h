#ifndef TSLM5_TESTS_PLATFORM_TEST_OBJECTS_H_
#define TSLM5_TESTS_PLATFORM_TEST_OBJECTS_H_

#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>

#include "tslm5/platform/object.h"
#include "tslm5/platform/ref.h"
#include "tslm5/platform/unknown.h"

namespace tslm5 {

class IFirst : public IUnknown {
 public:
  static constexpr Uuid kId{1, 1};
  virtual int First() = 0;

 protected:
  ~IFirst() = default;
};

/// Derives from another interface, as no public one does, to try the upcast of `Ref`.
class IFirstAndMore : public IFirst {
 public:
  static constexpr Uuid kId{1, 2};
  virtual int More() = 0;

 protected:
  ~IFirstAndMore() = default;
};

class ISecond : public IUnknown {
 public:
  static constexpr Uuid kId{1, 3};
  virtual int Second() = 0;

 protected:
  ~ISecond() = default;
};

/// A counted object with one interface. `on_destroy` runs in its destructor.
class OneFace final : public CountedObject<IFirst> {
 public:
  explicit OneFace(std::function<void(OneFace&)> on_destroy = {})
      : on_destroy_(std::move(on_destroy)) {}

  std::string_view TypeName() override { return "OneFace"; }
  int First() override { return 1; }

 private:
  ~OneFace() override {
    if (on_destroy_) on_destroy_(*this);
  }

  std::function<void(OneFace&)> on_destroy_;
};

/// A counted object whose interface derives from another one.
class LongFace final : public CountedObject<IFirstAndMore> {
 public:
  std::string_view TypeName() override { return "LongFace"; }
  int First() override { return 11; }
  int More() override { return 12; }

 private:
  ~LongFace() override = default;
};

/// A counted object with two interfaces, one facet each. `on_destroy` runs in its destructor.
class TwoFaces final : public FacetOwner {
 public:
  explicit TwoFaces(std::function<void(TwoFaces&)> on_destroy = {})
      : on_destroy_(std::move(on_destroy)) {}

  std::string_view TypeName() override { return "TwoFaces"; }

 protected:
  void* FindFacet(const Uuid& pId) override {
    if (pId == IFirst::kId) return static_cast<IFirst*>(&first_);
    if (pId == ISecond::kId) return static_cast<ISecond*>(&second_);
    return nullptr;
  }

 private:
  struct FirstFacet final : Facet<IFirst> {
    using Facet::Facet;
    int First() override { return 21; }
  };
  struct SecondFacet final : Facet<ISecond> {
    using Facet::Facet;
    int Second() override { return 22; }
  };

  ~TwoFaces() override {
    if (on_destroy_) on_destroy_(*this);
  }

  FirstFacet first_{*this};
  SecondFacet second_{*this};
  std::function<void(TwoFaces&)> on_destroy_;
};

/// The count of `object` as it is now.
inline std::uint32_t CountOf(IUnknown& object) {
  object.AddRef();
  return object.Release();
}

}  // namespace tslm5

#endif  // TSLM5_TESTS_PLATFORM_TEST_OBJECTS_H_
