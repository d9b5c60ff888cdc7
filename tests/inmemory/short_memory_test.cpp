// A parse that fails for want of memory, wherever it does, leaves the set as it was, and one that
// parses again.
#include <gmock/gmock.h>

#include <optional>
#include <utility>

#include "fakes/failing_allocation.h"
#include "inmemory/memory_set.h"
#include "inmemory/nominal_set.h"
#include "support/temporary_folder.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

constexpr const char* kText =
    "a_label_of_some_length,another_label_of_that_length,the_response_of_the_set\n1,2,3\n4,5,6\n";

void ExpectParsed(const MemorySet& set) {
  EXPECT_THAT(set.Records(), ElementsAre("1,2,3", "4,5,6"));
  EXPECT_THAT(set.Labels(), ElementsAre("a", "b", "c"));
  EXPECT_EQ(set->GetProperty("Separator"), ";");
  EXPECT_EQ(set->GetProperty("a property with a long name"), "its value, which is long as well");
  EXPECT_TRUE(set->IsReady());
}

class ShortMemory : public testing::TestWithParam<bool> {};

INSTANTIATE_TEST_SUITE_P(, ShortMemory, testing::Bool(), [](const auto& one) {
  return one.param ? std::string("ForGood") : std::string("Once");
});

TEST_P(ShortMemory, LeavesANewSetThatParses) {
  std::optional<MemorySet> set;
  std::string text;
  const long count = FailInTurn(
      GetParam(),
      [&] {
        set.emplace();
        (*set)->SetProperty("its value, which is long as well", "a property with a long name");
        text = kText;
        set->ParseInPlace(text, {.has_labels = true});
      },
      [&] {
        if (!set) set.emplace();
        (*set)->SetProperty("its value, which is long as well", "a property with a long name");
        set->Parse("a;b;c\n1;2;3\n4;5;6", {.separator = 3, .has_labels = true});
        ExpectParsed(*set);
      });
  EXPECT_GT(count, 10);
}

TEST_P(ShortMemory, LeavesAUsedSetThatParses) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("data.csv", kText);
  const MemorySet set;
  set->SetProperty("its value, which is long as well", "a property with a long name");
  const Ref<RecordingMemoryEvents> events = set.Listen();
  Lines before = set.Everything();
  bool is_done = false;
  const auto parse = [&] {
    set.ParseFile(path, {.has_labels = true});
    is_done = true;
  };
  const long count = FailInTurn(GetParam(), parse, [&] {
    if (!std::exchange(is_done, false)) {
      EXPECT_EQ(set.Everything(), before);
    }
    set.Parse("a;b;c\n1;2;3\n4;5;6", {.separator = 3, .has_labels = true});
    ExpectParsed(set);
    before = set.Everything();
  });
  EXPECT_GT(count, 10);
}

TEST_P(ShortMemory, LeavesASetThatParsesWords) {
  const NominalSet set("a,no\nb,yes");
  const Lines before = set.Everything();
  bool is_done = false;
  const auto parse = [&] {
    set.Parse("no,a_word_that_is_not_short,1\nyes,another_one_of_them_all,2\nno,?,3",
              {.layout = 3});
    is_done = true;
  };
  const long count = FailInTurn(GetParam(), parse, [&] {
    if (!std::exchange(is_done, false)) {
      EXPECT_EQ(set.Everything(), before);
      EXPECT_THAT(set.Texts(), ElementsAre("a,no", "b,yes"));
    }
    set.Parse("a,no\nb,yes", {});
    EXPECT_THAT(set.Texts(), ElementsAre("a,no", "b,yes"));
    EXPECT_TRUE(set->IsReady());
  });
  EXPECT_GT(count, 10);
}

}  // namespace
}  // namespace tslm5
