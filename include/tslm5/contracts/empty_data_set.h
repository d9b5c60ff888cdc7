#ifndef TSLM5_CONTRACTS_EMPTY_DATA_SET_H_
#define TSLM5_CONTRACTS_EMPTY_DATA_SET_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tslm5/contracts/data_set.h"

namespace tslm5 {

/// A base for a dataset that serves a few operations of `IDataSet`: every other one does nothing,
/// leaves its outputs alone, gives the empty value and raises nothing. `Base` is what implements
/// the object: `CountedObject<IDataSet>` or `Facet<IDataSet>`.
template <class Base>
class EmptyDataSet : public Base {
 public:
  using Base::Base;

  ///@{
  /// Does nothing and gives the empty value.
  std::int32_t DataSetType() override { return 0; }
  void put_DataSetType(std::int32_t) override {}
  bool HasLabels() override { return false; }
  std::int32_t Rows() override { return 0; }
  std::int32_t Columns() override { return 0; }
  std::int32_t TerminalCount() override { return 0; }
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
  double GetItem(std::int32_t, std::int32_t) override { return 0.0; }
  std::string GetItemString(std::int32_t, std::int32_t) override { return {}; }
  std::string GetLabel(std::int32_t) override { return {}; }
  void ResetProperties() override {}
  std::string SeparatorToString(std::int32_t) override { return {}; }
  bool IsValidDataSet(std::string_view, bool, std::int32_t&, std::string&) override {
    return false;
  }
  Variant InvalidPosition(std::int32_t&, std::int32_t&) override { return {}; }
  void SetLabels(std::string_view) override {}
  bool SetData(IUnknown*, std::int32_t) override { return false; }
  void Clear() override {}
  double GetMax(std::int32_t, std::int32_t, std::int32_t) override { return 0.0; }
  double GetMin(std::int32_t, std::int32_t, std::int32_t) override { return 0.0; }
  std::int32_t GetTargetMinorityClassCount() override { return 0; }
  void GetAverageModel(VariantArray&) override {}
  std::string GetLongLabel(std::int32_t) override { return {}; }
  double GetGlobalCentroid(std::int32_t) override { return 0.0; }
  double GetGlobalMedoid(std::int32_t) override { return 0.0; }
  void GetClassCentroid(std::int32_t, std::int32_t, double&, double&) override {}
  void GetClassMedoid(std::int32_t, std::int32_t, double&, double&) override {}
  bool HasClassRecordStatistics() override { return false; }
  bool HasGlobalRecordStatistics() override { return false; }
  void CalculateStatistics(IFeedback*) override {}
  bool HasLabelPrefix() override { return false; }
  std::int32_t GetRowNumber(std::int32_t) override { return 0; }
  std::int32_t GetRowOriginalIndex(std::int32_t) override { return 0; }
  std::int32_t GetTargetClassCount(std::int32_t) override { return 0; }
  std::int32_t ProblemCategory() override { return 0; }
  void put_ProblemCategory(std::int32_t) override {}
  double GetStandardDeviation(std::int32_t) override { return 0.0; }
  Variant GetRowOriginalValue(std::int32_t, std::int32_t) override { return {}; }
  double GetTargetMajorityClass() override { return 0.0; }
  std::int32_t GetColumnIndex(std::int32_t) override { return 0; }
  Variant GetRowOriginalValueByRecordId(std::int32_t, std::int32_t) override { return {}; }
  ///@}

 protected:
  // Virtual over some bases alone.
  ~EmptyDataSet() = default;  // NOLINT(modernize-use-override)
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_EMPTY_DATA_SET_H_
