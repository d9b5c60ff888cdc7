#ifndef TSLM5_ORIGINAL_ORIGINAL_DATA_SET_FACET_H_
#define TSLM5_ORIGINAL_ORIGINAL_DATA_SET_FACET_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "original/original_data_state.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// `IDataSet` of an `OriginalDataSet`: shape, cell texts and labels. Whatever else the interface
/// has is carried only: it does nothing, leaves its outputs alone, gives the empty value and never
/// raises. An index outside the loaded data raises 9.
class OriginalDataSetFacet final : public Facet<IDataSet> {
 public:
  OriginalDataSetFacet(IUnknown& owner, OriginalDataState& state) : Facet(owner), state_(state) {}

  bool HasLabels() override;
  std::int32_t Rows() override;
  std::int32_t Columns() override;
  std::int32_t TerminalCount() override;
  /// The cell's text as it was loaded.
  std::string GetItemString(std::int32_t pColumnIndex, std::int32_t pRowIndex) override;
  std::string GetLabel(std::int32_t pColumnIndex) override;
  /// A label is asked for, and the column checked, only where some column was relabelled.
  std::string GetLongLabel(std::int32_t pColumnIndex) override;
  std::int32_t GetColumnIndex(std::int32_t pColumn) override;
  std::int32_t GetRowNumber(std::int32_t pRowIndex) override;
  /// `pRowIndex` + 1; the key is `IDeploymentDataSet`'s (meant).
  std::int32_t GetRowOriginalIndex(std::int32_t pRowIndex) override;
  /// Keeps the feedback object and computes nothing.
  void CalculateStatistics(IFeedback* pFeedback) override;

  std::int32_t DataSetType() override { return 0; }
  void put_DataSetType(std::int32_t) override {}
  std::string IndependentVarsPrefix() override { return {}; }
  void put_IndependentVarsPrefix(std::string_view) override {}
  std::string DependentVarName() override { return {}; }
  void put_DependentVarName(std::string_view) override {}
  bool IsReady() override { return false; }
  std::string Name() override { return {}; }
  std::string SetProperty(std::string_view, std::string_view) override { return {}; }
  std::string GetProperty(std::string_view) override { return {}; }
  void Parse(std::string_view, std::int32_t, bool, std::int32_t, std::int32_t) override {}
  void ParseString(std::string&, std::int32_t, bool, std::int32_t, std::int32_t,
                   IParseEventArgs*) override {}
  void Replace(std::string_view, std::int32_t, bool) override {}
  bool FormatDataAs(std::int32_t) override { return false; }
  double GetItem(std::int32_t, std::int32_t) override { return 0; }
  void ResetProperties() override {}
  std::string SeparatorToString(std::int32_t) override { return {}; }
  bool IsValidDataSet(std::string_view, bool, std::int32_t&, std::string&) override {
    return false;
  }
  Variant InvalidPosition(std::int32_t&, std::int32_t&) override { return {}; }
  void SetLabels(std::string_view) override {}
  bool SetData(IUnknown*, std::int32_t) override { return false; }
  void Clear() override {}
  double GetMax(std::int32_t, std::int32_t, std::int32_t) override { return 0; }
  double GetMin(std::int32_t, std::int32_t, std::int32_t) override { return 0; }
  std::int32_t GetTargetMinorityClassCount() override { return 0; }
  void GetAverageModel(VariantArray&) override {}
  double GetGlobalCentroid(std::int32_t) override { return 0; }
  double GetGlobalMedoid(std::int32_t) override { return 0; }
  void GetClassCentroid(std::int32_t, std::int32_t, double&, double&) override {}
  void GetClassMedoid(std::int32_t, std::int32_t, double&, double&) override {}
  bool HasClassRecordStatistics() override { return false; }
  bool HasGlobalRecordStatistics() override { return false; }
  bool HasLabelPrefix() override { return false; }
  std::int32_t GetTargetClassCount(std::int32_t) override { return 0; }
  std::int32_t ProblemCategory() override { return 0; }
  void put_ProblemCategory(std::int32_t) override {}
  double GetStandardDeviation(std::int32_t) override { return 0; }
  Variant GetRowOriginalValue(std::int32_t, std::int32_t) override { return {}; }
  double GetTargetMajorityClass() override { return 0; }
  Variant GetRowOriginalValueByRecordId(std::int32_t, std::int32_t) override { return {}; }

 private:
  OriginalDataState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_ORIGINAL_ORIGINAL_DATA_SET_FACET_H_
