#include "host/preparation/field_table.h"

#include <gtest/gtest.h>

#include "host/program/failure.h"

namespace tslm5::host {
namespace {

DelimitedText Text(const char* text, const char* separator = "comma", bool has_labels = true) {
  return {text, FindSeparator(separator), has_labels, false, {}};
}

std::string RefusalOf(const char* text) {
  try {
    ReadFields(Text(text), false);
  } catch (const Failure& failure) {
    return failure.what();
  }
  return "taken";
}

TEST(FieldTable, SplitsAtTheSeparatorAlone) {
  const DelimitedText text = Text("a b,c\nNew York , x;y\t\n,2\r\n");
  const FieldTable table = ReadFields(text, false);
  ASSERT_EQ(table.Records(), 2U);
  EXPECT_EQ(table.labels, (std::vector<std::string>{"a b", "c"}));
  EXPECT_EQ(table.Field(0, 0), "New York");
  EXPECT_EQ(table.Field(0, 1), "x;y");
  EXPECT_EQ(table.Field(1, 0), "");
  EXPECT_EQ(table.Field(1, 1), "2");
}

TEST(FieldTable, KnowsTheLinesOfItsRecords) {
  const DelimitedText text = Text("a,b\n1,2\n\n3,4\n\n");
  const FieldTable table = ReadFields(text, false);
  EXPECT_EQ(table.places, (std::vector<std::int64_t>{2, 4}));
  EXPECT_EQ(table.first_gap, 3);
  EXPECT_EQ(table.lines, 5);
  EXPECT_EQ(table.empty_lines, 2);
  EXPECT_EQ(table.PlaceOf(1, 1), "line 4, column 2 (b)");
}

TEST(FieldTable, KnowsTheFirstGapBehindManyRecords) {
  const DelimitedText text = Text("a,b\n1,2\n3,4\n5,6\n\n7,8\n\n9,10\n");
  EXPECT_EQ(ReadFields(text, false).first_gap, 5);
}

TEST(FieldTable, HasNoGapBeforeOrBehindItsRecords) {
  const DelimitedText text = Text("a,b\n\n1,2\n3,4\n\n");
  EXPECT_FALSE(ReadFields(text, false).first_gap.has_value());
}

TEST(FieldTable, HasNoLabelsWhereOneIsANumberOrTwoAreTheSame) {
  for (const char* line : {"a,5\n1,2\n", "Ä,ä\n1,2\n"}) {
    const DelimitedText text = Text(line);
    const FieldTable table = ReadFields(text, false);
    EXPECT_TRUE(table.labels.empty()) << line;
    EXPECT_EQ(table.LabelOf(1), "d1");
    EXPECT_EQ(table.Records(), 1U);
  }
}

TEST(FieldTable, MovesAColumnToTheEnd) {
  const DelimitedText text = Text("a,b,c\n1,2,3\n4,5,6\n");
  FieldTable table = ReadFields(text, false);
  MoveToEnd(table, 1);
  EXPECT_EQ(table.labels, (std::vector<std::string>{"a", "c", "b"}));
  EXPECT_EQ(table.Field(1, 0), "4");
  EXPECT_EQ(table.Field(1, 1), "6");
  EXPECT_EQ(table.Field(1, 2), "5");
  EXPECT_EQ(table.PlaceOf(0, 2), "line 2, column 2 (b)");
  MoveToEnd(table, 2);
  EXPECT_EQ(table.Field(0, 2), "2");
}

TEST(FieldTable, RefusesRecordsOfDifferentLengths) {
  EXPECT_EQ(RefusalOf("a,b\nx y,2\n1,2,3\n"),
            "line 3 has 3 fields, but the first record, on line 2, has 2");
  EXPECT_EQ(RefusalOf("a\nx,2\n"),
            "the label line has 1 labels, but the records have 2 columns: \"a\"");
}

}  // namespace
}  // namespace tslm5::host
