#include "inmemory/cell_array.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/raised.h"

namespace tslm5 {
namespace {

constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();

TEST(CellArray, StartsWithoutCells) {
  const CellArray cells;
  EXPECT_EQ(cells.Rows(), 0);
  EXPECT_EQ(cells.Columns(), 0);
  EXPECT_EQ(RaisedNumber([&] { cells.Get(0, 0); }), 9);
}

TEST(CellArray, IsClearedWhenMade) {
  const CellArray small(2, 3);
  EXPECT_EQ(small.Get(1, 2), 0.0);
  const CellArray large(1500, 1000);
  for (std::int32_t row = 0; row < large.Rows(); row += 7) {
    ASSERT_EQ(large.Get(row, row % 1000), 0.0) << row;
  }
}

TEST(CellArray, KeepsRowsSideBySide) {
  CellArray cells(2, 3);
  cells.Put(1, 0, 10);
  cells.Put(0, 2, 2);
  EXPECT_EQ(cells.Row(1)[0], 10);
  EXPECT_EQ(cells.Row(1)[-1], 2);
  cells.Row(1)[2] = 12;
  EXPECT_EQ(cells.Get(1, 2), 12);
}

TEST(CellArray, RefusesIndexesOutside) {
  CellArray cells(2, 3);
  for (const auto& place : {std::pair(2, 0), {0, 3}, {-1, 0}, {0, -1}, {kSmallest, 0}}) {
    const std::int32_t row = place.first;
    const std::int32_t column = place.second;
    EXPECT_EQ(RaisedNumber([&] { cells.Get(row, column); }), 9) << row << ' ' << column;
    EXPECT_EQ(RaisedNumber([&] { cells.Put(row, column, 1); }), 9) << row << ' ' << column;
  }
}

TEST(CellArray, IsCopiedDeep) {
  CellArray cells(1, 2);
  cells.Put(0, 1, 5);
  CellArray copy(cells);
  cells.Put(0, 1, 6);
  EXPECT_EQ(copy.Get(0, 1), 5);
  copy = cells;
  cells.Put(0, 1, 7);
  EXPECT_EQ(copy.Get(0, 1), 6);
  EXPECT_EQ(copy.Rows(), 1);
  EXPECT_EQ(copy.Columns(), 2);
}

TEST(CellArray, MayHaveRowsWithoutColumns) {
  CellArray cells(3, 0);
  EXPECT_EQ(cells.Rows(), 3);
  EXPECT_EQ(RaisedNumber([&] { cells.Put(0, 0, 1); }), 9);
  EXPECT_EQ(CellArray(cells).Rows(), 3);
}

TEST(CellArray, TellsWhenThereIsNotEnoughMemory) {
  const Error error = Raised([] {
    const CellArray cells(std::numeric_limits<std::int32_t>::max(),
                          std::numeric_limits<std::int32_t>::max());
  });
  EXPECT_EQ(error.Number(), 7);
  EXPECT_EQ(error.Description(), "Out of memory");
}

}  // namespace
}  // namespace tslm5
