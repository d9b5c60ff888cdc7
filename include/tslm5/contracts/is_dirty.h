#ifndef TSLM5_CONTRACTS_IS_DIRTY_H_
#define TSLM5_CONTRACTS_IS_DIRTY_H_

#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// Whether a dataset was changed since it was loaded or saved.
class IIsDirty : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000019ULL, 0x8a1f4c0b6d2e7319ULL};

  ///@{
  /// Set by a parse, `FormatDataAs` and `SetProperty`; in a `DataSetLite` also by `SetData`,
  /// `SetLabels`, `Clear`, a cell of its extra set, a reset of a time series and its undo, a new
  /// category code, a merged response and replaced missing values. Taken back by
  /// `IPersistable::Load` and `IPersistable::Save`, or by the caller.
  virtual bool IsDirty() = 0;
  virtual void put_IsDirty(bool pIsDirty) = 0;
  ///@}

 protected:
  ~IIsDirty() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_IS_DIRTY_H_
