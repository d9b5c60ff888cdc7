// `IDataSet`: loading files, replacing and clearing.
#include "conformance/set_under_test.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

class LoadingConformance : public ConformanceTest {};
TSLM5_CONFORMANCE_SUITE(LoadingConformance);

TEST_P(LoadingConformance, MakesASetReadyAndDirty) {
  Parse("1,2\n3,4\n");
  EXPECT_TRUE(set_->IsReady());
  EXPECT_TRUE(As<IIsDirty>()->IsDirty());
  EXPECT_EQ(set_->Rows(), 2);
  EXPECT_EQ(set_->Columns(), 2);
  EXPECT_EQ(set_->TerminalCount(), 1);
}

TEST_P(LoadingConformance, KnowsEverySeparator) {
  const struct {
    std::int32_t code;
    const char* text;
    const char* property;
  } kCases[] = {{0, "1 2\n3 4", " "},
                {1, "1\t2\n3\t4", "\t"},
                {2, "1,2\n3,4", ","},
                {3, "1;2\n3;4", ";"},
                {4, "1|2\n3|4", "|"}};
  for (const auto& [code, text, property] : kCases) {
    Parse(text, false, code);
    EXPECT_THAT(Records(), ElementsAre("1,2", "3,4")) << code;
    EXPECT_EQ(set_->GetProperty("Separator"), property);
  }
  Parse("1\n2\n", false, separator_code::kNone);
  EXPECT_THAT(Records(), ElementsAre("1", "2"));
  EXPECT_EQ(set_->GetProperty("Separator"), "");
}

TEST_P(LoadingConformance, RefusesAnUnknownSeparator) {
  EXPECT_EQ(RaisedNumber([&] { Parse("1,2\n", false, 7); }), 41012);
  EXPECT_FALSE(set_->IsReady());
}

TEST_P(LoadingConformance, ReadsNumbersAsTheUserWritesThem) {
  const ScopedLocale german("de_DE");
  Parse("1,5;2\n-,25;1e2\n", false, separator_code::kSemicolon);
  EXPECT_EQ(set_->GetItem(0, 0), 1.5);
  EXPECT_EQ(set_->GetItem(0, 1), -.25);
  EXPECT_EQ(set_->GetItem(1, 1), 100);
}

TEST_P(LoadingConformance, RoundsEveryNumberCorrectly) {
  Parse("0.1,9007199254740993,1e-400\n1.7976931348623157e308,5e-324,+1e23\n");
  EXPECT_EQ(set_->GetItem(0, 0), .1);
  EXPECT_EQ(set_->GetItem(1, 0), 9007199254740992.0);
  EXPECT_EQ(set_->GetItem(2, 0), 0);
  EXPECT_EQ(set_->GetItem(0, 1), 1.7976931348623157e308);
  EXPECT_EQ(set_->GetItem(1, 1), 5e-324);
  EXPECT_EQ(set_->GetItem(2, 1), 1e23);
}

TEST_P(LoadingConformance, TakesTheLabelsOfTheFirstLine) {
  Parse("a,b,c\r\n1,2,3\r\n", true);
  EXPECT_TRUE(set_->HasLabels());
  EXPECT_THAT(Labels(), ElementsAre("a", "b", "c"));
  EXPECT_THAT(Records(), ElementsAre("1,2,3"));
}

TEST_P(LoadingConformance, DropsEmptyLines) {
  Parse("1,2\n\n3,4\n\n\n");
  EXPECT_THAT(Records(), ElementsAre("1,2", "3,4"));
}

TEST_P(LoadingConformance, TransposesLayout2Alone) {
  Parse("1,2,3\n4,5,6\n", false, separator_code::kComma, 1, layout_code::kRecordsInColumns);
  EXPECT_THAT(Records(), ElementsAre("1,4", "2,5", "3,6"));
  Parse("1,2,3\n", false, separator_code::kComma, 1, layout_code::kResponseFirst);
  EXPECT_THAT(Records(), ElementsAre("1,2,3"));
}

TEST_P(LoadingConformance, SetsTheType) {
  Parse("1,2\n", false, separator_code::kComma, data_set_type::kTesting);
  EXPECT_EQ(set_->DataSetType(), 2);
  EXPECT_EQ(set_->Name(), "Testing");
}

TEST_P(LoadingConformance, LeavesPropertiesAndTheProblemCategoryAlone) {
  set_->put_ProblemCategory(2);
  set_->SetProperty("5", "DelayTime");
  Parse("1,2\n");
  EXPECT_EQ(set_->ProblemCategory(), 2);
  EXPECT_EQ(set_->GetProperty("DelayTime"), "5");
}

TEST_P(LoadingConformance, RefusesAnEmptyOrMissingPath) {
  Parse("7,8\n");
  EXPECT_EQ(RaisedNumber([&] { set_->Parse("", 2, false, 1, 1); }), 41001);
  EXPECT_EQ(RaisedNumber([&] { set_->Parse(folder_.PathOf("none"), 2, false, 1, 1); }),
            Means().missing_file_error);
  EXPECT_THAT(Records(), ElementsAre("7,8"));
  EXPECT_TRUE(set_->IsReady());
}

TEST_P(LoadingConformance, NeverServesHalfALoad) {
  Parse("7,8\n");
  EXPECT_NE(RaisedNumber([&] { Parse("1,2\n3\n"); }), 0);
  EXPECT_TRUE(set_->IsReady());
  EXPECT_THAT(Records(), ElementsAre("7,8"));
}

TEST_P(LoadingConformance, ParsesATextWhereItLivesInMemory) {
  std::string text = "1,2\n3,4\n";
  set_->ParseString(text, 2, false, 1, 1, nullptr);
  EXPECT_EQ(set_->Rows(), Means().parses_strings ? 2 : 0);
  EXPECT_EQ(set_->IsReady(), Means().parses_strings);
}

TEST_P(LoadingConformance, TakesNoDataFromWhatIsNoDataSet) {
  Parse("7,8\n");
  As<IIsDirty>()->put_IsDirty(false);
  EXPECT_FALSE(set_->SetData(nullptr, 1));
  EXPECT_FALSE(As<IIsDirty>()->IsDirty());
  EXPECT_THAT(Records(), ElementsAre("7,8"));
}

TEST_P(LoadingConformance, ChecksAFileAndLeavesTheSetAlone) {
  Parse("7;8\n", false, separator_code::kSemicolon);
  As<IIsDirty>()->put_IsDirty(false);
  std::int32_t separator = separator_code::kComma;
  std::string message = "untouched";
  EXPECT_TRUE(set_->IsValidDataSet(folder_.Write("new.csv", "1,2\n"), false, separator, message));
  EXPECT_EQ(message, "untouched");
  EXPECT_FALSE(
      set_->IsValidDataSet(folder_.Write("new.csv", "1,2\n3,4\n5,x"), false, separator, message));
  EXPECT_EQ(message, "Invalid <DATASET>. Value in row 3, column 2. is invalid: x");
  EXPECT_EQ(separator, separator_code::kComma);
  std::int32_t column = 0;
  std::int32_t row = 0;
  EXPECT_TRUE(set_->InvalidPosition(column, row).IsEmpty());
  EXPECT_EQ(column, 2);
  EXPECT_EQ(row, 3);
  EXPECT_FALSE(As<IIsDirty>()->IsDirty());
  EXPECT_EQ(set_->GetProperty("Separator"), ";");
  EXPECT_THAT(Records(), ElementsAre("7,8"));
}

TEST_P(LoadingConformance, IsUndoneByClear) {
  Parse("a,b\n1,2\n3,4\n", true);
  set_->SetProperty("5", "DelayTime");
  set_->put_ProblemCategory(2);
  As<IIsDirty>()->put_IsDirty(false);
  set_->Clear();
  EXPECT_EQ(set_->Rows(), 0);
  EXPECT_FALSE(set_->IsReady());
  EXPECT_EQ(set_->ProblemCategory(), 2);
  EXPECT_EQ(set_->DataSetType(), Means().type_after_clear);
  EXPECT_EQ(As<IIsDirty>()->IsDirty(), Means().clear_makes_dirty);
  EXPECT_EQ(RaisedNumber([&] { set_->GetItem(0, 0); }), Means().absent_cell_error);
  if (!Means().clear_empties_properties) {
    EXPECT_EQ(set_->GetProperty("DelayTime"), "5");
  } else {
    EXPECT_EQ(RaisedNumber([&] { set_->GetProperty("DelayTime"); }),
              Means().unknown_property_error);
  }
  Parse("5,6\n");
  EXPECT_THAT(Records(), ElementsAre("5,6"));
}

}  // namespace
}  // namespace tslm5
