// The small forms of the host's output: CSV fields, JSON numbers, label lists, the progress bar.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "host/answers/record_output.h"
#include "host/preparation/label_list.h"
#include "host/preparation/user_locale.h"
#include "host/program/failure.h"
#include "host/program/json_text.h"
#include "host/program/progress.h"

namespace tslm5::host {
namespace {

TEST(CsvField, IsQuotedWhenItMust) {
  EXPECT_EQ(CsvField("plain label"), "plain label");
  EXPECT_EQ(CsvField("a,b"), "\"a,b\"");
  EXPECT_EQ(CsvField("say \"no\""), "\"say \"\"no\"\"\"");
  EXPECT_EQ(CsvField("a\rb"), "\"a\rb\"");
  EXPECT_EQ(CsvField(""), "");
}

TEST(JsonNumber, IsNullWhenMissing) {
  std::string text;
  AppendJsonNumber(text, std::nan(""));
  AppendJsonNumber(text += ' ', 0.1);
  AppendJsonNumber(text += ' ', -std::numeric_limits<double>::infinity());
  EXPECT_EQ(text, "null 0.1 -1e999");
}

TEST(LabelList, IsCutAfterADozen) {
  EXPECT_EQ(LabelList({"a", "b\n"}), "a, b\\n");
  const std::vector<std::string> many(14, "x");
  EXPECT_EQ(LabelList(many), "x, x, x, x, x, x, x, x, x, x, x, x and 2 more");
}

TEST(ChooseColumns, FindsLabelsAndGeneratedNames) {
  const std::vector<std::string> labels = {"age", "d0", "a,b", "sex"};
  EXPECT_EQ(ChooseColumns({}, labels), (std::vector<std::int32_t>{0, 1, 2, 3}));
  EXPECT_EQ(ChooseColumns({"sex, age"}, labels), (std::vector<std::int32_t>{3, 0}));
  EXPECT_EQ(ChooseColumns({"d3,d0"}, labels), (std::vector<std::int32_t>{3, 1}));  // label first
  EXPECT_EQ(ChooseColumns({"a,b", "age,age"}, labels), (std::vector<std::int32_t>{2, 0, 0}));
}

TEST(ChooseColumns, TellsTheLabelsThereAre) {
  try {
    ChooseColumns({"age,height"}, {"age", "sex"});
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Code(), ExitCode::kUsage);
    EXPECT_STREQ(failure.what(),
                 "--columns: there is no column \"height\"; the labels are age, sex");
  }
  EXPECT_THROW(ChooseColumns({"age,"}, {"age"}), Failure);
  EXPECT_THROW(ChooseColumns({"d2"}, {"age", "sex"}), Failure);
  EXPECT_THROW(ChooseColumns({"AGE"}, {"age"}), Failure);
}

TEST(Progress, DrawsALineOfFixedWidth) {
  EXPECT_EQ(Progress::Line("Loading", 0, 10, false),
            "Loading [..............................]   0 %");
  EXPECT_EQ(Progress::Line("Loading", 5, 10, false),
            "Loading [###############...............]  50 %");
  EXPECT_EQ(Progress::Line("Loading", 11, 10, false),
            "Loading [##############################] 100 %");
  EXPECT_EQ(Progress::Line("L", 0, 10, true),
            "L [\033[32m\033[0m..............................]   0 %");
}

TEST(UserLocale, KnowsTheDecimalComma) {
  for (const char* name : {"de_DE.UTF-8", "de_DE@euro", "fr_FR", "da_DK.ISO-8859-1", "pt"}) {
    EXPECT_TRUE(HasDecimalComma(name)) << name;
  }
  for (const char* name : {"", "C", "C.UTF-8", "POSIX", "en_US.UTF-8", "en_GB", "de_CH", "xx_YY",
                           "ja_JP", "rubbish"}) {
    EXPECT_FALSE(HasDecimalComma(name)) << name;
  }
}

}  // namespace
}  // namespace tslm5::host
