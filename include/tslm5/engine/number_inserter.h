#ifndef TSLM5_ENGINE_NUMBER_INSERTER_H_
#define TSLM5_ENGINE_NUMBER_INSERTER_H_

#include <cstdint>
#include <span>
#include <string_view>

#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// A face of a connection for rows of numbers that need not become text first.
class INumberInserter : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000045ULL, 0x8a1f4c0b6d2e7345ULL};

  /// Does what `Execute` does with `pHead` + the numbers and `pRow`, separated by commas, + ");",
  /// where `pHead` is "INSERT INTO name VALUES (" and a number that is none (NaN) is NULL. True
  /// when the row was stored. False, having done nothing, when only the text can decide: outside a
  /// transaction, for an infinite number, for another number of columns than the table's, or for
  /// columns that do not store doubles as they are. Raises what `Execute` raises.
  virtual bool InsertNumbers(std::string_view pHead, std::span<const double> pNumbers,
                             std::int32_t pRow) = 0;

 protected:
  ~INumberInserter() = default;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_NUMBER_INSERTER_H_
