#include "inmemory/text_parsing.h"

#include <gmock/gmock.h>

#include "inmemory/memory_set.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

TEST(TextParsing, MakesARowOfEveryLine) {
  const MemorySet set("1,2,3\n4,5.5,-6e1");
  EXPECT_THAT(set.Records(), ElementsAre("1,2,3", "4,5.5,-60"));
  EXPECT_EQ(set->Rows(), 2);
  EXPECT_EQ(set->Columns(), 3);
  EXPECT_EQ(set->TerminalCount(), 2);
  EXPECT_TRUE(set->IsReady());
  EXPECT_TRUE(set.IsDirty());
}

TEST(TextParsing, KnowsEverySeparator) {
  const struct {
    std::int32_t code;
    const char* text;
    const char* property;
  } kCases[] = {{0, "1 2\n3 4", " "},
                {1, "1\t2\n3\t4", "\t"},
                {2, "1,2\n3,4", ","},
                {3, "1;2\n3;4", ";"},
                {4, "1|2\n3|4", "|"}};
  for (const auto& [code, text, property] : kCases) {
    const MemorySet set;
    set.Parse(text, {.separator = code});
    EXPECT_THAT(set.Records(), ElementsAre("1,2", "3,4")) << code;
    EXPECT_EQ(set->GetProperty("Separator"), property);
    EXPECT_EQ(set.State().separator, code);
  }
}

TEST(TextParsing, StripsEverySeparatorFromOneColumn) {
  const MemorySet set;
  EXPECT_EQ(set.Parse(" 1,0\n|2;\n\t3 3\n", {.separator = -1}), "10\n2\n33\n");
  EXPECT_THAT(set.Records(), ElementsAre("10", "2", "33"));
  EXPECT_EQ(set->Columns(), 1);
  EXPECT_EQ(set->GetProperty("Separator"), "");
  EXPECT_EQ(set.State().separator, -1);
}

TEST(TextParsing, ReadsNumbersAsTheUserWritesThem) {
  const ScopedLocale german("de_DE");
  const MemorySet set;
  set.Parse("1,5;2\n-,25;1e2", {.separator = 3});
  EXPECT_EQ(set->GetItem(0, 0), 1.5);
  EXPECT_EQ(set->GetItem(0, 1), -.25);
  EXPECT_EQ(set->GetItem(1, 1), 100);
  EXPECT_THAT(set.ErrorOf("1.5;2", {.separator = 3}),
              IsError(41011, "ParseString", "Sample 1 in row 1 is invalid: 1.5"));
  set.Parse("1,5\n2,5", {.separator = -1});
  EXPECT_EQ(set->GetItem(0, 1), 2.5) << "the comma is no separator to be stripped";
}

TEST(TextParsing, DropsEmptyLines) {
  const MemorySet set("\n\n1,2,3\n\n\n4,5,6\n\n\n");
  EXPECT_THAT(set.Records(), ElementsAre("1,2,3", "4,5,6"));
  EXPECT_THAT(set.Labels(), ElementsAre("d0", "d1", "y"));
}

TEST(TextParsing, TakesRunsOfSeparatorsForOne) {
  const MemorySet set("1,,2");
  EXPECT_EQ(set->Columns(), 2);
  EXPECT_THAT(set.Records(), ElementsAre("1,2"));
  set.Parse("1   2\n 3  4 ", {.separator = 0});
  EXPECT_THAT(set.Records(), ElementsAre("1,2", "3,4"));
}

TEST(TextParsing, TrimsSeparatorsAroundLaterLines) {
  const MemorySet set("1,2\n,3,4,\n5,6,");
  EXPECT_THAT(set.Records(), ElementsAre("1,2", "3,4", "5,6"));
}

TEST(TextParsing, LeavesTheTextCleaned) {
  const MemorySet set;
  EXPECT_EQ(set.Parse("  \n\n1,,2\n\n3,4\n\n  "), "1,2\n3,4\n");
  EXPECT_EQ(set.Parse("a,,b\n\n1,2\n", {.has_labels = true}), "1,2\n");
}

TEST(TextParsing, TransposesLayout2) {
  const MemorySet set;
  set.Parse("1,2,3\n4,5,6", {.layout = 2});
  EXPECT_THAT(set.Records(), ElementsAre("1,4", "2,5", "3,6"));
  set.Parse("a,1,2\nb,3,4", {.has_labels = true, .layout = 2});
  EXPECT_THAT(set.Records(), ElementsAre("1,3", "2,4"));
  EXPECT_THAT(set.Labels(), ElementsAre("a", "b"));
}

TEST(TextParsing, RefusesToTransposeALongerLine) {
  EXPECT_EQ(MemorySet().ErrorOf("1,2\n3,4,5", {.layout = 2}).Number(), 9);
  EXPECT_THAT(MemorySet().ErrorOf("1,2,3\n4,5", {.layout = 2}), IsColumnCountError(3));
}

TEST(TextParsing, TakesEveryOtherLayoutForRows) {
  for (const std::int32_t layout : {0, 1, 3, 99}) {
    const MemorySet set;
    set.Parse("1,2,3", {.layout = layout});
    EXPECT_THAT(set.Records(), ElementsAre("1,2,3")) << layout;
  }
}

TEST(TextParsing, SetsTheTypeAndItsName) {
  const MemorySet set;
  set.Parse("1,2", {.type = 2});
  EXPECT_EQ(set->DataSetType(), 2);
  EXPECT_EQ(set->Name(), "Testing");
  EXPECT_EQ(set.State().name, "Testing");
}

TEST(TextParsing, StartsFromTheStateThatItFinds) {
  const MemorySet set;
  set.Parse("a,b,c\n1,2,3\n4,5,6", {.has_labels = true});
  set->SetProperty("5", "DelayTime");
  set->put_ProblemCategory(2);
  set.State().replaced_missing_count = 3;
  set.As<IIterator>()->ResetIterator();
  set.Parse("7;8", {.separator = 3});
  EXPECT_THAT(set.Records(), ElementsAre("7,8"));
  EXPECT_EQ(set->Columns(), 2);
  EXPECT_THAT(set.State().labels, ElementsAre("d0", "y"));
  EXPECT_FALSE(set->HasLabels());
  EXPECT_EQ(set->GetProperty("DelayTime"), "5");
  EXPECT_EQ(set->GetProperty("Separator"), ";");
  EXPECT_EQ(set->GetProperty("ReplacedNullValues"), "0");
  EXPECT_EQ(set->ProblemCategory(), 2);
  EXPECT_EQ(set.As<IIterator>()->CurrentRow(), 0);
}

TEST(TextParsing, RoundsEveryNumberCorrectly) {
  const MemorySet set(
      "9007199254740993,0.1,1.7976931348623157e308,4.9406564584124654e-324,1e-400\n"
      "123456789012345678901234567890,2.2250738585072011e-308,+1e23,-0.3,8.5e-0021");
  const double expected[] = {9007199254740992.0,
                             0.1,
                             1.7976931348623157e308,
                             5e-324,
                             0.0,
                             123456789012345678901234567890.0,
                             2.2250738585072011e-308,
                             1e23,
                             -0.3,
                             8.5e-21};
  for (std::int32_t i = 0; i < 10; ++i) EXPECT_EQ(set->GetItem(i % 5, i / 5), expected[i]) << i;
}

}  // namespace
}  // namespace tslm5
