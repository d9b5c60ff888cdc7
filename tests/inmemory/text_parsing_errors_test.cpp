// What `ParseString` refuses, and what the set holds then.
#include <gmock/gmock.h>

#include <string>

#include "inmemory/memory_set.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

using testing::IsEmpty;

TEST(TextParsingErrors, AreRaisedInTheOrderOfTheSteps) {
  const struct {
    const char* text;
    std::int32_t separator;
    std::int32_t error;
  } kCases[] = {
      {"", 2, 41023},       {"   ", 2, 41023},   {"   ", 7, 41023},    {",;| \t", -1, 41023},
      {"1;2", 2, 41012},    {"1 2;3", 2, 41012}, {"1,2", 7, 41012},    {"1,2", -2, 41012},
      {"1,2 3", 2, 41024},  {"1,2;3", 2, 41024}, {"1 2,3", 0, 41024},  {"a b,c\n1,2", 2, 41024},
      {"1\t2 3", 1, 41024}, {"1|2,3", 4, 41024}, {"1\t2;3", 3, 41024},
  };
  for (const auto& [text, separator, error] : kCases) {
    EXPECT_THAT(MemorySet().ErrorOf(text, {.separator = separator}), IsError(error)) << text;
  }
}

TEST(TextParsingErrors, ForgiveBlanksAroundTheText) {
  const MemorySet set("  1,2\n3,4   ");
  EXPECT_EQ(set->Rows(), 2);
}

TEST(TextParsingErrors, CountOneColumnAsLackingTheSeparator) {
  EXPECT_THAT(MemorySet().ErrorOf("1\n2"), IsError(41012));
}

TEST(TextParsingErrors, DoNotCountTheUsersDecimalCommaAsMixed) {
  EXPECT_THAT(MemorySet().ErrorOf("1,5;2,5", {.separator = 3}), IsError(41024));
  const ScopedLocale german("de_DE");
  const MemorySet set;
  set.Parse("1,5;2,5", {.separator = 3});
  EXPECT_EQ(set->GetItem(1, 0), 2.5);
}

TEST(TextParsingErrors, NameTheRowOfAnotherWidth) {
  EXPECT_THAT(MemorySet().ErrorOf("1,2\n3"), IsColumnCountError(2));
  EXPECT_THAT(MemorySet().ErrorOf("1,2\n3,4\n5,6,7"), IsColumnCountError(3));
  EXPECT_THAT(MemorySet().ErrorOf("a,b\n\n1,2\n\n\n3\n", {.has_labels = true}),
              IsColumnCountError(2))
      << "without the label line and empty lines";
  EXPECT_THAT(MemorySet().ErrorOf("1,2\n3,,4,\n5,,6"), IsError(0, "", "nothing was raised"));
}

TEST(TextParsingErrors, FindARowWithAnEmptyCellTooShort) {
  EXPECT_THAT(MemorySet().ErrorOf("1,2,3\n4,,6"), IsColumnCountError(2));
}

TEST(TextParsingErrors, FindALineOfOneBlankTooShort) {
  EXPECT_THAT(MemorySet().ErrorOf("1 2\n \n3 4", {.separator = 0}), IsColumnCountError(2));
  EXPECT_THAT(MemorySet().ErrorOf("1 2\n3 4\n \n", {.separator = 0}), IsColumnCountError(3));
}

TEST(TextParsingErrors, TakeASeparatorAtTheEndsOfTheFirstLineForAColumn) {
  EXPECT_THAT(MemorySet().ErrorOf("1 2 \n3 4", {.separator = 0}), IsError(41013));
  EXPECT_THAT(MemorySet().ErrorOf("a b\n1 2 \n3 4", {.separator = 0, .has_labels = true}),
              IsColumnCountError(1));
  EXPECT_THAT(MemorySet().ErrorOf("1,2,\n3,4"), IsColumnCountError(1));
  EXPECT_THAT(MemorySet().ErrorOf(",1,2\n3,4"), IsColumnCountError(1));
}

TEST(TextParsingErrors, WantALabelForEveryField) {
  EXPECT_THAT(MemorySet().ErrorOf("a,b\n1,2,3", {.has_labels = true}), IsError(41013));
  EXPECT_THAT(MemorySet().ErrorOf("a,b,c\n1,2", {.has_labels = true}), IsError(41013));
}

TEST(TextParsingErrors, ShowTheFirstCharactersOfAFieldThatIsNoNumber) {
  EXPECT_THAT(MemorySet().ErrorOf("1,2\n3,4\n5,abcdefghijklmnopqrstu"),
              IsError(41011, "ParseString", "Sample 2 in row 3 is invalid: abcdefghijklmno"));
  std::string accents;
  std::string fifteen;
  for (int i = 0; i < 19; ++i) {
    accents += "\xC3\xA9";
    if (i < 15) fifteen += "\xC3\xA9";
  }
  EXPECT_THAT(MemorySet().ErrorOf("1," + accents),
              IsError(41011, "ParseString", "Sample 2 in row 1 is invalid: " + fifteen));
}

TEST(TextParsingErrors, AreRaisedForEverythingOutsideTheGrammar) {
  for (const std::string field : {"?", "NA", "nan", "inf", "0x10", "1e400", "1d5", "5x", ".", "-",
                                  "1.2.3", "(1)", "$1", "1\r", "1e"}) {
    EXPECT_THAT(MemorySet().ErrorOf("1,2\n" + field + ",4"),
                IsError(41011, "ParseString", "Sample 1 in row 2 is invalid: " + field));
  }
}

TEST(TextParsingErrors, CountARowsFieldsBeforeTheyAreRead) {
  EXPECT_THAT(MemorySet().ErrorOf("1,2\nx"), IsColumnCountError(2));
  EXPECT_THAT(MemorySet().ErrorOf("1,2\nx,3,4"), IsColumnCountError(2));
}

TEST(TextParsingErrors, PromiseMoreCellsThanTheTextCanHold) {
  std::string text = "1";
  for (int i = 1; i < 200'000; ++i) text += ",1";
  for (int i = 0; i < 200'000; ++i) text += "\n1";
  EXPECT_THAT(MemorySet().ErrorOf(text), IsColumnCountError(2));
}

TEST(TextParsingErrors, LeaveTheSetAsItWas) {
  for (const char* text : {"", "1;2", "1,2 3", "a,b\n1", "a,b\n1,2\n3,x"}) {
    const MemorySet set("7,8\n9,10");
    set->SetProperty("5", "DelayTime");
    set.State().extra_set = CellArray(3, 1);
    set.State().extra_set_exists = true;
    set.SetDirty(false);
    const Lines before = set.Everything();
    EXPECT_NE(set.ErrorOf(text, {.has_labels = true, .type = data_set_type::kTesting}).Number(), 0);
    EXPECT_EQ(set.Everything(), before) << text;
  }
}

TEST(TextParsingErrors, LeaveANewSetEmpty) {
  for (const char* text : {"", "1;2", "1,2 3", "1,2\n3", "1,2\n3,x"}) {
    const MemorySet set;
    EXPECT_NE(set.ErrorOf(text).Number(), 0);
    EXPECT_FALSE(set->IsReady()) << text;
    EXPECT_EQ(set->Rows(), 0) << text;
    EXPECT_EQ(RaisedNumber([&] { set->GetItem(0, 0); }), 9) << text;
  }
}

TEST(TextParsingErrors, AreForgottenByTheNextParse) {
  const MemorySet set;
  set.ErrorOf("1,2\n3,x");
  set.Parse("1,2\n3,4");
  EXPECT_TRUE(set->IsReady());
  EXPECT_EQ(set->Rows(), 2);
}

TEST(TextParsingErrors, RaiseNoEventAfterTheLastGoodRecord) {
  const MemorySet set;
  const Ref<RecordingMemoryEvents> events = set.Listen();
  set.ErrorOf("1,2 3");
  EXPECT_THAT(events->lines, IsEmpty());
  set.ErrorOf("1,2\n3,x");
  EXPECT_THAT(events->lines, testing::ElementsAre("BeforeDataLoad 2 x 2", "RecordParsed 0 of 2"));
}

}  // namespace
}  // namespace tslm5
