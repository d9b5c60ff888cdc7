#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"
#include "tslm5/contracts/lr_services.h"

namespace tslm5 {
namespace {

class DataSetLiteIsBinary : public DataSetLiteTest {
 protected:
  bool IsBinary() const { return set_.As<ILRServices>()->IsBinary(); }
};

TEST_F(DataSetLiteIsBinary, LooksForTwoValuesInTheLastColumn) {
  struct {
    const char* name;
    const char* bytes;
    bool is_binary;
  } const cases[] = {
      {"two values", "5,0\n6,1\n7,0\n", true},
      {"one value", "5,1\n6,1\n", false},
      {"three values", "5,0\n6,1\n7,2\n", false},
      {"two values in another column", "0,5\n1,5\n", false},
      {"a missing one beside two", "5,0\n6,1\n7,?\n", true},
      {"a missing one beside one", "5,0\n7,?\n", false},
      {"one column", "0\n1\n0\n", true},
  };
  for (const auto& c : cases) {
    Parse(c.bytes);
    EXPECT_EQ(IsBinary(), c.is_binary) << c.name;
  }
}

TEST_F(DataSetLiteIsBinary, SeesAChangeOfTheTable) {
  Parse("5,0\n6,1\n");
  ASSERT_TRUE(IsBinary());
  run_.Execute("UPDATE TrainingSet SET d1 = 0");
  EXPECT_FALSE(IsBinary());
}

TEST_F(DataSetLiteIsBinary, IsFalseWithoutATable) {
  EXPECT_FALSE(IsBinary());
  set_.Load(run_, 1);
  EXPECT_FALSE(IsBinary());
  Parse("5,0\n6,1\n");
  set_->Clear();
  EXPECT_FALSE(IsBinary());
}

}  // namespace
}  // namespace tslm5
