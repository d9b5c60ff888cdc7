#include "inmemory/cell_array.h"

#include <algorithm>
#include <limits>

#include "support/large_pages.h"

namespace tslm5 {
namespace {

constexpr std::size_t kMostCells = std::numeric_limits<std::ptrdiff_t>::max() / sizeof(double);

double* AllocateCleared(std::size_t count) {
  const bool is_possible = count <= kMostCells;
  void* const block = is_possible ? std::calloc(count, sizeof(double)) : nullptr;
  if (block == nullptr) RaiseOutOfMemory();
  AdviseLargePages(block, count * sizeof(double));
  return static_cast<double*>(block);
}

}  // namespace

CellArray::CellArray(std::int32_t rows, std::int32_t columns) : rows_(rows), columns_(columns) {
  if (const std::size_t count = RowOffset(rows); count != 0) cells_.reset(AllocateCleared(count));
}

CellArray::CellArray(const CellArray& other) : CellArray(other.rows_, other.columns_) {
  texts_ = other.texts_;
  if (cells_) std::copy_n(other.cells_.get(), RowOffset(rows_), cells_.get());
}

CellArray& CellArray::operator=(const CellArray& other) {
  return *this = CellArray(other);
}

}  // namespace tslm5
