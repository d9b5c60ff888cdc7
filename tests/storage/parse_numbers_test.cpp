// Rows of numbers that the caller makes one at a time.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/raised.h"
#include "storage/test_run.h"

namespace tslm5 {
namespace {

/// 10 * row + column, and a missing value at row 1, column 0.
void Fill(std::int32_t row, std::span<double> cells) {
  for (std::size_t column = 0; column < cells.size(); ++column) {
    cells[column] = 10 * row + static_cast<double>(column);
  }
  if (row == 1) cells[0] = std::nan("");
}

TEST(TableLiteParseNumbers, StoresTheRowsNumberedFromOne) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(2);
  table->ParseNumbers(3, 2, Fill);
  EXPECT_EQ(run.TableRows("TrainingSet"), (Lines{"0|1|1", "NULL|11|2", "20|21|3"}));
  EXPECT_EQ(table->Rows(), 0) << "the record set is not opened";
  EXPECT_TRUE(table->LoadRecordSet());
  EXPECT_EQ(table->Rows(), 3);
}

TEST(TableLiteParseNumbers, StoresTheSameWithoutTheEnginesFastWay) {
  const TestRun run;
  const Ref<TableLite> recorded = run.Table(2);  // a recording connection has no number inserter
  recorded->ParseNumbers(2, 2, Fill);
  EXPECT_EQ(run.Log().statements, (Lines{"BEGIN", "INSERT INTO TrainingSet VALUES (0,1,1);",
                                         "INSERT INTO TrainingSet VALUES (NULL,11,2);", "COMMIT"}));
  const Ref<IConnectionService> real = OpenRun("", {.in_memory = true});
  const Ref<TableLite> direct = MakeObject<TableLite>();
  direct->Init2(real.get());
  direct->Create(2, 1, false);
  direct->ParseNumbers(2, 2, Fill);
  EXPECT_EQ(TestRun(real).TableRows("TrainingSet"), run.TableRows("TrainingSet"));
}

TEST(TableLiteParseNumbers, TakesNoRows) {
  const TestRun run;
  run.Table(2)->ParseNumbers(0, 2, Fill);
  EXPECT_TRUE(run.TableRows("TrainingSet").empty());
}

TEST(TableLiteParseNumbers, ThatFailsKeepsNothing) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(2);
  const auto fill = [](std::int32_t row, std::span<double> cells) {
    Fill(row, cells);
    if (row == 2) cells[1] = std::numeric_limits<double>::infinity();
  };
  EXPECT_NE(RaisedNumber([&] { table->ParseNumbers(4, 2, fill); }), 0);
  EXPECT_TRUE(run.TableRows("TrainingSet").empty());
  EXPECT_FALSE(run.InTransaction());
  table->ParseDoubleArray({});
  table->ParseNumbers(1, 2, Fill);
  EXPECT_EQ(run.TableRows("TrainingSet"), (Lines{"0|1|1"})) << "and it can be filled again";
}

TEST(TableLiteParseNumbers, OfAnotherWidthIsRefused) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(2);
  EXPECT_NE(RaisedNumber([&] { table->ParseNumbers(1, 3, Fill); }), 0);
  EXPECT_TRUE(run.TableRows("TrainingSet").empty());
}

}  // namespace
}  // namespace tslm5
