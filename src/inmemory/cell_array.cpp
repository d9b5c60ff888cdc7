#include "inmemory/cell_array.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace tslm5 {
namespace {

constexpr std::size_t kLargeBytes = std::size_t{8} << 20;
constexpr std::size_t kMostCells = std::numeric_limits<std::ptrdiff_t>::max() / sizeof(double);

/// Asks for large pages under a large block: the first touch of small ones costs a good part of a
/// parse. Only a hint, and only for whole pages of the block.
void AdviseLargePages(void* block, std::size_t bytes) {
#ifdef MADV_HUGEPAGE
  if (bytes < kLargeBytes) return;
  const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
  const std::size_t before = (page - reinterpret_cast<std::uintptr_t>(block) % page) % page;
  ::madvise(static_cast<char*>(block) + before, (bytes - before) / page * page, MADV_HUGEPAGE);
#endif
}

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
