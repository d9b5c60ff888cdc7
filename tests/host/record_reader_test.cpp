#include "host/preparation/record_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tslm5::host {
namespace {

DelimitedText Text(std::string_view text, const char* separator, bool has_label_line) {
  DelimitedText delimited;
  delimited.text = text;
  delimited.separator = FindSeparator(separator);
  delimited.has_label_line = has_label_line;
  return delimited;
}

TEST(RecordReader, CleansALineAsTheLoaderDoes) {
  struct Case {
    const char* separator;
    std::string line;
    std::string clean;
    bool is_changed;
  };
  const Case cases[] = {
      {"comma", "1,2,3", "1 2 3", false},  {"comma", "1,,3", "1  3", false},
      {"comma", "1, 2", "1 2", false},     {"comma", "1 ,  2", "1 2", false},
      {"comma", "1 2, 3", "1 2 3", false}, {"comma", "1,\t 2", "1  2", true},
      {"comma", ",1,2,", "1 2", false},    {"comma", "1;5,2", "15 2", true},
      {"comma", "1\t,2", "1 2", true},     {"semicolon", "1;2;3", "1 2 3", false},
      {"semicolon", "1\t;2", "1 2", true}, {"tab", "1\t2\t3", "1 2 3", false},
      {"tab", "1;\t2", "1 2", true},       {"space", "  1   2 ", "1 2", false},
      {"space", "1 \t 2", "1  2", true},   {"bar", "1|2 3", "1 2 3", false},
      {"none", "1 2,3", "1 2,3", false},   {"none", "1;2", "12", true},
      {"comma", "1,2\r", "1 2\r", false},
  };
  for (const Case& one : cases) {
    const DelimitedText text = Text(one.line, one.separator, false);
    RecordReader reader(text);
    ASSERT_TRUE(reader.Next()) << one.line;
    EXPECT_EQ(reader.Clean(), one.clean) << one.separator << ": " << one.line;
    EXPECT_EQ(reader.IsChanged(), one.is_changed) << one.separator << ": " << one.line;
    EXPECT_EQ(reader.Raw(), one.line);
    EXPECT_FALSE(reader.Next());
  }
}

TEST(RecordReader, CountsEveryLineOnce) {
  const DelimitedText text = Text("\n1,2\n\n , \n\t;\n3,4\n\n", "comma", true);
  RecordReader reader(text);
  std::vector<std::int64_t> numbers;
  while (reader.Next()) numbers.push_back(reader.LineNumber());
  EXPECT_EQ(numbers, (std::vector<std::int64_t>{2, 6}));
  EXPECT_EQ(reader.Lines(), 7);
  EXPECT_EQ(reader.LabelLines(), 1);
  EXPECT_EQ(reader.EmptyLines(), 4);
}

TEST(RecordReader, ALabelLineAloneLeavesNoRecord) {
  const DelimitedText text = Text("a,b", "comma", true);
  RecordReader reader(text);
  EXPECT_FALSE(reader.Next());
  EXPECT_EQ(reader.Lines(), 1);
  EXPECT_EQ(reader.LabelLines(), 1);
}

TEST(RecordReader, CountsSeparators) {
  const DelimitedText text = Text("1,,2 3\n 4  5 6", "comma", false);
  RecordReader reader(text);
  reader.Next();
  EXPECT_EQ(reader.SeparatorCount(), 2U);
  const DelimitedText blanks = Text(" 4  5 6 ", "space", false);
  RecordReader second(blanks);
  second.Next();
  EXPECT_EQ(second.SeparatorCount(), 2U);
}

TEST(RecordReader, CountsLabels) {
  const Separator& comma = *FindSeparator("comma");
  EXPECT_EQ(CountLabels("a,b,c", comma, 3), 3U);
  EXPECT_EQ(CountLabels("a, b,c", comma, 3), 3U);
  EXPECT_EQ(CountLabels("Blood Pressure,Age", comma, 2), 2U);
  EXPECT_EQ(CountLabels("Blood Pressure,Age", comma, 3), 3U);
  EXPECT_EQ(CountLabels("a,,c", comma, 3), 3U);
  EXPECT_EQ(CountLabels("a,b", comma, 3), 2U);
  EXPECT_EQ(CountLabels("", comma, 2), 0U);
  EXPECT_EQ(CountLabels("my label", *FindSeparator("none"), 1), 1U);
}

}  // namespace
}  // namespace tslm5::host
