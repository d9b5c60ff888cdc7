#ifndef TSLM5_BENCH_PLAIN_CELLS_H_
#define TSLM5_BENCH_PLAIN_CELLS_H_

#include <cstdint>
#include <memory>
#include <vector>

namespace tslm5::bench {

/// What reading a cell is measured against: a plain array of doubles behind one virtual call. Its
/// only implementation is in a file of its own, so that no compiler sees through the call.
class PlainCells {
 public:
  virtual ~PlainCells() = default;
  virtual double GetItem(std::int32_t column, std::int32_t row) = 0;
};

/// The cells of `values`, row by row.
std::unique_ptr<PlainCells> MakePlainCells(std::vector<double> values, std::int32_t columns);

}  // namespace tslm5::bench

#endif  // TSLM5_BENCH_PLAIN_CELLS_H_
