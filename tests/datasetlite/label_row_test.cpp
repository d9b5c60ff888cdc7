// The labels row of a file.
#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

class DataSetLiteLabelRow : public DataSetLiteTest {
 protected:
  void ParseWithLabels(std::string_view bytes, std::int32_t separator = separator_code::kComma) {
    Parse(bytes, {.separator = separator, .has_labels = true});
  }
};

TEST_F(DataSetLiteLabelRow, GivesTheLabelsAndNoRecord) {
  ParseWithLabels("age,height,weight\n1,2,3\n");
  EXPECT_TRUE(set_->HasLabels());
  EXPECT_EQ(set_.Labels(), (Lines{"age", "height", "weight"}));
  EXPECT_EQ(set_.Records(), (Lines{"1,2,3"}));
}

TEST_F(DataSetLiteLabelRow, IsARecordWhereTheFileIsSaidToHaveNone) {
  Parse("1,2\n3,4\n");
  EXPECT_FALSE(set_->HasLabels());
  EXPECT_EQ(set_->Rows(), 2);
}

TEST_F(DataSetLiteLabelRow, ThatFailsTheTestIsDroppedAllTheSame) {
  struct {
    const char* name;
    const char* row;
  } const cases[] = {
      {"a number", "1,b"},     {"a number with a sign", "a,-2.5e3"},
      {"two equal", "a,a"},    {"two equal but for case", "A,a"},
      {"with accents", "É,é"}, {"folded to two letters", "straße,STRASSE"},
  };
  for (const auto& c : cases) {
    ParseWithLabels(std::string(c.row) + "\n1,2\n3,4\n");
    EXPECT_FALSE(set_->HasLabels()) << c.name;
    EXPECT_EQ(set_.Records(), (Lines{"1,2", "3,4"})) << c.name;
    EXPECT_EQ(set_.Labels(), (Lines{"d0", "y"})) << c.name;
  }
}

TEST_F(DataSetLiteLabelRow, MayHoldWhatOnlyLooksLikeANumber) {
  for (const char* row : {"1x,2y", "0x10,b", "nan,inf", "1.2.3,-", "1d5,1e400"}) {
    ParseWithLabels(std::string(row) + "\n1,2\n");
    EXPECT_TRUE(set_->HasLabels()) << row;
  }
}

TEST_F(DataSetLiteLabelRow, IsTestedUnderTheUsersDecimalSeparator) {
  const ScopedLocale german("de_DE");
  ParseWithLabels("1,5|b\n1|2\n", separator_code::kBar);
  EXPECT_FALSE(set_->HasLabels());
  ParseWithLabels("1.5|b\n1|2\n", separator_code::kBar);
  EXPECT_TRUE(set_->HasLabels());
  EXPECT_EQ(set_.Labels(), (Lines{"1.5", "b"}));
}

TEST_F(DataSetLiteLabelRow, ReadsManyKindsOfLabels) {
  constexpr std::int32_t kSpace = separator_code::kSpace;
  constexpr std::int32_t kComma = separator_code::kComma;
  struct {
    const char* name;
    const char* bytes;
    std::int32_t separator;
    Lines labels;
  } const cases[] = {
      {"blanks inside", "Blood Pressure,Age\n1,2\n", kComma, {"Blood Pressure", "Age"}},
      {"blanks inside, CRLF", "Blood Pressure,Age\r\n1,2\r\n", kComma, {"Blood Pressure", "Age"}},
      {"a blank behind a comma", "a, b,c\n1,2,3\n", kComma, {"a", "b", "c"}},
      {"blanks around and inside", " a b , c \n1,2\n", kComma, {"a b", "c"}},
      {"runs of blanks between", "a   b  c\n1 2 3\n", kSpace, {"a", "b", "c"}},
      {"blanks at both ends", "  a b  \n1 2\n", kSpace, {"a", "b"}},
      {"accents", "größe,âge\n1,2\n", kComma, {"größe", "âge"}},
      {"an apostrophe", "it's,b\n1,2\n", kComma, {"it's", "b"}},
      {"code 5 for a blank", "a\x05z b\n1 2\n", kSpace, {"a z", "b"}},
      {"one label", "price\n1\n2\n", kComma, {"price"}},
      {"one label of two words", "unit price\n1\n", separator_code::kNone, {"unit price"}},
      {"one label without a separator", "price\n1\n", separator_code::kNone, {"price"}},
      {"tabs", "a b\tc\n1\t2\n", separator_code::kTab, {"a b", "c"}},
      {"semicolons", "a b;c\n1;2\n", separator_code::kSemicolon, {"a b", "c"}},
      {"quotes", "\"a\",\"b\"\n1,2\n", kComma, {"\"a\"", "\"b\""}},
      {"a tab inside one", "a\tz,b\n1,2\n", kComma, {"a\tz", "b"}},
      {"a carriage return too many", "a,b\r\r\n1,2\r\n", kComma, {"a", "b"}},
      {"words as many as columns", "a b,,c\n1,2,3\n", kComma, {"a", "b", "c"}},
      {"neither words nor fields so many", "a b,c\n1,2,3,4\n", kComma, {"a", "b", "c", ""}},
      {"fewer than columns", "a,b\n1,2,3\n", kComma, {"a", "b", ""}},
  };
  for (const auto& c : cases) {
    ParseWithLabels(c.bytes, c.separator);
    EXPECT_TRUE(set_->HasLabels()) << c.name;
    EXPECT_EQ(set_.Labels(), c.labels) << c.name;
  }
}

TEST_F(DataSetLiteLabelRow, WithMoreLabelsThanColumnsKeepsThemAll) {
  ParseWithLabels("a,b,c\n1,2\n");
  EXPECT_EQ(set_->GetLabel(2), "c");
  EXPECT_EQ(set_->GetLabel(3), "");
}

TEST_F(DataSetLiteLabelRow, ReplacesTheLabelsOfTheLoadBefore) {
  ParseWithLabels("a,b\n1,2\n");
  ParseWithLabels("c,d\n1,2\n");
  EXPECT_EQ(set_.Labels(), (Lines{"c", "d"}));
  Parse("1,2\n");
  EXPECT_FALSE(set_->HasLabels());
  EXPECT_EQ(set_.Labels(), (Lines{"d0", "y"}));
}

TEST_F(DataSetLiteLabelRow, StandsInTheFirstLineEvenIfThatIsEmpty) {
  ParseWithLabels("\na,b\n1,2\n");
  EXPECT_EQ(run_.Select("SELECT d0 FROM TrainingSet"), (Lines{"a", "1"}));
}

}  // namespace
}  // namespace tslm5
