#ifndef TSLM5_CONTRACTS_ITERATOR_H_
#define TSLM5_CONTRACTS_ITERATOR_H_

#include <cstdint>

#include "tslm5/platform/array.h"
#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// Walks a dataset sample by sample.
class IIterator : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000018ULL, 0x8a1f4c0b6d2e7318ULL};

  /// Fills `pArray` (lower bound 0, grown when it is too small) with the current sample and moves
  /// on; false past the end. Raises 41010 before the first `ResetIterator`.
  /// Element j is the cell at column = current row, row = j: the crossed order is meant.
  virtual bool GetCurrentSample(Array<double>& pArray) = 0;
  /// The row that `GetCurrentSample` serves next, zero-based; -1 before the first `ResetIterator`.
  virtual std::int32_t CurrentRow() = 0;
  /// Makes row 0 the current row.
  virtual void ResetIterator() = 0;

 protected:
  ~IIterator() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_ITERATOR_H_
