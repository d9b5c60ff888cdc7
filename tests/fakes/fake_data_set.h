#ifndef TSLM5_TESTS_FAKES_FAKE_DATA_SET_H_
#define TSLM5_TESTS_FAKES_FAKE_DATA_SET_H_

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tslm5/contracts/empty_data_set.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// A dataset of scripted cells: `Rows`, `Columns` and `GetItem` serve the rows that it was made of,
/// every other operation gives the empty or zero result.
class FakeDataSet final : public EmptyDataSet<CountedObject<IDataSet>> {
 public:
  explicit FakeDataSet(std::vector<std::vector<double>> rows) : rows_(std::move(rows)) {
    if (!rows_.empty()) columns = static_cast<std::int32_t>(rows_.front().size());
  }

  /// What `Columns` says: by default the length of the first row.
  std::int32_t columns = 0;
  /// Runs before a cell is given, with its column and row; what it throws, `GetItem` raises.
  std::function<void(std::int32_t column, std::int32_t row)> before_cell;

  std::string_view TypeName() override { return "FakeDataSet"; }

  std::int32_t Rows() override { return static_cast<std::int32_t>(rows_.size()); }
  std::int32_t Columns() override { return columns; }
  double GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) override {
    if (before_cell) before_cell(pColumnIndex, pRowIndex);
    return rows_.at(static_cast<std::size_t>(pRowIndex)).at(static_cast<std::size_t>(pColumnIndex));
  }

 private:
  ~FakeDataSet() override = default;

  std::vector<std::vector<double>> rows_;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_FAKES_FAKE_DATA_SET_H_
