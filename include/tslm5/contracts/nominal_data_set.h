#ifndef TSLM5_CONTRACTS_NOMINAL_DATA_SET_H_
#define TSLM5_CONTRACTS_NOMINAL_DATA_SET_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tslm5/contracts/event_args.h"
#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// A set whose cells were categorical text; the meanings are those of `IDataSet`.
class INominalDataSet : public IUnknown {
 public:
  static constexpr Uuid kId{0x54534c4d35000023ULL, 0x8a1f4c0b6d2e7323ULL};

  virtual void Parse(std::string_view pFileName, std::int32_t pSeparator, bool pHasLabels,
                     std::int32_t pDataSetType, std::int32_t pLayout, std::int32_t pProblemCategory,
                     IParseEventArgs* pEvArgs) = 0;
  virtual void ParseString(std::string& pText, std::int32_t pSeparator, bool pHasLabels,
                           std::int32_t pDataSetType, std::int32_t pLayout,
                           std::int32_t pProblemCategory, IParseEventArgs* pEvArgs) = 0;
  virtual double GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) = 0;
  virtual std::int32_t Rows() = 0;
  virtual std::int32_t Columns() = 0;
  virtual std::string SetProperty(std::string_view pValue, std::string_view pKey) = 0;
  virtual std::string GetProperty(std::string_view pKey) = 0;
  virtual bool IsReady() = 0;
  virtual void ResetProperties() = 0;
  virtual bool FormatDataAs(std::int32_t pFormat) = 0;

 protected:
  ~INominalDataSet() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_NOMINAL_DATA_SET_H_
