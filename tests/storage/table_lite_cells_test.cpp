// Single cells and rows of a data table.
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>

#include "platform/raised.h"
#include "storage/table_lite.h"
#include "storage/test_run.h"

namespace tslm5 {
namespace {

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

class TableLiteCells : public testing::Test {
 protected:
  TableLiteCells() : table_(run_.Filled(2, {"1 2.5", "3 ?", "red 6"})) {
    run_.Execute("UPDATE TrainingSet SET row = 7 WHERE row = 3");
  }

  /// The cell, or -1000 when there is none.
  double Cell(std::int32_t column, std::int32_t row) {
    double value = -1;
    if (table_->GetValue(column, row, value)) return value;
    EXPECT_EQ(value, -1) << "an absent cell leaves the value alone";
    return -1000;
  }

  TestRun run_;
  Ref<TableLite> table_;
};

TEST_F(TableLiteCells, GetValueTakesTheColumnFirst) {
  EXPECT_EQ(Cell(0, 0), 1);
  EXPECT_EQ(Cell(1, 0), 2.5);
  EXPECT_EQ(Cell(0, 1), 3);
  EXPECT_EQ(Cell(1, 2), 6);
}

TEST_F(TableLiteCells, TheColumnBehindTheDataIsTheRowNumber) {
  EXPECT_EQ(Cell(2, 0), 1);
  EXPECT_EQ(Cell(2, 2), 7);
}

TEST_F(TableLiteCells, ACellWithoutANumberReadsAsNotANumber) {
  EXPECT_TRUE(std::isnan(Cell(1, 1)));  // NULL
  EXPECT_TRUE(std::isnan(Cell(0, 2)));  // text
}

TEST_F(TableLiteCells, PutValueRefusesAnInfiniteNumber) {
  for (const double value : {HUGE_VAL, -HUGE_VAL}) {
    const Error error = Raised([&] { table_->PutValue(0, 0, value); });
    EXPECT_EQ(error.Number(), 6);
    EXPECT_EQ(error.Source(), "PutValue");
    EXPECT_FALSE(table_->PutValue(0, 3, value)) << "there is no such cell";
  }
  EXPECT_TRUE(table_->Save());
  EXPECT_EQ(run_.Select("SELECT d0 FROM TrainingSet WHERE row = 1"), (Lines{"1"}));
}

TEST_F(TableLiteCells, GetValueIsFalseWhereThereIsNoCell) {
  for (const std::int32_t column : {-1, 3, kLargest, kSmallest}) {
    EXPECT_EQ(Cell(column, 0), -1000) << "column " << column;
  }
  for (const std::int32_t row : {-1, 3, kLargest - 1, kLargest, kSmallest}) {
    EXPECT_EQ(Cell(0, row), -1000) << "row " << row;
  }
}

TEST_F(TableLiteCells, GetValueWithoutARecordSetIsFalse) {
  table_->Dispose(true);
  EXPECT_EQ(Cell(0, 0), -1000);
}

TEST_F(TableLiteCells, PutValueWritesOneCell) {
  EXPECT_TRUE(table_->PutValue(1, 0, 1.0 / 3.0));
  EXPECT_EQ(Cell(1, 0), 1.0 / 3.0);
  EXPECT_TRUE(table_->PutValue(0, 2, -4));
  EXPECT_TRUE(table_->PutValue(0, 1, kNan));
  EXPECT_TRUE(std::isnan(Cell(0, 1)));
  EXPECT_EQ(run_.TableRows("TrainingSet"),
            Lines({"1|0.3333333333333333|1", "NULL|NULL|2", "-4|6|7"}));
}

TEST_F(TableLiteCells, PutValueIsFalseWhereThereIsNoDataCell) {
  for (const std::int32_t column : {-1, 2, 3, kLargest, kSmallest}) {
    EXPECT_FALSE(table_->PutValue(column, 0, 99)) << "column " << column;
  }
  for (const std::int32_t row : {-1, 3, kLargest - 1, kLargest, kSmallest}) {
    EXPECT_FALSE(table_->PutValue(0, row, 99)) << "row " << row;
  }
  EXPECT_EQ(run_.TableRows("TrainingSet"), Lines({"1|2.5|1", "3|NULL|2", "red|6|7"}));
}

TEST_F(TableLiteCells, PutValueWithoutARecordSetIsFalse) {
  EXPECT_FALSE(MakeObject<TableLite>()->PutValue(0, 0, 1));
}

TEST_F(TableLiteCells, EveryStatementOfTheConnectionSeesWhatWasPut) {
  ASSERT_TRUE(table_->PutValue(1, 0, 9));
  EXPECT_EQ(run_.Select("SELECT avg(d1) FROM TrainingSet"), Lines({"7.5"}));
}

TEST_F(TableLiteCells, AnotherTableObjectSeesWhatWasPutWithoutALoad) {
  const Ref<TableLite> other = run_.Table();
  ASSERT_TRUE(other->Load(Variant(run_.Service()), 1));
  double value = 0;
  ASSERT_TRUE(other->GetValue(0, 0, value));
  ASSERT_TRUE(table_->PutValue(0, 0, 9));
  EXPECT_TRUE(other->GetValue(0, 0, value));
  EXPECT_EQ(value, 9);
  run_.Execute("UPDATE TrainingSet SET d0 = 10 WHERE row = 1");
  EXPECT_EQ(Cell(0, 0), 10);
  EXPECT_EQ(other->GetRow(0, ";"), "10;2.5;");
}

TEST_F(TableLiteCells, GetRowFollowsEachFieldByTheSeparator) {
  EXPECT_EQ(table_->GetRow(0, " "), "1 2.5 ");
  EXPECT_EQ(table_->GetRow(0, ", "), "1, 2.5, ");
  EXPECT_EQ(table_->GetRow(0, ""), "12.5");
}

TEST_F(TableLiteCells, GetRowWritesNullAndTextAsTheyAre) {
  EXPECT_EQ(table_->GetRow(1, " "), "3 NULL ");
  EXPECT_EQ(table_->GetRow(2, " "), "red 6 ");
}

TEST_F(TableLiteCells, GetRowOfAnAbsentRowIsEmpty) {
  for (const std::int32_t row : {-1, 3, kLargest, kSmallest}) {
    EXPECT_EQ(table_->GetRow(row, " "), "") << "row " << row;
  }
  EXPECT_EQ(MakeObject<TableLite>()->GetRow(0, " "), "");
}

TEST_F(TableLiteCells, WhatGetRowGivesParseArrayTakes) {
  table_->PutValue(1, 0, 0.1 + 0.2);
  Lines lines;
  for (std::int32_t row = 0; row < table_->Rows(); ++row) lines.push_back(table_->GetRow(row, " "));
  const Ref<TableLite> other = run_.Filled(2, lines, 2);
  EXPECT_EQ(run_.Select("SELECT d0, d1 FROM TestingSet"),
            run_.Select("SELECT d0, d1 FROM TrainingSet"));
  EXPECT_EQ(run_.Select("SELECT typeof(d1) FROM TestingSet WHERE row = 2"), Lines({"null"}));
}

/// A run database in a folder of its own, which goes with it.
class FolderOfOneRun {
 public:
  FolderOfOneRun() { std::filesystem::create_directory(folder_); }
  ~FolderOfOneRun() { std::filesystem::remove_all(folder_); }
  FolderOfOneRun(const FolderOfOneRun&) = delete;
  FolderOfOneRun& operator=(const FolderOfOneRun&) = delete;

  std::string Path() const { return folder_ / "run.db"; }

  /// How often the database file was committed to: the counter in its header.
  std::uint32_t Commits() const {
    std::array<char, 28> header{};
    std::ifstream(Path(), std::ios::binary).read(header.data(), header.size());
    std::uint32_t count = 0;
    for (std::size_t i = 24; i < 28; ++i) count = count << 8 | static_cast<std::uint8_t>(header[i]);
    return count;
  }

 private:
  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() / ("tslm5_cells_" + std::to_string(getpid()));
};

TEST(TableLiteCellsOnDisk, TenThousandPutsAndOneSaveAreOneCommit) {
  const FolderOfOneRun folder;
  const TestRun run(OpenRun(folder.Path(), {.mode = RunOptions::Mode::kReadWriteCreate}));
  const Ref<TableLite> table = run.Filled(1, Lines(10000, "0"));
  const std::uint32_t before = folder.Commits();
  ASSERT_GT(before, 0U);
  for (std::int32_t row = 0; row < 10000; ++row) ASSERT_TRUE(table->PutValue(0, row, row));
  EXPECT_EQ(folder.Commits(), before);
  EXPECT_TRUE(table->Save());
  EXPECT_EQ(folder.Commits(), before + 1);
  EXPECT_EQ(run.Select("SELECT sum(d0 = row - 1) FROM TrainingSet"), Lines({"10000"}));
}

}  // namespace
}  // namespace tslm5
