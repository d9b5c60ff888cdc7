// The data check as an `InMemorySet` runs it; its steps are tested with the check itself.
#include <gmock/gmock.h>

#include "datacheck/invalid_position.h"
#include "inmemory/memory_set.h"
#include "support/temporary_folder.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

class InMemoryCheck : public testing::Test {
 protected:
  bool Check(std::string_view bytes) {
    return set_->IsValidDataSet(folder_.Write("data.csv", bytes), false, separator_, message_);
  }

  TemporaryFolder folder_;
  MemorySet set_;
  std::int32_t separator_ = separator_code::kComma;
  std::string message_ = "untouched";
};

TEST_F(InMemoryCheck, PassesAGoodFileAndLeavesTheSetAlone) {
  set_.Parse("7;8", {.separator = 3});
  set_.SetDirty(false);
  EXPECT_TRUE(Check("1,2\n3,4\n"));
  EXPECT_EQ(message_, "untouched");
  EXPECT_EQ(separator_, 2);
  EXPECT_THAT(set_.Records(), ElementsAre("7,8"));
  EXPECT_EQ(set_->GetProperty("Separator"), ";");
  EXPECT_TRUE(set_->IsReady());
  EXPECT_FALSE(set_.IsDirty());
}

TEST_F(InMemoryCheck, TellsItsOwnListeners) {
  const Ref<RecordingMemoryEvents> events = set_.Listen();
  EXPECT_TRUE(Check("1,2\n"));
  EXPECT_THAT(events->lines,
              ElementsAre("BeforeDataCheck: ", "LoadFeedback: Checking the separator...",
                          "LoadFeedback: Checking data...",
                          "LoadFeedback: Checking data: Removing duplicate separators...",
                          "LoadFeedback: Checking data: Clearing empty rows...",
                          "LoadFeedback: Checking data: Removing invalid characters...",
                          "LoadFeedback: Checking row 1", "AfterDataCheck: Data check completed."));
}

TEST_F(InMemoryCheck, HasNoTestOfTheResponse) {
  for (const std::int32_t category : {1, 3, 4}) {
    set_->put_ProblemCategory(category);
    EXPECT_FALSE(Check("1,2\n3,?"));
    EXPECT_EQ(message_, "Invalid <DATASET>. Value in row 2, column 2. is invalid: ?");
  }
}

TEST_F(InMemoryCheck, TellsThePlaceOfTheLastInvalidCell) {
  EXPECT_FALSE(Check("1,2\n3,4\n5,x"));
  std::int32_t column = 0;
  std::int32_t row = 0;
  EXPECT_TRUE(set_->InvalidPosition(column, row).IsEmpty());
  EXPECT_EQ(column, 2);
  EXPECT_EQ(row, 3);
  EXPECT_TRUE(Check("1,2"));
  MemorySet()->InvalidPosition(column, row);
  EXPECT_EQ(column, 2) << "a good check does not reset it, and every set knows it";
  EXPECT_EQ(row, 3);
}

TEST_F(InMemoryCheck, LetsAHandlerDropTheSet) {
  const Ref<RecordingMemoryEvents> events = set_.Listen();
  const std::string path = folder_.Write("data.csv", "1,2");
  events->on_load_feedback = [this](IParseEventArgs&) { set_.Reset(); };
  EXPECT_TRUE(set_->IsValidDataSet(path, false, separator_, message_));
}

}  // namespace
}  // namespace tslm5
