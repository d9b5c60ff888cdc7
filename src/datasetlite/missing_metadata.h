#ifndef TSLM5_DATASETLITE_MISSING_METADATA_H_
#define TSLM5_DATASETLITE_MISSING_METADATA_H_

#include <cstdint>

#include "datasetlite/data_set_lite_state.h"
#include "tslm5/contracts/missing_metadata.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// `IMissingMetadata` of a `DataSetLite`: the missing tokens of its run, as the tables are now.
class MissingMetadataFacet final : public Facet<IMissingMetadata> {
 public:
  MissingMetadataFacet(IUnknown& owner, DataSetLiteState& state) : Facet(owner), state_(state) {}
  void UpdateMissing(std::int32_t pColumnIndex, const Variant& pOriginalvalue,
                     const Variant& pNewValue, std::int32_t pNewValueType) override;
  Variant GetIndexes() override;
  std::int32_t GetMissingCount(std::int32_t pColumnIndex) override;
  bool ApplyMissing(std::int32_t pColumnIndex) override;
  Variant GetMissingFixedValues(std::int32_t pColumnIndex) override;

 private:
  /// `value` of column `column` in the scale of the data; 0 for a type that is none of 0 to 3.
  /// Raises 11 for a zero denominator, 6 for an overflow.
  double NormalizeValue(std::int32_t column, double value, std::int32_t normalization_type) const;
  /// Writes the replacements of a column in one transaction; every failure raises.
  void Apply(std::int32_t column);

  DataSetLiteState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_MISSING_METADATA_H_
