#ifndef TSLM5_CONTRACTS_VECTORIZE_H_
#define TSLM5_CONTRACTS_VECTORIZE_H_

#include <cstdint>

#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// One column of the main data as an array indexed by row number.
class IVectorize : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000017ULL, 0x8a1f4c0b6d2e7317ULL};

  /// Copies rows [pStart, pStart + pCount) of a column into `pArray`, whose lower bound is
  /// `pStart`; fewer where the data end, and elements past the data stay empty. `pCount` -1 means
  /// to the end and sizes the array one element longer than the rows (meant); it is empty from a
  /// start further behind the data. A count below -1 raises 9.
  /// Raises 12125 when `pColumnIndex` > Columns, 12126 when it is negative, with the source
  /// "IDataSet_Vectorize"; the array has been sized by then.
  virtual void Vectorize(std::int32_t pColumnIndex, VariantArray& pArray, std::int32_t pStart,
                         std::int32_t pCount) = 0;

 protected:
  ~IVectorize() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_VECTORIZE_H_
