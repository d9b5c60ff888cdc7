// What the parse of words refuses, and what the set holds then.
#include <gmock/gmock.h>

#include "inmemory/nominal_set.h"
#include "support/temporary_folder.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

auto IsMissingResponse(int row, int column) {
  return IsError(41025, "ParseString",
                 "Unable to proceed: Invalid input in row " + std::to_string(row) + ", column " +
                     std::to_string(column) +
                     ".\r\n\r\nThe response variable has missing values, which is not supported."
                     "\r\nPlease make sure you remove all missing values from the response.");
}

auto IsTooManyCategories(const std::string& label) {
  return IsError(
      41027, "ParseString",
      "Unable to proceed: The variable " + label +
          " has more than 10000 categories.\r\n\r\nPlease make sure that the variable is "
          "correct as Tessaloom only supports up 10000 categories.");
}

TEST(NominalParsingErrors, TellOfMixedSeparatorsInWords) {
  const auto is_mixed =
      IsError(41024, "",
              "Unable to proceed: This file contains more than one type of separator.\r\n\r\n"
              "Please remove any hidden or duplicated separators.");
  EXPECT_THAT(NominalSet().ErrorOf("a,1\nb c,2"), is_mixed);
  EXPECT_THAT(NominalSet().ErrorOf("a,1\nb,2;"), is_mixed);
  EXPECT_THAT(MemorySet().ErrorOf("1,2 3"), IsError(41024)) << "not so in the plain parse";
}

TEST(NominalParsingErrors, AreThoseOfThePlainParse) {
  for (const char* text : {"", "   ", ",\n"}) {
    EXPECT_EQ(NominalSet().ErrorOf(text).Number(), *text == ',' ? 41020 : 41023) << text;
  }
  EXPECT_THAT(NominalSet().ErrorOf("\n\n", {.separator = -1}), IsError(41023));
  EXPECT_THAT(NominalSet().ErrorOf("a;b"), IsError(41012));
  EXPECT_THAT(NominalSet().ErrorOf("x,y\na,b,c", {.has_labels = true}), IsError(41013));
  EXPECT_THAT(NominalSet().ErrorOf("1,y\na,b", {.has_labels = true}), IsColumnCountError(1));
  EXPECT_THAT(NominalSet().ErrorOf("x,X\na,b", {.has_labels = true}), IsColumnCountError(1));
  EXPECT_EQ(NominalSet().ErrorOf("1,2\n3,4,5", {.layout = 2}).Number(), 9);
}

TEST(NominalParsingErrors, NameTheRowOfAnotherWidth) {
  for (const char* row : {"b", "b,c,d", "?,?,?", ",", "b,c,d,", ",b"}) {
    const std::string text = std::string("a,1\n") + row + "\nc,?";
    EXPECT_THAT(NominalSet().ErrorOf(text), IsColumnCountError(2)) << row;
  }
  EXPECT_THAT(NominalSet().ErrorOf("a,b,1\nc,,2"), IsColumnCountError(2)) << "an empty input";
  EXPECT_THAT(NominalSet().ErrorOf("a,b,1\nc,"), IsColumnCountError(2)) << "two fields too few";
}

TEST(NominalParsingErrors, NameTheRowWithoutAResponse) {
  EXPECT_THAT(NominalSet().ErrorOf("1,a\n2,b\n3,a\n4,\n"), IsMissingResponse(4, 2));
  EXPECT_THAT(NominalSet().ErrorOf("l,r\n1,a\n2,", {.has_labels = true}), IsMissingResponse(2, 2));
  EXPECT_THAT(NominalSet().ErrorOf("1,2,\n3,4,\n"), IsMissingResponse(1, 3));
  EXPECT_THAT(NominalSet().ErrorOf("1,a\n,2,"), IsMissingResponse(2, 2));
  EXPECT_THAT(NominalSet().ErrorOf("1\ta\n2\t", {.separator = 1}), IsMissingResponse(2, 2));
  EXPECT_THAT(NominalSet().ErrorOf("1,2,3\na,b,", {.layout = 2}), IsMissingResponse(3, 2));
  EXPECT_THAT(NominalSet().ErrorOf("a,1\n,2", {.layout = 3}), IsMissingResponse(2, 2));
  EXPECT_THAT(NominalSet().ErrorOf("1,a\r\n2,\r\n"), IsMissingResponse(2, 2));
}

TEST(NominalParsingErrors, TakeABlankAtTheEndOfALineForNoResponse) {
  EXPECT_THAT(NominalSet().ErrorOf("1 a\n2 \n3 a", {.separator = 0}), IsColumnCountError(2));
}

TEST(NominalParsingErrors, NameTheResponseThatIsMissing) {
  for (const std::string text :
       {"?", "NULL", "Null", "null", "NA", "na", ".", "._", ".W", ".x", ".abc"}) {
    for (const std::string other : {"1", "a"}) {
      EXPECT_THAT(NominalSet().ErrorOf("1," + other + "\n2," + text), IsMissingResponse(2, 2));
      EXPECT_THAT(NominalSet().ErrorOf("1," + text + "\n2," + other), IsMissingResponse(1, 2));
    }
  }
  EXPECT_EQ(NominalSet().ErrorOf("1,.5\n2,Na\n3,..5").Number(), 0);
  EXPECT_THAT(NominalSet().ErrorOf("a\n?", {.separator = -1}), IsMissingResponse(2, 1));
}

TEST(NominalParsingErrors, TestTheWidthBeforeTheResponse) {
  EXPECT_THAT(NominalSet().ErrorOf("1,a\n2,?,3"), IsColumnCountError(2));
}

TEST(NominalParsingErrors, AskForMoreThanOneResponseInTrainingData) {
  const struct {
    std::int32_t category;
    const char* words;
  } kCases[] = {
      {0,
       "Unable to proceed: The Response Variable is a constant in the Training data.\r\n\r\n"
       "Please make sure to include at least two different values in the dataset."},
      {1,
       "Unable to proceed: The Response Variable has only 1 kind of class.\r\n\r\n"
       "Please make sure that your dataset has at least 2 different classes."},
      {3,
       "Unable to proceed: The Response Variable has only 1 kind of class.\r\n\r\n"
       "Please make sure that the response variable is binary."},
      {4,
       "Unable to proceed: The Response Variable has only 1 kind of class.\r\n\r\n"
       "Please make sure that your dataset has at least 2 different classes."}};
  for (const auto& [category, words] : kCases) {
    for (const char* text : {"a,no\nb,no", "1,7\n2,7", "1,7"}) {
      const auto is_single = IsError(41026, "ParseString", words);
      EXPECT_THAT(NominalSet().ErrorOf(text, {.category = category}), is_single) << category;
      for (const std::int32_t type : {0, 2, 5, 1000}) {
        EXPECT_EQ(NominalSet().ErrorOf(text, {.type = type, .category = category}).Number(), 0);
      }
    }
    EXPECT_EQ(NominalSet().ErrorOf("a,1\nb,1.0", {.category = category}).Number(), 0);
  }
  EXPECT_EQ(NominalSet().ErrorOf("a,no\nb,no", {.category = 2}).Number(), 0);
  EXPECT_EQ(NominalSet().ErrorOf("a,no\nb,no", {.category = 5}).Number(), 0);
}

/// Rows of a word and a number: `categories` different words, and behind them the first again.
std::string Words(int categories, const std::string& instead_of_the_first = "w0") {
  std::string text = instead_of_the_first + ",0\n";
  for (int i = 1; i < categories; ++i) {
    text += "w" + std::to_string(i) + "," + std::to_string(i) + "\n";
  }
  return text + instead_of_the_first + ",7\n";
}

TEST(NominalParsingErrors, AllowTenThousandCategories) {
  const NominalSet set(Words(10000));
  EXPECT_EQ(set->Rows(), 10001);
  EXPECT_EQ(set->GetItem(0, 9999), 10000);
  EXPECT_EQ(set->GetItem(0, 10000), 1);
  EXPECT_EQ(set.Nominal().GetItem(0, 9999).ToString(), "w9999");
  EXPECT_THAT(set.ErrorOf(Words(10001)), IsTooManyCategories("d0"));
  EXPECT_EQ(set->Rows(), 10001) << "those of before";
}

TEST(NominalParsingErrors, CountAMissingTextAmongThem) {
  const NominalSet set(Words(10000, "?"));
  EXPECT_EQ(set.Missing(), "2");
  EXPECT_EQ(set->GetItem(0, 9999), 10000);
  EXPECT_THAT(set.ErrorOf("colour,y\n" + Words(10001, "?"), {.has_labels = true}),
              IsTooManyCategories("colour"));
  EXPECT_EQ(set.Missing(), "2") << "those of before";
}

TEST(NominalParsingErrors, AllowAnyCountOfNumbers) {
  std::string text;
  for (int i = 0; i < 10002; ++i) text += std::to_string(i) + "," + std::to_string(i) + "\n";
  EXPECT_EQ(NominalSet(text)->Rows(), 10002);
  EXPECT_THAT(NominalSet().ErrorOf(text + "0,x"), IsTooManyCategories("y"));
}

TEST(NominalParsingErrors, NameTheFirstColumnWithTooManyCategories) {
  std::string text = "k,k,k,0\n";  // column 1 has too many a row before column 0
  for (int i = 1; i < 10003; ++i) {
    const std::string word = "w" + std::to_string(i);
    text += (i == 1 ? "k," : word + ",") + word + "," + (i == 1 ? "k," : word + ",") + "0\n";
  }
  EXPECT_THAT(NominalSet().ErrorOf("a,b,c,y\n" + text, {.has_labels = true}),
              IsTooManyCategories("a"));
}

TEST(NominalParsingErrors, LeaveTheSetAsItWas) {
  for (const char* text : {"", "a;b", "a,b c", "a,1\nb", "a,1\nb,", "a,1\nb,?", "a,1\nb,1"}) {
    const NominalSet set("?,7\na,8");
    const Lines before = set.Everything();
    EXPECT_NE(set.ErrorOf(text, {.category = 1}).Number(), 0) << text;
    EXPECT_EQ(set.Everything(), before) << text;
    EXPECT_THAT(set.Texts(), ElementsAre("?,#7", "a,#8")) << text;
    set.Parse("b,?\n1,3", {.layout = 2});
    EXPECT_THAT(set.Texts(), ElementsAre("b,#1", "?,#3")) << "the next parse knows nothing of it";
    EXPECT_TRUE(set.Nominal().IsReady());
  }
}

TEST(NominalParsingErrors, RefuseToTransposeOneColumn) {
  const auto is_refused =
      IsError(41001, "ParseString",
              "Text without a separator cannot be transposed: its lines would run together.");
  EXPECT_THAT(NominalSet().ErrorOf("red\nblue", {.separator = -1, .layout = 2}), is_refused);
  EXPECT_THAT(MemorySet().ErrorOf("1\n2", {.separator = -1, .layout = 2}), is_refused);
}

TEST(NominalParsingErrors, OfAFileThatIsNotThereLeaveTheSetAlone) {
  const TemporaryFolder folder;
  const NominalSet set("a,7\nb,8");
  EXPECT_THAT(Raised([&] { set.ParseFile("", {.category = 4}); }), IsError(41001));
  EXPECT_THAT(Raised([&] { set.ParseFile(folder.PathOf("none"), {.category = 4}); }),
              IsError(41007));
  EXPECT_THAT(set.Texts(), ElementsAre("a,#7", "b,#8"));
  EXPECT_EQ(set->ProblemCategory(), 2);
  EXPECT_THAT(Raised([&] { set.ParseFile(folder.Write("empty", "")); }), IsError(41023));
}

}  // namespace
}  // namespace tslm5
