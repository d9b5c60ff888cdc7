#include "host/preparation/cell_survey.h"

#include <gtest/gtest.h>

#include <string>

#include "host/program/failure.h"

namespace tslm5::host {
namespace {

CellSurvey Survey(const std::string& text, const char* separator = "comma",
                  bool comma_is_decimal = false) {
  return SurveyCells({text, FindSeparator(separator), true, false, {}}, comma_is_decimal);
}

std::string RefusalOf(const std::string& text, const char* separator = "comma") {
  try {
    Survey(text, separator);
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Code(), ExitCode::kRefused);
    return failure.what();
  }
  return "taken";
}

void ExpectPlace(const CellKind& kind, std::int64_t count, std::int64_t line, std::size_t column,
                 const std::string& value) {
  EXPECT_EQ(kind.count, count);
  ASSERT_TRUE(kind.first.has_value());
  EXPECT_EQ(kind.first->line, line);
  EXPECT_EQ(kind.first->column, column);
  EXPECT_EQ(kind.first->value, value);
}

TEST(CellSurvey, AccountsForEveryLine) {
  const CellSurvey survey = Survey("a,b\n1,2\n\n3,4\n");
  EXPECT_EQ(survey.lines, 4);
  EXPECT_EQ(survey.label_lines, 1);
  EXPECT_EQ(survey.empty_lines, 1);
  EXPECT_EQ(survey.records, 2);
  EXPECT_EQ(survey.columns, 2U);
  EXPECT_EQ(survey.missing.count, 0);
  EXPECT_EQ(survey.text.count, 0);
  EXPECT_EQ(survey.changed.count, 0);
  EXPECT_EQ(survey.blanks.count, 0);
}

TEST(CellSurvey, TellsMissingCellsFromTexts) {
  const CellSurvey survey = Survey("a,b,c\n1,,red\n?,2,1e400\n.A,5.,0x10\n7,NA,-.5e3\n");
  ExpectPlace(survey.missing, 4, 2, 1, "");
  ExpectPlace(survey.text, 3, 2, 2, "red");
  EXPECT_EQ(survey.missing_by_column, (std::vector<std::int64_t>{2, 2, 0}));
}

TEST(CellSurvey, TakesANumberBesideALeftOverCarriageReturn) {
  ExpectPlace(Survey("a,b\n1,2\r\nx\r,NA\r\n").text, 2, 3, 0, "x\r");
}

TEST(CellSurvey, KnowsTheMissingTokens) {
  for (const char* token : {"", "?", "NULL", "Null", "null", "NA", "na", ".", "._", ".A", ".z"}) {
    EXPECT_TRUE(IsMissing(token)) << token;
  }
  for (const char* text : {"Na", "nA", "..", ".1", "-", "NAN", "nULL", "N/A", "none", "? "}) {
    EXPECT_FALSE(IsMissing(text)) << text;
  }
}

TEST(CellSurvey, TakesADecimalCommaWhereTheUserWritesOne) {
  EXPECT_EQ(Survey("a;b\n1,5;2.5\n", "semicolon", true).text.count, 0);
  ExpectPlace(Survey("a;b\n1,5;2.5\n", "semicolon", false).text, 1, 2, 0, "1,5");
  EXPECT_EQ(Survey("a;b\n1,5,5;2.5,1\n", "semicolon", true).text.count, 2);
}

TEST(CellSurvey, NamesTheFirstCellThatLosesACharacter) {
  ExpectPlace(Survey("a,b\n1,2\n3,4;5\n6;;7,8\t\n").changed, 3, 3, 1, "4;5");
}

TEST(CellSurvey, NotesBlanksThatMakeColumns) {
  const CellSurvey survey = Survey("a,x,b\n1 5,2\n3 6,4\n");
  ExpectPlace(survey.blanks, 2, 2, 0, "1 5,2");
  EXPECT_EQ(survey.columns, 3U);
  EXPECT_EQ(Survey("a b\n1 2\n", "space").blanks.count, 0);
  EXPECT_EQ(Survey("a b\n1 2\n", "none").blanks.count, 0);
}

TEST(CellSurvey, NamesTheFirstApostrophe) {
  const CellSurvey survey = Survey("a,b\n1,2\n3,it's\n");
  ASSERT_TRUE(survey.first_apostrophe.has_value());
  EXPECT_EQ(survey.first_apostrophe->line, 3);
  EXPECT_EQ(survey.first_apostrophe->value, "it's");
}

TEST(CellSurvey, RefusesRecordsOfDifferentLengths) {
  EXPECT_EQ(RefusalOf("a,b\n1,2\n\n3,4,5\n"),
            "line 4 has 3 fields, but the first record, on line 2, has 2");
  EXPECT_EQ(RefusalOf("a,b\n1,2\n3,dark red\n"),
            "line 3 has 3 fields, but the first record, on line 2, has 2; the blank in \"dark "
            "red\" counts as a separator too");
  EXPECT_EQ(RefusalOf("a,b\n1,2\n3 , 4\n"), "taken");
  EXPECT_EQ(RefusalOf("a,b\n1,2\n3,\n"),
            "line 3 has 1 field, but the first record, on line 2, has 2; an empty field at the "
            "beginning or the end of a line is not seen: write NA there");
}

TEST(CellSurvey, RefusesATextWithoutRecords) {
  EXPECT_EQ(RefusalOf("a,b\n\n"),
            "there are no records: 2 lines, 1 of them the label line and 1 empty (--no-labels "
            "takes the first line for a record)");
  EXPECT_EQ(RefusalOf("a,b\r1,2\r"),
            "there are no records: 1 lines, 1 of them the label line and 0 empty; a carriage "
            "return alone does not end a line");
}

TEST(CellSurvey, RefusesMoreColumnsThanATableHolds) {
  std::string labels = "a0";
  std::string record = "0";
  for (std::size_t column = 1; column < kMostColumns; ++column) {
    labels += ",a" + std::to_string(column);
    record += ",1";
  }
  EXPECT_EQ(Survey(labels + "\n" + record).columns, 1999U);
  EXPECT_EQ(RefusalOf(labels + ",b\n" + record + ",1"),
            "line 2 has 2000 columns; a run holds 1999 at most");
}

TEST(CellSurvey, RefusesLabelsThatDoNotFit) {
  EXPECT_EQ(RefusalOf("a,b\n1,2,3\n"),
            "the label line has 2 labels, but the records have 3 columns: \"a,b\"");
}

TEST(CellSurvey, SpeaksOfTransposedLines) {
  const DelimitedText text{"a,b\n1,2\n3", FindSeparator("comma"), true, true, {}};
  try {
    SurveyCells(text, false);
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_STREQ(failure.what(),
                 "transposed line 3 has 1 field, but the first record, on line 2, has 2");
  }
}

}  // namespace
}  // namespace tslm5::host
