// Single cells, shape, and the row keys.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

#include "datasetlite/lite_set.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

class DataSetLiteItems : public DataSetLiteTest {
 protected:
  DataSetLiteItems() { Parse("1,20,300\n4,?,word\n"); }
};

TEST_F(DataSetLiteItems, TakeTheColumnFirst) {
  EXPECT_EQ(set_->GetItem(2, 0), 300.0);
  EXPECT_EQ(set_->GetItem(0, 1), 4.0);
}

TEST_F(DataSetLiteItems, OfTheColumnBehindTheLastAreTheRowKeys) {
  run_.Execute("UPDATE TrainingSet SET row = row + 40");
  EXPECT_EQ(set_->GetItem(3, 0), 41.0);
  EXPECT_EQ(set_->GetItem(3, 1), 42.0);
  EXPECT_EQ(set_->GetItemString(3, 1), "42");
}

TEST_F(DataSetLiteItems, AreNoNumberWhereTheCellHoldsNone) {
  EXPECT_TRUE(std::isnan(set_->GetItem(1, 1))) << "missing";
  EXPECT_TRUE(std::isnan(set_->GetItem(2, 1))) << "text";
  EXPECT_EQ(set_->GetItemString(1, 1), "");
  EXPECT_EQ(set_->GetItemString(2, 1), "");
}

TEST_F(DataSetLiteItems, ThatAreAbsentRaise) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
  const std::pair<std::int32_t, std::int32_t> cells[] = {
      {-1, 0}, {4, 0}, {0, -1}, {0, 2}, {kMost, 0}, {0, kMost}, {kLeast, 0}, {0, kLeast}};
  for (const auto& cell : cells) {
    const Error error = Raised([&] { set_->GetItem(cell.first, cell.second); });
    EXPECT_EQ(error.Number(), 41011) << cell.first << ' ' << cell.second;
    EXPECT_EQ(error.Source(), "GetItem");
    EXPECT_EQ(error.Description(), "Invalid Row or Column");
    EXPECT_EQ(set_->GetItemString(cell.first, cell.second), "") << cell.first << ' ' << cell.second;
  }
}

TEST_F(DataSetLiteItems, ReadAsShortTextInTheUsersNumberFormat) {
  Parse("1.5,-2\n1e300,0.30000000000000004\n0.00001,1e15\n");
  EXPECT_EQ(set_.Records(), (Lines{"1.5,-2", "1E+300,0.30000000000000004", "0.00001,1E+15"}));
  const ScopedLocale german("de_DE");
  EXPECT_EQ(set_->GetItemString(0, 0), "1,5");
  EXPECT_EQ(set_->GetItemString(1, 1), "0,30000000000000004");
}

using DataSetLiteShape = DataSetLiteTest;

TEST_F(DataSetLiteShape, IsThatOfTheTable) {
  Parse("1,20,300\n4,5,6\n");
  EXPECT_EQ(set_->Rows(), 2);
  EXPECT_EQ(set_->Columns(), 3);
  EXPECT_EQ(set_->TerminalCount(), 2);
}

TEST_F(DataSetLiteShape, OfOneColumnHasNoIndependentVariable) {
  Parse("1\n2\n");
  EXPECT_EQ(set_->Columns(), 1);
  EXPECT_EQ(set_->TerminalCount(), 0);
}

TEST_F(DataSetLiteShape, IsNothingWithoutData) {
  set_.Load(run_, 1);
  EXPECT_EQ(set_->TerminalCount(), 0) << "a run without the table";
  Parse("1,2,3\n");
  set_.As<IDisposable>()->Dispose(true);
  EXPECT_EQ(set_->TerminalCount(), 0) << "a closed set";
}

TEST_F(DataSetLiteShape, NeverRaises) {
  Parse("1,2,3\n");
  run_.Execute("DROP TABLE TrainingSet");
  EXPECT_EQ(set_->Rows(), 0);
  EXPECT_EQ(set_->Columns(), 0);
  EXPECT_EQ(set_->TerminalCount(), 0);
  EXPECT_EQ(set_->GetItemString(0, 0), "");
}

using DataSetLiteRowKeys = DataSetLiteTest;

TEST_F(DataSetLiteRowKeys, AreTheNumbersInTheOriginalData) {
  Parse("1,20\n3,40\n5,60\n");
  run_.Execute("DELETE FROM TrainingSet WHERE row = 2");
  EXPECT_EQ(set_->GetRowOriginalIndex(0), 1);
  EXPECT_EQ(set_->GetRowOriginalIndex(1), 3);
  EXPECT_EQ(set_->GetRowNumber(1), 2) << "the number shown counts the rows that there are";
}

TEST_F(DataSetLiteRowKeys, OfAbsentRowsRaise) {
  Parse("1,20\n3,40\n");
  for (const std::int32_t row : {-1, 2, 100}) {
    const Error error = Raised([&] { set_->GetRowOriginalIndex(row); });
    EXPECT_EQ(error.Number(), 41011);
    EXPECT_EQ(error.Source(), "GetRowNumber") << "so named, though the operation is another";
    EXPECT_EQ(error.Description(), "Invalid Row");
  }
}

TEST_F(DataSetLiteRowKeys, OutsideThirtyTwoBitsRaise) {
  Parse("1,20\n");
  for (const char* key : {"2147483648", "-2147483649", "9223372036854775807"}) {
    run_.Execute("UPDATE TrainingSet SET row = " + std::string(key));
    const Error error = Raised([&] { set_->GetRowOriginalIndex(0); });
    EXPECT_EQ(error.Number(), 41011) << key;
    EXPECT_EQ(error.Source(), "GetRowNumber") << key;
    EXPECT_EQ(error.Description(), "Invalid Row") << key;
    EXPECT_EQ(RaisedNumber([&] { set_->GetRowOriginalValue(0, 0); }), 0) << "no such column";
  }
  run_.Execute("UPDATE TrainingSet SET row = -2147483648");
  EXPECT_EQ(set_->GetRowOriginalIndex(0), -2147483647 - 1);
}

TEST_F(DataSetLiteRowKeys, AreFoundBehindTheColumnsOfEachNewTable) {
  for (const char* bytes : {"10,20,30\n40,50,60\n", "70\n80\n", "10,20,30,40\n50,60,70,80\n"}) {
    Parse(bytes);
    EXPECT_EQ(set_->GetRowOriginalIndex(1), 2) << bytes;
    Replace(bytes);
    EXPECT_EQ(set_->GetRowOriginalIndex(1), 2) << bytes;
  }
}

TEST_F(DataSetLiteRowKeys, AreFoundWhenAnotherSetMadeTheTableAnew) {
  Parse("10,20\n30,40\n");
  ASSERT_EQ(set_->GetRowOriginalIndex(1), 2);
  ParseFile(LiteSet(run_, 1), File("10,20,30\n40,50,60\n"));
  EXPECT_EQ(set_->GetRowOriginalIndex(1), 2) << "not a cell of the third column";
}

}  // namespace
}  // namespace tslm5
