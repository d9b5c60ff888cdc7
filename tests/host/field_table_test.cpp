#include "host/preparation/field_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/preparation/load_files.h"
#include "host/program/failure.h"
#include "tests/host/table_of.h"

namespace tslm5::host {
namespace {

std::string RefusalOf(const char* text) {
  try {
    TableOf(text, ',', true);
  } catch (const Failure& failure) {
    return failure.what();
  }
  return "taken";
}

TEST(FieldTable, SplitsAtTheSeparatorAlone) {
  const FieldTable table = TableOf("a b,c\nNew York , x;y\t\n,2\r\n", ',', true);
  ASSERT_EQ(table.Records(), 2U);
  EXPECT_EQ(table.labels, (std::vector<std::string>{"a b", "c"}));
  EXPECT_EQ(table.Field(0, 0), "New York");
  EXPECT_EQ(table.Field(0, 1), "x;y");
  EXPECT_EQ(table.Field(1, 0), "");
  EXPECT_EQ(table.Field(1, 1), "2");
}

TEST(FieldTable, KnowsTheLinesOfItsRecords) {
  const FieldTable table = TableOf("a,b\n1,2\n\n3,4\n\n", ',', true);
  EXPECT_EQ(table.places, (std::vector<std::int64_t>{2, 4}));
  EXPECT_EQ(table.lines, 5);
  EXPECT_EQ(table.empty_lines, 2);
  EXPECT_EQ(table.PlaceOf(1, 1), "line 4, column 2 (b)");
}

TEST(FieldTable, OutlivesTheFileAndItsReader) {
  std::string text;
  for (int i = 0; i < 30'000; ++i) text += std::to_string(i) + ",word" + std::to_string(i) + "\n";
  const FieldTable table = TableOf(text, ',', false);
  ASSERT_EQ(table.Records(), 30'000U);
  EXPECT_EQ(table.Field(0, 1), "word0");
  EXPECT_EQ(table.Field(29'999, 1), "word29999");
}

TEST(FieldTable, NamesColumnsWithoutLabels) {
  const FieldTable table = TableOf("1,2\n", ',', false);
  EXPECT_TRUE(table.labels.empty());
  EXPECT_EQ(table.LabelOf(1), "d1");
}

TEST(FieldTable, MovesAColumnToTheEnd) {
  FieldTable table = TableOf("a,b,c\n1,2,3\n4,5,6\n", ',', true);
  MoveToEnd(table, 1);
  EXPECT_EQ(table.labels, (std::vector<std::string>{"a", "c", "b"}));
  EXPECT_EQ(table.Field(1, 0), "4");
  EXPECT_EQ(table.Field(1, 1), "6");
  EXPECT_EQ(table.Field(1, 2), "5");
  EXPECT_EQ(table.PlaceOf(0, 2), "line 2, column 2 (b)");
  MoveToEnd(table, 2);
  EXPECT_EQ(table.Field(0, 2), "2");
}

TEST(FieldTable, IsTurnedWithItsFirstFieldsAsLabels) {
  const FieldTable lines = TableOf("a,1,2\nb,x,4\n", ',', false);
  const FieldTable table = Turned(lines, true);
  EXPECT_EQ(table.labels, (std::vector<std::string>{"a", "b"}));
  ASSERT_EQ(table.Records(), 2U);
  EXPECT_EQ(table.Field(0, 1), "x");
  EXPECT_EQ(table.Field(1, 0), "2");
  EXPECT_EQ(table.PlaceOf(0, 1), "transposed line 2, column 2 (b)");
  EXPECT_EQ(Turned(lines, false).Records(), 3U);
}

TEST(FieldTable, RefusesRecordsOfDifferentLengths) {
  EXPECT_EQ(RefusalOf("a,b\nx y,2\n1,2,3\n"),
            "line 3 has 3 fields, but the first record, on line 2, has 2");
}

}  // namespace
}  // namespace tslm5::host
