// `IDataSet::Parse`: what becomes of a file's text. Its labels row is in label_row_test.cpp, its
// events in load_events_test.cpp, its failures in load_failures_test.cpp.
#include <gtest/gtest.h>

#include <utility>

#include "datasetlite/lite_set.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

using DataSetLiteParse = DataSetLiteTest;

TEST_F(DataSetLiteParse, TakesEverySeparator) {
  for (const std::int32_t code : {0, 1, 2, 3, 4}) {
    const std::string s = set_->SeparatorToString(code);
    Parse("1" + s + "2" + s + "3\n4" + s + "5" + s + "6\n", {.separator = code});
    EXPECT_EQ(set_.Records(), (Lines{"1,2,3", "4,5,6"})) << code;
    EXPECT_EQ(set_->GetProperty("Separator"), s) << code;
  }
}

TEST_F(DataSetLiteParse, TakesOneColumnWithoutASeparator) {
  Parse("1\n2\n", {.separator = separator_code::kNone});
  EXPECT_EQ(set_.Records(), (Lines{"1", "2"}));
  EXPECT_EQ(set_->GetProperty("Separator"), "");
}

TEST_F(DataSetLiteParse, MakesCleanRows) {
  constexpr std::int32_t kSpace = separator_code::kSpace;
  constexpr std::int32_t kComma = separator_code::kComma;
  struct {
    const char* name;
    const char* bytes;
    std::int32_t separator;
    Lines records;
  } const cases[] = {
      {"no line feed at the end", "1,2\n3,4", kComma, {"1,2", "3,4"}},
      {"empty lines at the end", "1,2\n3,4\n\n\n", kComma, {"1,2", "3,4"}},
      {"empty lines between", "1,2\n\n\n3,4\n", kComma, {"1,2", "3,4"}},
      {"empty lines before", "\n\n1,2\n3,4\n", kComma, {"1,2", "3,4"}},
      {"a line of separators", "1,2\n,\n3,4", kComma, {"1,2", "3,4"}},
      {"a line of one blank", "1\n \n2", separator_code::kNone, {"1", "2"}},
      {"runs of blanks", "1  2   3\n 4 5  6 \n", kSpace, {"1,2,3", "4,5,6"}},
      {"a blank at the first line's end", "1 2 3 \n4 5 6", kSpace, {"1,2,3", "4,5,6"}},
      {"a stray semicolon", "1;5,2\n3,4\n", kComma, {"15,2", "3,4"}},
      {"a stray tab", "1\t5,2\n3,4\n", kComma, {"15,2", "3,4"}},
      {"one record", "1,2,3", kComma, {"1,2,3"}},
      {"one cell", "7", kComma, {"7"}},
      {"blanks without a separator", "1 2\n3 4\n", separator_code::kNone, {"1,2", "3,4"}},
  };
  for (const auto& c : cases) {
    Parse(c.bytes, {.separator = c.separator});
    EXPECT_EQ(set_.Records(), c.records) << c.name;
  }
}

TEST_F(DataSetLiteParse, TakesCarriageReturnLineFeedAsALineFeed) {
  for (const std::int32_t separator : {0, 2, 3}) {
    for (const std::int32_t layout : {1, 2}) {
      const std::string s = set_->SeparatorToString(separator);
      const ParseOptions options = {.separator = separator, .has_labels = true, .layout = layout};
      Parse("a" + s + "b\n1" + s + "2\n\n3" + s + "4\n", options);
      const Lines with_feeds = set_.Everything();
      Parse("a" + s + "b\r\n1" + s + "2\r\n\r\n3" + s + "4\r\n", options);
      EXPECT_EQ(set_.Everything(), with_feeds) << separator << ' ' << layout;
    }
  }
}

TEST_F(DataSetLiteParse, KeepsThePlaceOfAnEmptyValueBetweenSeparators) {
  Parse("1,,3\n4,5,6\n");
  EXPECT_EQ(set_.Records(), (Lines{"1,,3", "4,5,6"}));
  EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"1|NULL|3|1", "4|5|6|2"}));
}

TEST_F(DataSetLiteParse, StoresMissingTokensAsNothing) {
  Parse("1,?\nNA,2\n.,.A\n");
  EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"1|NULL|1", "NULL|2|2", "NULL|NULL|3"}));
}

TEST_F(DataSetLiteParse, TransposesRecordsInColumns) {
  Parse("1,2,3\n4,5,6\n", {.layout = layout_code::kRecordsInColumns});
  EXPECT_EQ(set_.Records(), (Lines{"1,4", "2,5", "3,6"}));
}

TEST_F(DataSetLiteParse, TransposesBeforeTheLabelsAreTakenOff) {
  Parse("a,1,2\nb,3,4", {.has_labels = true, .layout = layout_code::kRecordsInColumns});
  EXPECT_EQ(set_.Records(), (Lines{"1,3", "2,4"}));
  EXPECT_FALSE(set_->HasLabels()) << "the first line is no labels row";
}

TEST_F(DataSetLiteParse, LeavesTheTextAloneInAnyOtherLayout) {
  for (const std::int32_t layout : {0, 1, 3, 99, -1}) {
    Parse("1,2,3\n4,5,6\n", {.layout = layout});
    EXPECT_EQ(set_.Records(), (Lines{"1,2,3", "4,5,6"})) << layout;
  }
}

TEST_F(DataSetLiteParse, FillsTheTableOfItsType) {
  const std::pair<std::int32_t, const char*> tables[] = {{1, "TrainingSet"},
                                                         {2, "TestingSet"},
                                                         {3, "TimeSeriesTrainingSet"},
                                                         {5, "TimeSeriesTestingSet"}};
  for (const auto& [type, table] : tables) {
    Parse("1,2\n" + std::to_string(type) + ",4\n", {.type = type});
    EXPECT_EQ(set_->DataSetType(), type);
    EXPECT_EQ(run_.Select("SELECT d0 FROM " + std::string(table)),
              (Lines{"1", std::to_string(type)}));
    EXPECT_EQ(run_.ColumnNames(std::string(table) + "Backup"), "d0,d1,row");
  }
  EXPECT_EQ(run_.TableRows("TrainingSet").size(), 2U) << "another type leaves it";
}

TEST_F(DataSetLiteParse, PutsTheNewRecordsInPlaceOfTheOld) {
  Parse("1,2,3\n4,5,6\n");
  Parse("7,8\n");
  EXPECT_EQ(set_.Records(), (Lines{"7,8"}));
  EXPECT_EQ(set_->Columns(), 2);
  EXPECT_EQ(set_->TerminalCount(), 1);
}

TEST_F(DataSetLiteParse, NumbersTheRowsFromOne) {
  for (int i = 0; i < 2; ++i) {
    Parse("5,6\n7,8\n9,10\n");
    EXPECT_EQ(set_->GetRowOriginalIndex(0), 1);
    EXPECT_EQ(set_->GetRowOriginalIndex(2), 3);
  }
}

TEST_F(DataSetLiteParse, MakesTheSetReadyAndDirty) {
  Parse("1,2\n");
  EXPECT_TRUE(set_->IsReady());
  EXPECT_TRUE(set_.IsDirty());
}

TEST_F(DataSetLiteParse, KeepsTheOtherProperties) {
  set_->SetProperty("5", "DelayTime");
  Parse("1,2\n");
  EXPECT_EQ(set_->GetProperty("DelayTime"), "5");
}

TEST_F(DataSetLiteParse, OfAnEmptyNameClearsTheLabelsFlagAlone) {
  Parse("a,b\n1,2\n", {.has_labels = true});
  EXPECT_EQ(RaisedNumber([&] { ParseFile(set_, "", {.separator = 0, .type = 2}); }), 41001);
  EXPECT_FALSE(set_->HasLabels());
  EXPECT_EQ(set_->DataSetType(), 1);
  EXPECT_EQ(set_->GetProperty("Separator"), ",");
  EXPECT_EQ(set_.Records(), (Lines{"1,2"}));
  EXPECT_TRUE(set_->IsReady());
}

TEST_F(DataSetLiteParse, StoresEachNumberToTheLastBit) {
  Parse("0.1,0.30000000000000004,1e300\n-2.2250738585072014e-308,0.3333333333333333,5e-324\n");
  const double expected[2][3] = {{0.1, 0.30000000000000004, 1e300},
                                 {-2.2250738585072014e-308, 0.3333333333333333, 5e-324}};
  for (std::int32_t row = 0; row < 2; ++row) {
    for (std::int32_t column = 0; column < 3; ++column) {
      EXPECT_EQ(set_->GetItem(column, row), expected[row][column]) << column << ' ' << row;
    }
  }
}

TEST_F(DataSetLiteParse, ReadsTheUsersDecimalComma) {
  const ScopedLocale german("de_DE");
  Parse("1,5 2\n-0,25 3\n", {.separator = separator_code::kSpace});
  EXPECT_EQ(set_->GetItem(0, 0), 1.5);
  EXPECT_EQ(set_->GetItem(0, 1), -0.25);
  EXPECT_EQ(set_.Records(), (Lines{"1,5,2", "-0,25,3"}));
  Parse("1,5|2\n", {.separator = separator_code::kBar});
  EXPECT_EQ(set_->GetItem(0, 0), 1.5);
}

TEST_F(DataSetLiteParse, TakesAStatementInAFieldForAValueThatNoTableTakes) {
  const Error error = Raised([&] {
    Parse("1');DROP/**/TABLE/**/TrainingSet;--|2\n", {.separator = separator_code::kBar});
  });
  EXPECT_EQ(error.Number(), 41011);
  EXPECT_EQ(error.Description(),
            "Row 1, column 1 holds an apostrophe, which a data table does not take.");
}

}  // namespace
}  // namespace tslm5
