// A load that fails for want of memory, wherever it does, leaves the set as it was or as the load
// makes it, and one that loads again.
#include <gmock/gmock.h>

#include "datasetlite/lite_set.h"
#include "fakes/failing_allocation.h"
#include "inmemory/memory_set.h"

namespace tslm5 {
namespace {

using testing::AnyOf;
using testing::ElementsAre;

class DataSetLiteShortMemory : public DataSetLiteTest, public testing::WithParamInterface<bool> {
 protected:
  DataSetLiteShortMemory() { LoadBefore(); }

  void LoadBefore() const {
    ParseFile(set_, folder_.Write("before.csv", "a;b;c\n1;2;3\n4;5;6\n"),
              {.separator = separator_code::kSemicolon, .has_labels = true});
  }

  /// Has `load` fail at every allocation, and expects the records of before or those of `after`.
  void ExpectWholeLoads(const std::function<void()>& load, const Lines& after) {
    const long count = FailInTurn(GetParam(), load, [&] {
      EXPECT_FALSE(run_.InTransaction());
      EXPECT_THAT(set_.Records(), AnyOf(ElementsAre("1,2,3", "4,5,6"), after));
      LoadBefore();
      EXPECT_THAT(set_.Records(), ElementsAre("1,2,3", "4,5,6"));
      EXPECT_THAT(set_.Labels(), ElementsAre("a", "b", "c"));
      EXPECT_EQ(set_->GetProperty("Separator"), ";");
      EXPECT_TRUE(set_->IsReady());
    });
    EXPECT_GT(count, 20);
    EXPECT_EQ(set_.Records(), after);
  }
};

INSTANTIATE_TEST_SUITE_P(, DataSetLiteShortMemory, testing::Bool(), [](const auto& one) {
  return one.param ? std::string("ForGood") : std::string("Once");
});

TEST_P(DataSetLiteShortMemory, LeavesAWholeSetBehindAParse) {
  const std::string path =
      folder_.Write("data.csv", "a label of some length,another label of that length\n7,8\n9,10\n");
  ExpectWholeLoads([&] { ParseFile(set_, path, {.has_labels = true}); }, {"7,8", "9,10"});
}

TEST_P(DataSetLiteShortMemory, LeavesAWholeSetBehindSetData) {
  const MemorySet source("7,8\n9,10");
  ExpectWholeLoads([&] { set_->SetData(source.Object().get(), data_set_type::kTraining); },
                   {"7,8", "9,10"});
}

}  // namespace
}  // namespace tslm5
