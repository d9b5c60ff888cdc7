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

/// The set works on the run itself: a connection that records its statements needs memory to end a
/// transaction.
class DataSetLiteShortMemory : public DataSetLiteTest, public testing::WithParamInterface<bool> {
 protected:
  DataSetLiteShortMemory() {
    CreateRunTables(*asked_run_.Connection());
    plain_.As<IConstructor>()->Init(
        VariantArray({Variant(plain_run_), Variant(data_set_type::kTraining)}));
    LoadBefore();
  }

  void LoadBefore() const {
    ParseFile(plain_, folder_.Write("before.csv", "a;b;c\n1;2;3\n4;5;6\n"),
              {.separator = separator_code::kSemicolon, .has_labels = true});
  }

  /// Has `load` fail at every allocation, and expects the records of before or those of `after`.
  void ExpectWholeLoads(const std::function<void()>& load, const Lines& after) {
    const long count = FailInTurn(GetParam(), load, [&] {
      EXPECT_FALSE(asked_run_.InTransaction());
      EXPECT_THAT(plain_.Records(), AnyOf(ElementsAre("1,2,3", "4,5,6"), after));
      LoadBefore();
      EXPECT_THAT(plain_.Records(), ElementsAre("1,2,3", "4,5,6"));
      EXPECT_THAT(plain_.Labels(), ElementsAre("a", "b", "c"));
      EXPECT_EQ(plain_->GetProperty("Separator"), ";");
      EXPECT_TRUE(plain_->IsReady());
    });
    EXPECT_GT(count, 20);
    EXPECT_EQ(plain_.Records(), after);
  }

  const Ref<IConnectionService> plain_run_ = OpenRun("", {.in_memory = true});
  const TestRun asked_run_{plain_run_};
  const LiteSet plain_;
};

INSTANTIATE_TEST_SUITE_P(, DataSetLiteShortMemory, testing::Bool(), [](const auto& one) {
  return one.param ? std::string("ForGood") : std::string("Once");
});

TEST_P(DataSetLiteShortMemory, LeavesAWholeSetBehindAParse) {
  const std::string path =
      folder_.Write("data.csv", "a label of some length,another label of that length\n7,8\n9,10\n");
  ExpectWholeLoads([&] { ParseFile(plain_, path, {.has_labels = true}); }, {"7,8", "9,10"});
}

TEST_P(DataSetLiteShortMemory, LeavesAWholeSetBehindSetData) {
  const MemorySet source("7,8\n9,10");
  ExpectWholeLoads([&] { plain_->SetData(source.Object().get(), data_set_type::kTraining); },
                   {"7,8", "9,10"});
}

TEST_P(DataSetLiteShortMemory, LeavesNoTableOfACloneThatFailed) {
  const Ref<IConnection> connection = asked_run_.Connection();
  const auto cloneable = plain_.As<ICloneableEx>();
  Ref<IUnknown> clone;
  const long count = FailInTurn(
      GetParam(), [&] { clone = cloneable->Clone(data_set_type::kTesting); },
      [&] {
        const bool is_done = static_cast<bool>(clone);
        clone.Reset();
        EXPECT_FALSE(asked_run_.InTransaction());
        for (const char* table : {"TestingSet", "TestingSetBackup"}) {
          EXPECT_EQ(connection->TableExists(table), is_done);
          if (is_done) connection->Execute("DROP TABLE " + std::string(table));
        }
      });
  EXPECT_GT(count, 20);
  EXPECT_EQ(LiteSet(clone).Records(), (Lines{"1,2,3", "4,5,6"}));
}

}  // namespace
}  // namespace tslm5
