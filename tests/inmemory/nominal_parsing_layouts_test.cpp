// How the layouts and label lines of a file that people write by hand are taken.
#include <gmock/gmock.h>

#include "inmemory/nominal_set.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

TEST(NominalParsingLayouts, MoveAResponseThatStandsBehindBlanks) {
  const NominalSet set;
  set.Parse("y   a b\n no 1  2\n  yes 3 4\nno 5 6",
            {.separator = 0, .has_labels = true, .layout = 3});
  EXPECT_THAT(set.Labels(), ElementsAre("a", "b", "y"));
  EXPECT_THAT(set.Texts(), ElementsAre("#1,#2,no", "#3,#4,yes", "#5,#6,no"));
}

TEST(NominalParsingLayouts, LeaveTheOneColumnWhereItIs) {
  const NominalSet set;
  set.Parse("y\nb\na", {.separator = -1, .has_labels = true, .layout = 3});
  EXPECT_THAT(set.Labels(), ElementsAre("y"));
  EXPECT_THAT(set.Texts(), ElementsAre("b", "a"));
}

TEST(NominalParsingLayouts, KeepTheBlankWithinALabel) {
  const NominalSet set;
  set.Parse("my\x05y,an\x05input\nno,2\nyes,3", {.has_labels = true, .layout = 3});
  EXPECT_THAT(set.Labels(), ElementsAre("an input", "my y"));
  set.Parse("my\x05label\nno\nyes", {.separator = -1, .has_labels = true});
  EXPECT_THAT(set.Labels(), ElementsAre("mylabel"));
}

TEST(NominalParsingLayouts, TakeNoInputForAResponseThatIsLeftOut) {
  for (const char* row : {",yes,3,4", ",yes,3,4\nno,7,8"}) {
    const std::string text = "no,1,2\n" + std::string(row);
    EXPECT_THAT(NominalSet().ErrorOf(text, {.layout = 3}), IsColumnCountError(2)) << row;
  }
  EXPECT_EQ(NominalSet().ErrorOf("no,1,2\n,3,4", {.layout = 3}).Number(), 41025);
  EXPECT_EQ(NominalSet().ErrorOf("no,1,2\n,,3,4", {.layout = 3}).Number(), 41025);
  EXPECT_EQ(NominalSet().ErrorOf(",1,2\nno,3,4", {.layout = 3}).Number(), 41025);
}

TEST(NominalParsingLayouts, TakeNoLineOfBlanksForARecord) {
  for (const char* text : {"no 1 2\n   \nyes 3 4", "no 1 2\n \n\n yes 3 4"}) {
    for (const std::int32_t layout : {1, 3}) {
      EXPECT_THAT(NominalSet().ErrorOf(text, {.separator = 0, .layout = layout}),
                  IsColumnCountError(2))
          << text << " in layout " << layout;
    }
  }
}

TEST(NominalParsingLayouts, DoNotMakeALabelOfOneThatIsLeftOut) {
  EXPECT_EQ(NominalSet().ErrorOf(",a\nno,2", {.has_labels = true, .layout = 3}).Number(), 41013);
}

TEST(NominalParsingLayouts, OfOneLineHoldARecordOrLabelsAlone) {
  EXPECT_THAT(NominalSet("a,b").Texts(), ElementsAre("a,b"));
  EXPECT_EQ(NominalSet().ErrorOf("a,b", {.has_labels = true}).Number(), 41013);
  EXPECT_EQ(NominalSet().ErrorOf("a,b\n", {.has_labels = true}).Number(), 41023);
}

}  // namespace
}  // namespace tslm5
