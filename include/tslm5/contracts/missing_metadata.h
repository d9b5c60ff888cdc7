#ifndef TSLM5_CONTRACTS_MISSING_METADATA_H_
#define TSLM5_CONTRACTS_MISSING_METADATA_H_

#include <cstdint>
#include <string_view>

#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// The missing values of a run and their replacements.
class IMissingMetadata : public IUnknown {
 public:
  static constexpr Uuid kId{0x54534c4d35000022ULL, 0x8a1f4c0b6d2e7322ULL};

  virtual void UpdateMissing(std::int32_t pColumnIndex, const Variant& pOriginalvalue,
                             const Variant& pNewValue, std::int32_t pNewValueType) = 0;
  /// Map: column index to itself, columns with missing values only.
  virtual Variant GetIndexes() = 0;
  virtual std::int32_t GetMissingCount(std::int32_t pColumnIndex) = 0;
  /// Writes a column's replacements into the tables, all or nothing; true when that was done.
  virtual bool ApplyMissing(std::int32_t pColumnIndex) = 0;
  /// Array of texts, one a missing token of the column.
  virtual Variant GetMissingFixedValues(std::int32_t pColumnIndex) = 0;

 protected:
  ~IMissingMetadata() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_MISSING_METADATA_H_
