#ifndef TSLM5_CONTRACTS_DEPLOYMENT_DATA_SET_H_
#define TSLM5_CONTRACTS_DEPLOYMENT_DATA_SET_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// A dataset as the deployment side reads it, whatever class holds it. Read-only; column before
/// row.
class IDeploymentDataSet : public IUnknown {
 public:
  static constexpr Uuid kId{0x54534c4d35000015ULL, 0x8a1f4c0b6d2e7315ULL};

  virtual void Open(const Variant& pConnection, std::int32_t pSetType, bool pBinarise) = 0;
  virtual bool HasLabels() = 0;
  virtual std::int32_t Rows() = 0;
  virtual std::int32_t Columns() = 0;
  virtual std::int32_t TerminalCount() = 0;
  /// The cell's text.
  virtual std::string GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) = 0;
  virtual std::string GetLabel(std::int32_t pColumnIndex) = 0;
  /// Largest value of the response.
  virtual double GetTargetMax() = 0;
  virtual std::int32_t GetRowOriginalIndex(std::int32_t pRowIndex) = 0;
  virtual bool IsColumnCategorical(std::int32_t pColumnIndex) = 0;
  virtual bool HasMissingValues(std::int32_t pColumnIndex) = 0;
  virtual std::int32_t GetDataSetRows(std::int32_t pSetType) = 0;
  virtual void OpenFromFile(std::string_view pDataFilePath, std::int32_t pSetType,
                            bool pBinarise) = 0;

 protected:
  ~IDeploymentDataSet() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_DEPLOYMENT_DATA_SET_H_
