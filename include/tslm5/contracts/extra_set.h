#ifndef TSLM5_CONTRACTS_EXTRA_SET_H_
#define TSLM5_CONTRACTS_EXTRA_SET_H_

#include <cstdint>

#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// An extra block of numeric columns kept beside the data: the testing part of a time series. It
/// ends with its data: a load of other data, `SetData` and `Clear` leave the set without one.
/// Column before row, both zero-based. Caller's thread only.
class IExtraSet : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000016ULL, 0x8a1f4c0b6d2e7316ULL};

  /// Rows of the block; 0 without one, never raises.
  virtual std::int32_t Rows() = 0;
  /// Columns of the block; 0 without one, never raises. An `InMemorySet` gives the columns of its
  /// main data (meant).
  virtual std::int32_t Columns() = 0;
  /// The set has an extra block, be it empty.
  virtual bool Exists() = 0;
  /// One cell; a missing one is not a number. Column `Columns` of a `DataSetLite` is the record's
  /// key. An absent cell raises 41001, or 9 in an `InMemorySet`.
  virtual double GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) = 0;
  /// Writes one cell; not a number makes it missing. What is absent raises as in `GetItem`, and so
  /// does the key. The cells of a `DataSetLite` reach the run with its next statement, at
  /// `IPersistable::Save` at the latest; a run that can only be read raises 8.
  virtual void SetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex, double pValue) = 0;
  /// As `IVectorize::Vectorize`, of the extra block; its errors' source is "IExtraSet_Vectorize".
  virtual void Vectorize(std::int32_t pColumnIndex, VariantArray& pArray, std::int32_t pStart,
                         std::int32_t pCount) = 0;

 protected:
  ~IExtraSet() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_EXTRA_SET_H_
