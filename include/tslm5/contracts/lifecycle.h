#ifndef TSLM5_CONTRACTS_LIFECYCLE_H_
#define TSLM5_CONTRACTS_LIFECYCLE_H_

#include <string>

#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// Attaching an object to a run and saving it there.
class IPersistable : public IUnknown {
 public:
  static constexpr Uuid kId{0x54534c4d3500001aULL, 0x8a1f4c0b6d2e731aULL};

  /// `pRunPath` holds the run object (type name "Run"), `pParams` the dataset type code.
  virtual bool Save(const Variant& pRunPath, const Variant& pParams) = 0;
  virtual bool Load(const Variant& pRunPath, const Variant& pParams) = 0;

 protected:
  ~IPersistable() = default;
};

/// Copies of an object under another dataset type code.
class ICloneableEx : public IUnknown {
 public:
  static constexpr Uuid kId{0x54534c4d3500001bULL, 0x8a1f4c0b6d2e731bULL};

  /// A copy under the type code in `pParams`; the object's own code raises 41015.
  virtual Ref<IUnknown> Clone(const Variant& pParams) = 0;

 protected:
  ~ICloneableEx() = default;
};

/// Gives a new object what it needs.
class IConstructor : public IUnknown {
 public:
  static constexpr Uuid kId{0x54534c4d3500001cULL, 0x8a1f4c0b6d2e731cULL};

  /// Element 0 of `pParams` is the run object, element 1 the dataset type code; fewer raise 41001.
  /// The result holds true.
  virtual Variant Init(const VariantArray& pParams) = 0;

 protected:
  ~IConstructor() = default;
};

/// Early release of what an object holds open.
class IDisposable : public IUnknown {
 public:
  static constexpr Uuid kId{0x54534c4d3500001dULL, 0x8a1f4c0b6d2e731dULL};

  /// With true, closes every engine object held; false does nothing.
  virtual void Dispose(bool pIsDisposing) = 0;

 protected:
  ~IDisposable() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_LIFECYCLE_H_
