#ifndef TSLM5_CONTRACTS_EXTRA_SET_H_
#define TSLM5_CONTRACTS_EXTRA_SET_H_

#include <cstdint>

#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// An extra block of numeric columns kept beside the data: the testing part of a time series.
class IExtraSet : public IUnknown {
 public:
  static constexpr Uuid kId{0x54534c4d35000016ULL, 0x8a1f4c0b6d2e7316ULL};

  virtual std::int32_t Rows() = 0;
  virtual std::int32_t Columns() = 0;
  virtual bool Exists() = 0;
  virtual double GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) = 0;
  virtual void SetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex, double pValue) = 0;
  /// As `IVectorize::Vectorize`, of the extra block; its errors' source is "IExtraSet_Vectorize".
  virtual void Vectorize(std::int32_t pColumnIndex, VariantArray& pArray, std::int32_t pStart,
                         std::int32_t pCount) = 0;

 protected:
  ~IExtraSet() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_EXTRA_SET_H_
