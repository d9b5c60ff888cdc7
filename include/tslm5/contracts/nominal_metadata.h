#ifndef TSLM5_CONTRACTS_NOMINAL_METADATA_H_
#define TSLM5_CONTRACTS_NOMINAL_METADATA_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// The categorical columns of a run: their categories, numeric codes, and the response's encoding.
class INominalDataSetMetadata : public IUnknown {
 public:
  static constexpr Uuid kId{0x54534c4d35000021ULL, 0x8a1f4c0b6d2e7321ULL};

  /// Map: nominal value to "value code count".
  virtual Variant GetCategories(std::int32_t pColumnIndex) = 0;
  /// Map: column name to column index, categorical columns only.
  virtual Variant GetCategoricalIndexes() = 0;
  /// Map: column name to original label, categorical columns only.
  virtual Variant GetCategoricalNames() = 0;
  virtual void UpdateCategory(std::string_view pName, std::string_view pNominal,
                              const Variant& pValue) = 0;
  /// Whether the response can be used as a binary one; `pMessage` receives the reason if not.
  virtual bool AnalyseResponseCategories(std::string& pMessage) = 0;
  virtual bool GetIsCategorical(std::int32_t pColumnIndex) = 0;
  /// The code of the most frequent category.
  virtual double GetModeMapping(std::int32_t pColumnIndex) = 0;
  virtual bool IsResponseMerging() = 0;
  virtual void UpdateMergingResponseCategories() = 0;
  /// Left as they came when the run has no encoding. Zero is the negative class's value, one the
  /// positive class's.
  virtual void GetResponseEncoding(std::string& pPositiveClass, double& pZeroValue,
                                   double& pOneValue) = 0;
  virtual void SavePositiveClass(std::string_view pPositiveClass) = 0;

 protected:
  ~INominalDataSetMetadata() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_NOMINAL_METADATA_H_
