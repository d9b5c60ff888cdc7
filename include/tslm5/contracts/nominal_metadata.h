#ifndef TSLM5_CONTRACTS_NOMINAL_METADATA_H_
#define TSLM5_CONTRACTS_NOMINAL_METADATA_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// The categorical columns of a run: their categories, numeric codes, and the response's encoding.
/// Columns are zero-based; column i is named "d" and i. But for `GetIsCategorical` every call reads
/// the tables. Values are pasted into statements as they are, so one with an apostrophe raises 1
/// before the first of them. What the engine raises passes on and what was done before stays;
/// without a run 41001.
class INominalDataSetMetadata : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000021ULL, 0x8a1f4c0b6d2e7321ULL};

  /// Map: nominal value to "value code count", by text where the column is categorical, else by
  /// number. A value that is there twice raises 457. Empty without a run.
  virtual Variant GetCategories(std::int32_t pColumnIndex) = 0;
  /// Map: column name to column index, categorical columns only. Empty without a run.
  virtual Variant GetCategoricalIndexes() = 0;
  /// Map: column name to original label, categorical columns only. Empty without a run.
  virtual Variant GetCategoricalNames() = 0;
  /// Gives a category of the column `pName` another code, and its cells in the training and the
  /// testing table with it. An unknown category raises 100, text that is no number and not a
  /// number 13, infinity 6; nothing has been changed then. Not one transaction: begin one to have
  /// all or nothing.
  virtual void UpdateCategory(std::string_view pName, std::string_view pNominal,
                              const Variant& pValue) = 0;
  /// Whether the response can be used as a binary one: two codes, one of them of a single nominal
  /// value. `pMessage` receives the reason if not, and is left as it came otherwise. Raises 13 when
  /// a category has no code beside two that have, 41011 when the set has no data.
  virtual bool AnalyseResponseCategories(std::string& pMessage) = 0;
  /// As the run said when the set got its data or its column records; false for an unknown column.
  virtual bool GetIsCategorical(std::int32_t pColumnIndex) = 0;
  /// The code of the most frequent category. Raises 100 for a column without categories.
  virtual double GetModeMapping(std::int32_t pColumnIndex) = 0;
  /// Whether the run merges the response's categories. Raises 100 when the run does not say.
  virtual bool IsResponseMerging() = 0;
  /// Writes the binary response into the tables: the category of the smallest group of one code
  /// (the positive class) gets its code, every other record the code of the largest group. Of
  /// groups of one size either may be the positive class. Raises 100 when the response has no
  /// categories, 41011 when they share one code or the set has no data, 13 when they have none;
  /// nothing has been changed then. Whether the response is fit for it is not asked: see
  /// `AnalyseResponseCategories`.
  virtual void UpdateMergingResponseCategories() = 0;
  /// Left as they came when the run has no encoding. Zero is the negative class's value, one the
  /// positive class's.
  virtual void GetResponseEncoding(std::string& pPositiveClass, double& pZeroValue,
                                   double& pOneValue) = 0;
  /// Records the name of the positive class; the data stay.
  virtual void SavePositiveClass(std::string_view pPositiveClass) = 0;

 protected:
  ~INominalDataSetMetadata() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_NOMINAL_METADATA_H_
