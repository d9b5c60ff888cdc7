#ifndef TSLM5_CONTRACTS_MISSING_METADATA_H_
#define TSLM5_CONTRACTS_MISSING_METADATA_H_

#include <cstdint>
#include <string_view>

#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// The missing values of a run and their replacements, one mapping a column and token. Columns are
/// zero-based. Nothing is remembered: every call reads the tables. Values are pasted into
/// statements as they are, so an apostrophe raises 1 before the first of them. What the engine
/// raises passes on; without a run 41001.
class IMissingMetadata : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000022ULL, 0x8a1f4c0b6d2e7322ULL};

  /// Keeps a replacement and how it was chosen (stored as given) for a token of a column;
  /// `ApplyMissing` writes it into the data. A token that is not there changes nothing. Not a
  /// number takes the choice back; text that is no number raises 13, infinity 6.
  virtual void UpdateMissing(std::int32_t pColumnIndex, const Variant& pOriginalvalue,
                             const Variant& pNewValue, std::int32_t pNewValueType) = 0;
  /// Map: column index to itself, columns with missing values only, in ascending order. Empty
  /// without a run.
  virtual Variant GetIndexes() = 0;
  /// Missing values of a column over all its tokens; 0 for a column without any.
  virtual std::int32_t GetMissingCount(std::int32_t pColumnIndex) = 0;
  /// Writes a column's replacements into the training and the testing table, in the scale that the
  /// run's data have (run parameter "NormalizationType"), all or nothing. A token without a
  /// replacement is left alone. True when that was done, also for a column without tokens; on any
  /// failure false, with nothing changed and nothing raised. May be repeated after a change.
  virtual bool ApplyMissing(std::int32_t pColumnIndex) = 0;
  /// Array of texts from index 0, one a token of the column in the order of their making:
  /// "Id|ColumnIndex|MissingCount|OriginalValue|Replacement|ReplacementType", such as
  /// "7|3|12|?|5|2". A replacement that is not chosen yet is empty.
  virtual Variant GetMissingFixedValues(std::int32_t pColumnIndex) = 0;

 protected:
  ~IMissingMetadata() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_MISSING_METADATA_H_
