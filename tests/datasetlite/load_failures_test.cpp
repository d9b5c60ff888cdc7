// Files that cannot be loaded: each ends in an error, the earlier set is whole, and the next load
// goes as if nothing had happened.
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string_view>

#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

using std::string_view_literals::operator""sv;
using testing::HasSubstr;

struct BadFile {
  const char* name;
  std::string bytes;
  ParseOptions options;
  std::int32_t number;
  const char* words;  // part of the description
};

void PrintTo(const BadFile& file, std::ostream* out) {
  *out << file.name;
}

std::string Repeated(std::string_view text, std::size_t times) {
  std::string repeated;
  for (std::size_t i = 0; i < times; ++i) repeated += text;
  return repeated;
}

std::vector<BadFile> BadFiles() {
  constexpr std::int32_t kSpace = separator_code::kSpace;
  constexpr std::int32_t kNone = separator_code::kNone;
  return {
      {"NoBytes", "", {}, 41011, "is empty."},
      {"AMarkAlone", "\xEF\xBB\xBF", {}, 41011, "is empty."},
      {"OnlyEmptyLines", "\n\n \n\r\n", {}, 41011, "holds no records."},
      {"OnlySeparators", ",,\n,,\n", {}, 41011, "holds no records."},
      {"OnlyLabels", "a,b\n", {.has_labels = true}, 41011, "holds no records."},
      {"OnlyLabelsWithoutALineFeed", "a,b", {.has_labels = true}, 41011, "holds no records."},
      {"LoneCarriageReturns",
       "a,b\r1,2\r3,4\r",
       {.has_labels = true},
       41011,
       "end at carriage returns alone. Save it with line feeds."},
      {"AShortRow",
       "\n1,2,3\n \n4,5\n",
       {},
       41011,
       "Line 4 has 2 fields, but the first record, on line 2, has 3; an empty value counts as a "
       "field. Correct or remove the line."},
      {"ALongRow",
       "a,b\n1,2\n3,4,5\n",
       {.has_labels = true},
       41011,
       "Line 3 has 3 fields, but the first record, on line 2, has 2;"},
      {"ADoubledSeparator", "1;2\n3;;4\n", {.separator = 3}, 41011, "Line 2 has 3 fields"},
      {"ARunOfBlanksInAField",
       "a,b\n1,2\n4  5\n",
       {.has_labels = true},
       41011,
       "Line 3 has 3 fields"},
      {"ABlankThatMakesUpForAnEmptyValue",
       "1,2 3,,4\n5,6 7,,8\n",
       {},
       41011,
       "Line 1 has an empty value between two separators and a blank inside another value"},
      {"AnUnevenRecordInColumns",
       "1,2,3\n4,5\n",
       {.layout = 2},
       41011,
       "Record 3 has 1 field, but the first record has 2;"},
      {"ANumberBeyondADouble", "1e400,2\n3,4\n", {}, 41011, "Row 1, column 1 holds a number too"},
      {"AShortRowAtTheEnd",
       Repeated("1 2 3\n", 500) + "1 2\n",
       {.separator = kSpace},
       41011,
       "Line 501 has 2 fields"},
      {"AnEmptyValueAtTheStart", "1,2\n,4\n", {}, 41011, "Line 2 has 1 field,"},
      {"AnEmptyValueAtTheEnd", "1,2\n3,\n", {}, 41011, "Line 2 has 1 field,"},
      {"ManyColumns",
       Repeated("1,", 2499) + "1\n",
       {},
       41011,
       "too many columns on TrainingSet: 2500"},
      {"ALongLine", Repeated("12345 ", 400'000), {.separator = kSpace}, 41011, "too many columns"},
      {"ANulCharacter", std::string("1,2\n3,\0\n"sv), {}, 41011, "NUL character"},
      {"ANulCharacterInALabel",
       std::string("a\0b,c\n1,2\n"sv),
       {.has_labels = true},
       41011,
       "NUL character"},
      {"Utf16WithoutAMark", std::string("1\0,\0002\0\n\0"sv), {}, 41011, "NUL character"},
      {"AnApostrophe", "1,2\n3,it's\n", {}, 41011, "Row 2, column 2 holds an apostrophe"},
      {"AStatementInAField", "1,2\n1');DROP,3\n", {}, 41011, "Row 2, column 1 holds an apostrophe"},
      {"RaggedRecordsInColumns", "1,2\n3,4,5\n", {.layout = 2}, 9, "Line 2 has more fields"},
      {"RecordsInColumnsWithoutASeparator",
       "1\n2\n",
       {.separator = kNone, .layout = 2},
       41001,
       "transposed"},
      {"AnUnknownSeparator", "1,2\n", {.separator = 7}, 41012, ""},
      {"ATypeWithoutATable", "1,2\n", {.type = 4}, 41001, "type 4"},
  };
}

class DataSetLiteBadFile : public DataSetLiteTest, public testing::WithParamInterface<BadFile> {
 protected:
  /// Expects that the file is refused as it should be.
  void ExpectRefusal(const LiteSet& set) const {
    const Error error = Raised([&] { ParseFile(set, path_, GetParam().options); });
    EXPECT_EQ(error.Number(), GetParam().number);
    EXPECT_THAT(error.Description(), HasSubstr(GetParam().words));
    EXPECT_FALSE(run_.InTransaction());
  }

  void ExpectUsable(const LiteSet& set) const {
    ParseFile(set, folder_.Write("good.csv", "p|q\n7|8\n9|10\n"),
              {.separator = separator_code::kBar, .has_labels = true, .type = 2});
    EXPECT_EQ(set.Records(), (Lines{"7,8", "9,10"}));
    EXPECT_EQ(set.Labels(), (Lines{"p", "q"}));
    EXPECT_EQ(set->Name(), "Testing");
    EXPECT_TRUE(set->IsReady());
  }

  /// How often the listener was told of the end, and that the last event was that.
  static void ExpectOneEnd(const Lines& lines, const std::string& words) {
    ASSERT_FALSE(lines.empty());
    EXPECT_THAT(lines.back(), testing::StartsWith("AfterDataLoad"));
    EXPECT_THAT(lines.back(), testing::EndsWith(words));
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                            [](const std::string& line) { return line.starts_with("After"); }),
              1);
  }

  std::string path_ = File(GetParam().bytes);
};

INSTANTIATE_TEST_SUITE_P(Files, DataSetLiteBadFile, testing::ValuesIn(BadFiles()),
                         [](const testing::TestParamInfo<BadFile>& tested) {
                           return tested.param.name;
                         });

TEST_P(DataSetLiteBadFile, KeepsTheEarlierSet) {
  ParseFile(set_, folder_.Write("earlier.csv", "a;b;c\n1;2;3\n4;5;6\n"),
            {.separator = separator_code::kSemicolon, .has_labels = true});
  set_.SetDirty(false);
  const Lines before = set_.Everything();
  const Lines schema = run_.Schema();
  const Ref<RecordingEvents> events = set_.Listen();
  ExpectRefusal(set_);
  ExpectOneEnd(events->lines, ": Data load failed.");
  EXPECT_THAT(events->lines.back(), HasSubstr("AfterDataLoad 2 x "));
  EXPECT_EQ(set_.Everything(), before);
  EXPECT_EQ(run_.Schema(), schema);
  EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"1|2|3|1", "4|5|6|2"}));
  ExpectUsable(set_);
}

TEST_P(DataSetLiteBadFile, LeavesANewSetNew) {
  const Lines before = set_.Everything();
  const Lines schema = run_.Schema();
  const Ref<RecordingEvents> events = set_.Listen();
  ExpectRefusal(set_);
  ExpectOneEnd(events->lines, ": Data load failed.");
  EXPECT_EQ(set_.Everything(), before);
  EXPECT_EQ(run_.Schema(), schema);
  ExpectUsable(set_);
}

/// A replacement knows neither another layout nor another type.
class DataSetLiteBadReplacement : public DataSetLiteBadFile {};

std::vector<BadFile> BadReplacements() {
  std::vector<BadFile> files = BadFiles();
  std::erase_if(files, [](const BadFile& file) {
    return file.options.layout != layout_code::kRecordsInRows || file.options.type != 1;
  });
  return files;
}

INSTANTIATE_TEST_SUITE_P(Files, DataSetLiteBadReplacement, testing::ValuesIn(BadReplacements()),
                         [](const testing::TestParamInfo<BadFile>& tested) {
                           return tested.param.name;
                         });

TEST_P(DataSetLiteBadReplacement, KeepsTheEarlierSet) {
  ParseFile(set_, folder_.Write("earlier.csv", "1,2\n3,4\n"));
  const Lines before = set_.Everything();
  const Ref<RecordingEvents> events = set_.Listen();
  const Error error = Raised(
      [&] { set_->Replace(path_, GetParam().options.separator, GetParam().options.has_labels); });
  EXPECT_EQ(error.Number(), GetParam().number);
  EXPECT_THAT(error.Description(), HasSubstr(GetParam().words));
  EXPECT_THAT(error.Source(), testing::AnyOf("", "Replace", "ParseArray"));
  ExpectOneEnd(events->lines, ": Data changing failed.");
  EXPECT_EQ(set_.Everything(), before);
  ExpectUsable(set_);
}

}  // namespace
}  // namespace tslm5
