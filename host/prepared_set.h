#ifndef TSLM5_HOST_PREPARED_SET_H_
#define TSLM5_HOST_PREPARED_SET_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tslm5/contracts/data_set.h"
#include "tslm5/platform/object.h"

namespace tslm5::host {

/// Numbers ready to be stored: what the component's `SetData` takes its records from. It answers to
/// the name of an in-memory set, because such a set is what `SetData` asks for; beyond records and
/// labels it does nothing.
class PreparedSet final : public CountedObject<IDataSet> {
 public:
  /// `values` record by record, `columns` a record; `labels` one a column, or none. The values must
  /// outlive the set.
  PreparedSet(const std::vector<double>& values, std::size_t columns,
              std::vector<std::string> labels)
      : values_(values), columns_(columns), labels_(std::move(labels)) {}

  std::string_view TypeName() override { return "InMemorySet"; }

  bool HasLabels() override { return !labels_.empty(); }
  std::int32_t Rows() override { return static_cast<std::int32_t>(values_.size() / columns_); }
  std::int32_t Columns() override { return static_cast<std::int32_t>(columns_); }
  std::int32_t TerminalCount() override { return Columns() - 1; }
  bool IsReady() override { return true; }
  double GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) override {
    return values_[static_cast<std::size_t>(pRowIndex) * columns_ +
                   static_cast<std::size_t>(pColumnIndex)];
  }
  std::string GetLabel(std::int32_t pColumnIndex) override {
    return labels_[static_cast<std::size_t>(pColumnIndex)];
  }

  // Nobody asks for the rest.
  std::int32_t DataSetType() override { return 0; }
  void put_DataSetType(std::int32_t) override {}
  std::string IndependentVarsPrefix() override { return {}; }
  void put_IndependentVarsPrefix(std::string_view) override {}
  std::string DependentVarName() override { return {}; }
  void put_DependentVarName(std::string_view) override {}
  std::string Name() override { return {}; }
  std::string SetProperty(std::string_view, std::string_view) override { return {}; }
  std::string GetProperty(std::string_view) override { return {}; }
  void Parse(std::string_view, std::int32_t, bool, std::int32_t, std::int32_t) override {}
  void ParseString(std::string&, std::int32_t, bool, std::int32_t, std::int32_t,
                   IParseEventArgs*) override {}
  void Replace(std::string_view, std::int32_t, bool) override {}
  bool FormatDataAs(std::int32_t) override { return {}; }
  std::string GetItemString(std::int32_t, std::int32_t) override { return {}; }
  void ResetProperties() override {}
  std::string SeparatorToString(std::int32_t) override { return {}; }
  bool IsValidDataSet(std::string_view, bool, std::int32_t&, std::string&) override { return {}; }
  Variant InvalidPosition(std::int32_t&, std::int32_t&) override { return {}; }
  void SetLabels(std::string_view) override {}
  bool SetData(IUnknown*, std::int32_t) override { return {}; }
  void Clear() override {}
  double GetMax(std::int32_t, std::int32_t, std::int32_t) override { return {}; }
  double GetMin(std::int32_t, std::int32_t, std::int32_t) override { return {}; }
  std::int32_t GetTargetMinorityClassCount() override { return {}; }
  void GetAverageModel(VariantArray&) override {}
  std::string GetLongLabel(std::int32_t) override { return {}; }
  double GetGlobalCentroid(std::int32_t) override { return {}; }
  double GetGlobalMedoid(std::int32_t) override { return {}; }
  void GetClassCentroid(std::int32_t, std::int32_t, double&, double&) override {}
  void GetClassMedoid(std::int32_t, std::int32_t, double&, double&) override {}
  bool HasClassRecordStatistics() override { return {}; }
  bool HasGlobalRecordStatistics() override { return {}; }
  void CalculateStatistics(IFeedback*) override {}
  bool HasLabelPrefix() override { return {}; }
  std::int32_t GetRowNumber(std::int32_t) override { return {}; }
  std::int32_t GetRowOriginalIndex(std::int32_t) override { return {}; }
  std::int32_t GetTargetClassCount(std::int32_t) override { return {}; }
  std::int32_t ProblemCategory() override { return {}; }
  void put_ProblemCategory(std::int32_t) override {}
  double GetStandardDeviation(std::int32_t) override { return {}; }
  Variant GetRowOriginalValue(std::int32_t, std::int32_t) override { return {}; }
  double GetTargetMajorityClass() override { return {}; }
  std::int32_t GetColumnIndex(std::int32_t) override { return {}; }
  Variant GetRowOriginalValueByRecordId(std::int32_t, std::int32_t) override { return {}; }

 private:
  ~PreparedSet() override = default;

  const std::vector<double>& values_;
  std::size_t columns_;
  std::vector<std::string> labels_;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARED_SET_H_
