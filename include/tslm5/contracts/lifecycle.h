#ifndef TSLM5_CONTRACTS_LIFECYCLE_H_
#define TSLM5_CONTRACTS_LIFECYCLE_H_

#include <string>

#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// Attaching an object to a run and saving it there.
class IPersistable : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d3500001aULL, 0x8a1f4c0b6d2e731aULL};

  /// Writes the pending cells, those of the extra set too, and the labels under the type code;
  /// those of a training set (type 1) also as the run's column records, from which `Load` reads
  /// them, unless the application keeps column records that say more than labels. `pRunPath` holds
  /// the run object (type name "Run") or the path of an existing file, with which the object keeps
  /// the run that it has; `pParams` the dataset type code. False when there is no data (pending
  /// cells of the extra set have been written), and when a pending cell cannot be written (no label
  /// has been written); always for an `OriginalDataSet`. Raises 41001 for another `pRunPath` or no
  /// type code, and what the engine raises while the labels are written, which is all or nothing;
  /// -10000 in an `InMemorySet`, which lives in no run.
  virtual bool Save(const Variant& pRunPath, const Variant& pParams) = 0;
  /// Attaches the object to the run's set of the type in `pParams`, with the arguments of `Save`.
  /// False when the run has no such set: the object is attached all the same, without data, as by
  /// `IConstructor::Init`. An `InMemorySet` does nothing and gives false; an `OriginalDataSet`
  /// opens all records and gives true. Raises 41001 as `Save`, for a path without a run to go on
  /// with, and what the engine raises; a `DataSetLite` is as it was then.
  virtual bool Load(const Variant& pRunPath, const Variant& pParams) = 0;

 protected:
  ~IPersistable() = default;
};

/// Copies of an object under another dataset type code.
class ICloneableEx : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d3500001bULL, 0x8a1f4c0b6d2e731bULL};

  /// A copy under the type code in `pParams`; the object's own code raises 41015.
  virtual Ref<IUnknown> Clone(const Variant& pParams) = 0;

 protected:
  ~ICloneableEx() = default;
};

/// Gives a new object what it needs.
class IConstructor : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
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
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d3500001dULL, 0x8a1f4c0b6d2e731dULL};

  /// With true, closes every engine object held; false does nothing.
  virtual void Dispose(bool pIsDisposing) = 0;

 protected:
  ~IDisposable() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_LIFECYCLE_H_
