#include "datacheck/invalid_position.h"

#include <gtest/gtest.h>

#include <string>

#include "datacheck/check_file.h"
#include "datasetlite/data_set_lite.h"

namespace tslm5 {
namespace {

class InvalidPositionTest : public testing::Test {
 protected:
  InvalidPositionTest() { LastInvalidPosition() = {}; }

  void Check(std::string_view bytes) { CheckBytes(bytes, events_); }

  void CheckThroughTheSet(std::string_view bytes) {
    std::int32_t separator = separator_code::kComma;
    std::string message;
    set_->IsValidDataSet(folder_.Write("data.txt", bytes), false, separator, message);
  }

  /// "column/row", as the set tells it.
  std::string Told() {
    std::int32_t column = -1;
    std::int32_t row = -1;
    EXPECT_TRUE(set_->InvalidPosition(column, row).IsEmpty());
    return std::to_string(column) + "/" + std::to_string(row);
  }

  TemporaryFolder folder_;
  CheckEvents events_;
  Ref<IDataSet> set_ = MakeDataSetLite().As<IDataSet>();
};

TEST_F(InvalidPositionTest, StartsAtZero) {
  EXPECT_EQ(Told(), "0/0");
}

TEST_F(InvalidPositionTest, IsOneForAllOfTheProcess) {
  Check("1,2\n3,4\n5,x\n");
  EXPECT_EQ(Told(), "2/3");
  CheckThroughTheSet("1,2,3\ny,5,6\n");
  EXPECT_EQ(LastInvalidPosition().column, 1);
  EXPECT_EQ(LastInvalidPosition().row, 2);
}

TEST_F(InvalidPositionTest, KeepsAnOlderColumnForARowRefusedAsAWhole) {
  Check("1,2\n3,4\n5,x\n");
  CheckThroughTheSet("1,2\n3,4\n5,6\n7,8\n9\n");
  EXPECT_EQ(Told(), "2/5");
}

TEST_F(InvalidPositionTest, IsNotReset) {
  Check("1,2\n3,4\n5,x\n");
  for (const char* bytes : {"1,2\n3,4\n", "", "x,2\n", "1,2\n\n3,4\n"}) {
    CheckThroughTheSet(bytes);
    EXPECT_EQ(Told(), "2/3") << bytes;
  }
}

TEST_F(InvalidPositionTest, IsNotWrittenForAMissingResponse) {
  Check("1,2\n3,4\n5,x\n");
  set_->put_ProblemCategory(problem_category::kClassification);
  CheckThroughTheSet("1,2\n3,?\n");
  EXPECT_EQ(Told(), "2/3");
}

}  // namespace
}  // namespace tslm5
