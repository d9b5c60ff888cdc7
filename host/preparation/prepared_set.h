#ifndef TSLM5_HOST_PREPARATION_PREPARED_SET_H_
#define TSLM5_HOST_PREPARATION_PREPARED_SET_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tslm5/contracts/empty_data_set.h"
#include "tslm5/platform/object.h"

namespace tslm5::host {

/// Numbers ready to be stored: what the component's `SetData` takes its records from. It answers to
/// the name of an in-memory set, because such a set is what `SetData` asks for; beyond records and
/// labels it does nothing.
class PreparedSet final : public EmptyDataSet<CountedObject<IDataSet>> {
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

 private:
  ~PreparedSet() override = default;

  const std::vector<double>& values_;
  std::size_t columns_;
  std::vector<std::string> labels_;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_PREPARED_SET_H_
