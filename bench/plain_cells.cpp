#include "plain_cells.h"

#include <utility>

namespace tslm5::bench {
namespace {

class PlainArray final : public PlainCells {
 public:
  PlainArray(std::vector<double> values, std::int32_t columns)
      : values_(std::move(values)), columns_(static_cast<std::size_t>(columns)) {}

  double GetItem(std::int32_t column, std::int32_t row) override {
    return values_[static_cast<std::size_t>(row) * columns_ + static_cast<std::size_t>(column)];
  }

 private:
  std::vector<double> values_;
  std::size_t columns_;
};

}  // namespace

std::unique_ptr<PlainCells> MakePlainCells(std::vector<double> values, std::int32_t columns) {
  return std::make_unique<PlainArray>(std::move(values), columns);
}

}  // namespace tslm5::bench
