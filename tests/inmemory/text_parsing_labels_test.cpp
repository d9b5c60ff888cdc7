#include <gmock/gmock.h>

#include "inmemory/memory_set.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr TextOptions kWithLabels = {.has_labels = true};

TEST(TextParsingLabels, StandInTheFirstLine) {
  const MemorySet set;
  set.Parse("a,b,c\n1,2,3", kWithLabels);
  EXPECT_TRUE(set->HasLabels());
  EXPECT_THAT(set.Labels(), ElementsAre("a", "b", "c"));
  EXPECT_THAT(set.Records(), ElementsAre("1,2,3"));
}

TEST(TextParsingLabels, MayStandInABlankSeparatedLine) {
  const MemorySet set;
  set.Parse("  a   b\n1 2\n", {.separator = 0, .has_labels = true});
  EXPECT_THAT(set.Labels(), ElementsAre("a", "b"));
}

TEST(TextParsingLabels, MayHaveBlanksWrittenAsCode5) {
  const MemorySet set;
  set.Parse("Blood\x05Pressure,Age\n1,2", kWithLabels);
  EXPECT_THAT(set.Labels(), ElementsAre("Blood Pressure", "Age"));
}

TEST(TextParsingLabels, AreOneOfASingleColumn) {
  const MemorySet set;
  set.Parse("my\x05series\n1\n2", {.separator = -1, .has_labels = true});
  EXPECT_THAT(set.Labels(), ElementsAre("myseries"));
  EXPECT_THAT(set.Records(), ElementsAre("1", "2"));
}

TEST(TextParsingLabels, AreDoubledWhereTheyAreThePrefix) {
  const MemorySet set;
  set.Parse("d,x,y\n1,2,3", kWithLabels);
  EXPECT_THAT(set.Labels(), ElementsAre("dd", "x", "y"));
  set.Parse("D,x,y\n1,2,3", kWithLabels);
  EXPECT_THAT(set.Labels(), ElementsAre("DD", "x", "y"));
}

TEST(TextParsingLabels, AreRefusedWhereTheyAreNone) {
  for (const char* text :
       {"1,x,y\n1,2,3", "x,2.5,y\n1,2,3", "A,a,y\n1,2,3", "d,dd,y\n1,2,3", "x,y,y\n1,2,3"}) {
    EXPECT_THAT(MemorySet().ErrorOf(text, kWithLabels), IsColumnCountError(1)) << text;
  }
}

TEST(TextParsingLabels, AreNumbersOnlyAsTheUserWritesThem) {
  const ScopedLocale german("de_DE");
  const MemorySet set;
  set.Parse("x;2.5\n1;2", {.separator = 3, .has_labels = true});
  EXPECT_THAT(set.Labels(), ElementsAre("x", "2.5"));
  EXPECT_THAT(set.ErrorOf("x;2,5\n1;2", {.separator = 3, .has_labels = true}),
              IsColumnCountError(1));
}

TEST(TextParsingLabels, NeedALineBelowThem) {
  const MemorySet set;
  const Ref<RecordingMemoryEvents> events = set.Listen();
  EXPECT_THAT(set.ErrorOf("a,b\n", kWithLabels), IsError(41023));
  EXPECT_THAT(set.ErrorOf("a,b\n\n\n", kWithLabels), IsError(41023));
  EXPECT_THAT(events->lines, IsEmpty());
}

TEST(TextParsingLabels, AreNotFoundWithoutALineFeed) {
  const MemorySet set;
  EXPECT_THAT(set.ErrorOf("a,b", kWithLabels), IsError(41013));
  set.Parse("a,b\n1,2", kWithLabels);
  EXPECT_THAT(set.ErrorOf("3,4", kWithLabels), IsError(41013)) << "the earlier ones are gone";
}

TEST(TextParsingLabels, AreNotFoundInAnEmptyFirstLine) {
  EXPECT_THAT(MemorySet().ErrorOf("\na,b\n1,2", kWithLabels), IsError(41013));
}

TEST(TextParsingLabels, AreNamesOfVariablesByDefault) {
  const MemorySet set("1,2,3");
  EXPECT_FALSE(set->HasLabels());
  EXPECT_THAT(set.Labels(), ElementsAre("d0", "d1", "y"));
  set->put_IndependentVarsPrefix("x");
  set->put_DependentVarName("target");
  EXPECT_THAT(set.Labels(), ElementsAre("d0", "d1", "y")) << "they were made by the parse";
  set.Parse("1,2,3");
  EXPECT_THAT(set.Labels(), ElementsAre("x0", "x1", "target"));
}

TEST(TextParsingLabels, CallOneColumnATimeSeriesByDefault) {
  const MemorySet set;
  set.Parse("1\n2", {.separator = -1});
  EXPECT_THAT(set.Labels(), ElementsAre("Time Series"));
  EXPECT_FALSE(set->HasLabels());
}

}  // namespace
}  // namespace tslm5
