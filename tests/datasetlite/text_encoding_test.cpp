// Files in other encodings than plain ASCII.
#include <gtest/gtest.h>

#include <ostream>
#include <string_view>

#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

using std::string_view_literals::operator""sv;

struct EncodedFile {
  const char* name;
  std::string_view bytes;
};

void PrintTo(const EncodedFile& file, std::ostream* out) {
  *out << file.name;
}

class DataSetLiteEncoding : public DataSetLiteTest,
                            public testing::WithParamInterface<EncodedFile> {};

TEST_P(DataSetLiteEncoding, GivesTheSameSet) {
  Parse(GetParam().bytes, {.has_labels = true});
  EXPECT_TRUE(set_->HasLabels());
  EXPECT_EQ(set_.Labels(), (Lines{"é", "b"}));
  EXPECT_EQ(set_.Records(), (Lines{"1,2"}));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, DataSetLiteEncoding,
    testing::Values(EncodedFile{"Utf8", "\xC3\xA9,b\n1,2\n"sv},
                    EncodedFile{"Utf8WithItsMark", "\xEF\xBB\xBF\xC3\xA9,b\n1,2\n"sv},
                    EncodedFile{"Windows1252", "\xE9,b\n1,2\n"sv},
                    EncodedFile{"Utf16LittleEndian",
                                "\xFF\xFE\xE9\0,\0b\0\n\0"
                                "1\0,\0"
                                "2\0\n\0"sv},
                    EncodedFile{"Utf16BigEndian",
                                "\xFE\xFF\0\xE9\0,\0b\0\n\0"
                                "1\0,\0"
                                "2\0\n"sv}),
    [](const testing::TestParamInfo<EncodedFile>& tested) { return tested.param.name; });

using DataSetLiteOddText = DataSetLiteTest;

TEST_F(DataSetLiteOddText, InACellIsAMissingNumber) {
  Parse("1,\xE9\n2,word\n");
  EXPECT_EQ(set_.Records(), (Lines{"1,", "2,"}));
  EXPECT_EQ(run_.Select("SELECT d1 FROM TrainingSet"), (Lines{"é", "word"}));
}

TEST_F(DataSetLiteOddText, TakesALoneCarriageReturnForAPartOfIt) {
  Parse("1,2\r3,4\r\n5,6,7\n");
  EXPECT_EQ(set_.Records(), (Lines{"1,,4", "5,6,7"})) << "no line ends there";
}

}  // namespace
}  // namespace tslm5
