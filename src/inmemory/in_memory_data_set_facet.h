#ifndef TSLM5_INMEMORY_IN_MEMORY_DATA_SET_FACET_H_
#define TSLM5_INMEMORY_IN_MEMORY_DATA_SET_FACET_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "inmemory/in_memory_state.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// `IDataSet` of an `InMemorySet`. What needs a run (statistics, original values) is carried only:
/// it gives 0, false or nothing. An index outside the data or the labels raises 9.
class InMemoryDataSetFacet final : public Facet<IDataSet> {
 public:
  InMemoryDataSetFacet(IUnknown& owner, InMemoryState& state) : Facet(owner), state_(state) {}

  std::int32_t DataSetType() override;
  void put_DataSetType(std::int32_t pDataSetType) override;
  bool HasLabels() override;
  std::int32_t Rows() override;
  std::int32_t Columns() override;
  std::int32_t TerminalCount() override;
  std::string IndependentVarsPrefix() override;
  void put_IndependentVarsPrefix(std::string_view pPrefix) override;
  std::string DependentVarName() override;
  void put_DependentVarName(std::string_view pName) override;
  bool IsReady() override;
  std::string Name() override;
  std::string SetProperty(std::string_view pValue, std::string_view pKey) override;
  /// A key that was never set raises 5, source "GetProperty". "ReplacedNullValues" is the count of
  /// missing values replaced by the last parse, whatever was stored under that name.
  std::string GetProperty(std::string_view pKey) override;
  void Parse(std::string_view pFileName, std::int32_t pSeparator, bool pHasLabels,
             std::int32_t pDataSetType, std::int32_t pLayout) override;
  void ParseString(std::string& pText, std::int32_t pSeparator, bool pHasLabels,
                   std::int32_t pDataSetType, std::int32_t pLayout,
                   IParseEventArgs* pEvArgs) override;
  void Replace(std::string_view pFileName, std::int32_t pSeparator, bool pHasLabels) override;
  bool FormatDataAs(std::int32_t pFormat) override;
  double GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) override;
  /// A negative index raises 41001. A cell that holds no number gives "".
  std::string GetItemString(std::int32_t pColumnIndex, std::int32_t pRowIndex) override;
  std::string GetLabel(std::int32_t pColumnIndex) override;
  void ResetProperties() override;
  std::string SeparatorToString(std::int32_t pSeparator) override;
  bool IsValidDataSet(std::string_view pDataFilePath, bool pHasLabels, std::int32_t& pSeparator,
                      std::string& outMessage) override;
  Variant InvalidPosition(std::int32_t& pColumn, std::int32_t& pRow) override;
  void SetLabels(std::string_view pLabels) override;
  /// Makes the set a time series of column 0 of the source's extra set, whatever `pDataSetType`;
  /// false, and nothing changed, when the source has none.
  bool SetData(IUnknown* pSource, std::int32_t pDataSetType) override;
  void Clear() override;
  double GetMax(std::int32_t pColumn, std::int32_t pFromRow, std::int32_t pToRow) override;
  double GetMin(std::int32_t pColumn, std::int32_t pFromRow, std::int32_t pToRow) override;
  std::int32_t GetTargetMinorityClassCount() override;
  void GetAverageModel(VariantArray& pResult) override;
  std::string GetLongLabel(std::int32_t pColumnIndex) override;
  double GetGlobalCentroid(std::int32_t pColumn) override;
  double GetGlobalMedoid(std::int32_t pColumn) override;
  void GetClassCentroid(std::int32_t pColumn, std::int32_t pClassIndex, double& pClassValue,
                        double& pValue) override;
  void GetClassMedoid(std::int32_t pColumn, std::int32_t pClassIndex, double& pClassValue,
                      double& pValue) override;
  bool HasClassRecordStatistics() override;
  bool HasGlobalRecordStatistics() override;
  void CalculateStatistics(IFeedback* pFeedback) override;
  bool HasLabelPrefix() override;
  std::int32_t GetRowNumber(std::int32_t pRowIndex) override;
  std::int32_t GetRowOriginalIndex(std::int32_t pRowIndex) override;
  std::int32_t GetTargetClassCount(std::int32_t pClassIndex) override;
  std::int32_t ProblemCategory() override;
  void put_ProblemCategory(std::int32_t pProblemCategory) override;
  double GetStandardDeviation(std::int32_t pColumn) override;
  Variant GetRowOriginalValue(std::int32_t pRowIndex, std::int32_t pColumnIndex) override;
  double GetTargetMajorityClass() override;
  std::int32_t GetColumnIndex(std::int32_t pColumn) override;
  Variant GetRowOriginalValueByRecordId(std::int32_t pRecordId, std::int32_t pColumnIndex) override;

 private:
  InMemoryState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_IN_MEMORY_DATA_SET_FACET_H_
