// What words and gaps become.
#include "inmemory/nominal_parsing.h"

#include <gmock/gmock.h>

#include "inmemory/nominal_set.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

TEST(NominalParsing, KeepsNumbersAsNumbers) {
  const NominalSet set("1,2.5,-3\n4,5e2,6");
  EXPECT_THAT(set.Records(), ElementsAre("1,2.5,-3", "4,500,6"));
  EXPECT_THAT(set.Texts(), ElementsAre("#1,#2.5,#-3", "#4,#500,#6"));
  EXPECT_EQ(set.Missing(), "0");
  EXPECT_TRUE(set->IsReady());
}

TEST(NominalParsing, CodesAnInputFromOneAndTheResponseFromZero) {
  const NominalSet set("red,no\nblue,yes\nred,no");
  EXPECT_THAT(set.Records(), ElementsAre("1,0", "2,1", "1,0"));
  EXPECT_THAT(set.Texts(), ElementsAre("red,no", "blue,yes", "red,no"));
}

TEST(NominalParsing, CodesTheOneColumnAsTheResponse) {
  const NominalSet set;
  set.Parse("b\na\nb", {.separator = -1});
  EXPECT_THAT(set.Records(), ElementsAre("0", "1", "0"));
}

TEST(NominalParsing, CountsAMissingTextAsAPosition) {
  const NominalSet set("a,1\n?,2\nb,3");
  EXPECT_THAT(set.Records(), ElementsAre("1,1", ",2", "3,3"));
  EXPECT_THAT(set.Texts(), ElementsAre("a,#1", "?,#2", "b,#3"));
  EXPECT_EQ(set.Missing(), "1");
}

TEST(NominalParsing, CodesOneMissingTextBeforeTheFirstWord) {
  const NominalSet set("?,1\nNA,2\n?,3\nb,4");
  EXPECT_THAT(set.Records(), ElementsAre(",1", ",2", ",3", "3,4"));
  EXPECT_THAT(set.Texts(), ElementsAre("?,#1", "NA,#2", "?,#3", "b,#4"));
  EXPECT_EQ(set.Missing(), "3");
}

TEST(NominalParsing, LeavesGapsInAColumnOfNumbers) {
  const NominalSet set("1,7\n?,8\n3,9");
  EXPECT_TRUE(std::isnan(set->GetItem(0, 1)));
  EXPECT_TRUE(std::isnan(set.Nominal().GetItem(0, 1).ToDouble()));
  EXPECT_THAT(set.Texts(), ElementsAre("#1,#7", "#,#8", "#3,#9"));
  EXPECT_EQ(set.Missing(), "1");
  EXPECT_EQ(set->GetProperty("ReplacedNullValues"), "1");
}

TEST(NominalParsing, TakesEveryMissingTextForAGap) {
  for (const std::string text :
       {"?", "NULL", "Null", "null", "NA", "na", ".", "._", ".A", ".z", ".abc", ".?"}) {
    const NominalSet set("1,7\n" + text + ",8");
    EXPECT_THAT(set.Texts(), ElementsAre("#1,#7", "#,#8")) << text;
    EXPECT_EQ(set.Missing(), "1") << text;
  }
}

TEST(NominalParsing, TakesAMissingTextInAnotherCaseForAWord) {
  for (const std::string text : {"Na", "nA", "nULL", "??", "..5", "-", "nan", "inf", "1e400"}) {
    const NominalSet set("1,7\n" + text + ",8");
    EXPECT_THAT(set.Records(), ElementsAre("1,7", "2,8")) << text;
    EXPECT_THAT(set.Texts(), ElementsAre("1,#7", text + ",#8"));
    EXPECT_EQ(set.Missing(), "0") << text;
  }
}

TEST(NominalParsing, TakesWhatPassesAsANumberForNoGap) {
  // The part behind the point alone would be too large for a double.
  const NominalSet set(".1e309,.1e309\nb,2");
  EXPECT_THAT(set.Texts(), ElementsAre(".1e309,#1E+308", "b,#2"));
  EXPECT_THAT(set.Records(), ElementsAre("1,1E+308", "2,2"));
  EXPECT_EQ(set.Missing(), "0");
}

TEST(NominalParsing, AllowsAColumnOfGapsAlone) {
  const NominalSet set("?,7\nNA,8\n.,9");
  EXPECT_THAT(set.Texts(), ElementsAre("#,#7", "#,#8", "#,#9"));
  EXPECT_EQ(set.Missing(), "3");
}

TEST(NominalParsing, CodesTheNumbersOfAColumnWithOneWord) {
  const NominalSet set("1,7\n1.0,7\n?,8\n1,7\nx,9");
  EXPECT_THAT(set.Records(), ElementsAre("1,7", "2,7", ",8", "1,7", "4,9"));
  EXPECT_THAT(set.Texts(), ElementsAre("1,#7", "1.0,#7", "?,#8", "1,#7", "x,#9"));
  EXPECT_EQ(set.Missing(), "1");
}

TEST(NominalParsing, CountsTheGapsOfEveryColumn) {
  const NominalSet set("?,a,1,0\n2,?,?,0\n.x,NA,3,1");
  EXPECT_EQ(set.Missing(), "5");
  EXPECT_THAT(set.Records(), ElementsAre(",1,1,0", "2,,,0", ",,3,1"));
}

TEST(NominalParsing, TellsTextsApartByCase) {
  const NominalSet set("a,x\nA,X\na,x\n\xC3\xA9,x\n\xC3\x89,X");
  EXPECT_THAT(set.Records(), ElementsAre("1,0", "2,1", "1,0", "3,0", "4,1"));
}

TEST(NominalParsing, SplitsAtEverySeparator) {
  const struct {
    std::int32_t code;
    const char* text;
  } kCases[] = {{0, " a  1\n b 2 \nb   3 "},
                {1, "a\t1\n\tb\t2\nb\t3"},
                {2, "a,1\nb,2\nb,,3,"},
                {3, "a;1\nb;2\nb;3"},
                {4, "a|1\nb|2\n|b|3"}};
  for (const auto& [code, text] : kCases) {
    const NominalSet set;
    set.Parse(text, {.separator = code});
    EXPECT_THAT(set.Texts(), ElementsAre("a,#1", "b,#2", "b,#3")) << code;
  }
}

TEST(NominalParsing, ReadsNumbersAsTheUserWritesThem) {
  const ScopedLocale german("de_DE");
  const NominalSet set;
  set.Parse("1,5;1.5;.5;0\n2;2;,5;1", {.separator = 3});
  EXPECT_THAT(set.Texts(), ElementsAre("#1.5,1.5,.5,#0", "#2,2,,5,#1")) << "1.5 is a word here";
  EXPECT_EQ(set->GetItem(0, 0), 1.5);
  EXPECT_EQ(set->GetItem(1, 0), 1);
  EXPECT_EQ(set->GetItem(1, 1), 2);
  EXPECT_EQ(set.Missing(), "0");
}

TEST(NominalParsing, TransposesLayout2) {
  const NominalSet set;
  set.Parse("colour,red,blue\nsize,1,?\ny,no,yes", {.has_labels = true, .layout = 2});
  EXPECT_THAT(set.Labels(), ElementsAre("colour", "size", "y"));
  EXPECT_THAT(set.Texts(), ElementsAre("red,#1,no", "blue,#,yes"));
}

TEST(NominalParsing, MovesTheResponseOfLayout3ToTheEnd) {
  const NominalSet set;
  set.Parse("y,a\n1,2", {.has_labels = true, .type = 2, .layout = 3});
  EXPECT_THAT(set.Labels(), ElementsAre("a", "y"));
  EXPECT_THAT(set.Records(), ElementsAre("2,1"));
  set.Parse("no,x,1\nyes,z,2", {.layout = 3});
  EXPECT_THAT(set.Texts(), ElementsAre("x,#1,no", "z,#2,yes"));
  EXPECT_THAT(set.Records(), ElementsAre("1,1,0", "2,2,1"));
}

TEST(NominalParsing, TakesLabelsFromTheFirstLine) {
  const NominalSet set;
  EXPECT_EQ(set.Parse("d,y\n\nred,1\nblue,2\n\n", {.has_labels = true}), "red,1\nblue,2\n");
  EXPECT_THAT(set.Labels(), ElementsAre("dd", "y"));
  EXPECT_TRUE(set->HasLabels());
  EXPECT_THAT(set.Texts(), ElementsAre("red,#1", "blue,#2"));
  set.Parse("red,1\nblue,2");
  EXPECT_THAT(set.Labels(), ElementsAre("d0", "y"));
}

TEST(NominalParsing, EndsNoTextWithACarriageReturn) {
  const NominalSet set;
  EXPECT_EQ(set.Parse("a,y\r\n1,no\r\n2,yes\r\n3,no\r\n", {.has_labels = true}),
            "1,no\n2,yes\n3,no\n");
  EXPECT_THAT(set.Labels(), ElementsAre("a", "y"));
  EXPECT_THAT(set.Texts(), ElementsAre("#1,no", "#2,yes", "#3,no"));
  set.Parse("1,2\r\n3,4\r\n");
  EXPECT_THAT(set.Texts(), ElementsAre("#1,#2", "#3,#4"));
}

TEST(NominalParsing, TakesAKeyThatFillsManyBytes) {
  const std::string longer(100'000, 'x');
  const NominalSet set(longer + "a,1\n" + longer + "b,2\n" + longer + "a,3");
  EXPECT_THAT(set.Records(), ElementsAre("1,1", "2,2", "1,3"));
  EXPECT_EQ(set.Nominal().GetItem(0, 1).ToString(), longer + "b");
}

TEST(NominalParsing, MakesTheProblemCategoryThatOfTheSet) {
  const NominalSet set;
  set.Parse("a,1\nb,2", {.category = 3});
  EXPECT_EQ(set->ProblemCategory(), 3);
  set.Parse("a,1\nb,2", {.category = 0});
  EXPECT_EQ(set->ProblemCategory(), 0);
}

TEST(NominalParsing, SetsWhatThePlainParseSets) {
  const NominalSet set;
  set.Parse("a|1\nb|2", {.separator = 4, .type = 2});
  EXPECT_EQ(set->GetProperty("Separator"), "|");
  EXPECT_EQ(set.State().separator, 4);
  EXPECT_EQ(set->DataSetType(), 2);
  EXPECT_EQ(set.State().name, "Testing");
  EXPECT_TRUE(set.IsDirty());
}

}  // namespace
}  // namespace tslm5
