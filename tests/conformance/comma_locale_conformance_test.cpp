// Every main operation for a user who writes decimals with a comma: texts are read and shown in
// that form, and numbers are the same as everywhere.
#include "conformance/set_under_test.h"
#include "inmemory/memory_set.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::EndsWith;

constexpr std::string_view kText = "1,5;0,25\n-2;1e2\n,75;+3,125E1\n";

class CommaLocale : public ConformanceTest {
 protected:
  void ParseCommas(std::string_view text = kText, bool has_labels = false) const {
    Parse(text, has_labels, separator_code::kSemicolon);
  }

  bool IsValid(std::string_view text) {
    std::int32_t separator = separator_code::kSemicolon;
    return set_->IsValidDataSet(folder_.Write("check.csv", text), false, separator, message_);
  }

  void ExpectTheNumbers() const {
    ASSERT_EQ(set_->Rows(), 3);
    ASSERT_EQ(set_->Columns(), 2);
    EXPECT_EQ(set_->GetItem(0, 0), 1.5);
    EXPECT_EQ(set_->GetItem(1, 0), .25);
    EXPECT_EQ(set_->GetItem(1, 1), 100);
    EXPECT_EQ(set_->GetItem(0, 2), .75);
    EXPECT_EQ(set_->GetItem(1, 2), 31.25);
  }

  const ScopedLocale german_{"de_DE.UTF-8"};
  std::string message_;
};
TSLM5_CONFORMANCE_SUITE(CommaLocale);

TEST_P(CommaLocale, IsTheOneOfTheDataCheck) {
  EXPECT_TRUE(IsValid(kText)) << message_;
  EXPECT_FALSE(IsValid("1,5;2\n1.5;3\n"));
  EXPECT_THAT(message_, EndsWith("Value in row 2, column 1. is invalid: 1.5"));
}

TEST_P(CommaLocale, IsReadFromAFile) {
  ParseCommas();
  ExpectTheNumbers();
}

TEST_P(CommaLocale, IsReadFromTheFileThatReplacesTheRows) {
  ParseCommas("9;9\n");
  if (Means().parses_strings) return;  // a set in memory replaces no rows
  set_->Replace(folder_.Write("other.csv", kText), separator_code::kSemicolon, false);
  ExpectTheNumbers();
}

TEST_P(CommaLocale, TellsALabelFromANumber) {
  ParseCommas("height;1,5a\n1,5;2,5\n", true);
  EXPECT_THAT(Labels(), ElementsAre("height", "1,5a"));
  EXPECT_THAT(Records(), ElementsAre("1,5,2,5"));
}

TEST_P(CommaLocale, IsThatOfCellsShown) {
  ParseCommas();
  EXPECT_THAT(Records(), ElementsAre("1,5,0,25", "-2,100", "0,75,31,25"));
}

TEST_P(CommaLocale, IsReadFromATextInMemory) {
  if (!Means().parses_strings) return;
  std::string text(kText);
  set_->ParseString(text, separator_code::kSemicolon, false, data_set_type::kTraining,
                    layout_code::kRecordsInRows, nullptr);
  ExpectTheNumbers();
}

TEST_P(CommaLocale, IsNotThatOfTheStatementsThatStoreASet) {
  if (Means().parses_strings) return;  // a set in memory takes a series alone
  const MemorySet source;
  source.Parse(kText, {.separator = separator_code::kSemicolon});
  ASSERT_TRUE(set_->SetData(source.Object().get(), data_set_type::kTraining));
  ExpectTheNumbers();
}

TEST_P(CommaLocale, ChangesNoFigure) {
  ParseCommas();
  EXPECT_EQ(set_->GetMin(0, 0, 1), -2);
  EXPECT_EQ(set_->GetMax(1, 0, 2), 100);
  if (!Means().has_target_figures) return;
  set_->CalculateStatistics(nullptr);
  EXPECT_EQ(set_->GetGlobalMedoid(0), .75);
  EXPECT_EQ(set_->GetGlobalCentroid(1), 43.833333333333336);
  EXPECT_EQ(set_->GetMin(0, 0, 0), -2);
  EXPECT_EQ(set_->GetTargetMajorityClass(), 100);
}

TEST_P(CommaLocale, ChangesNoEmbeddedSeries) {
  Parse("1,5\n2,5\n3,5\n4,5\n", false, separator_code::kNone);
  set_->SetProperty("2", "EmbeddingDimension");
  set_->SetProperty("1", "DelayTime");
  ASSERT_TRUE(set_->FormatDataAs(0));
  ASSERT_EQ(set_->Rows(), 2);
  EXPECT_EQ(set_->GetItem(0, 0), 1.5);
  EXPECT_EQ(set_->GetItem(2, 1), 4.5);
}

}  // namespace
}  // namespace tslm5
