// The operations of `IDataSet` that are carried only: whatever was loaded, they change nothing,
// give the empty value and never raise.
#include "original/original_run.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

class OriginalEmptyOperations : public OriginalDataSetTest {
 protected:
  OriginalEmptyOperations() { view_.Open(run_, data_set_type::kTraining); }
  ~OriginalEmptyOperations() override {
    EXPECT_THAT(view_.Records(), ElementsAre("3,red,1.5,no", "8,blue,2.25,yes"));
    EXPECT_EQ(view_->GetTargetMax(), 1);
  }

  IDataSet& set_ = *view_.DataSet();
};

/// A progress display that must stay dark.
class SilentFeedback final : public CountedObject<IFeedback> {
 public:
  std::string_view TypeName() override { return "SilentFeedback"; }
  bool ReportProgress(std::int32_t, std::string_view) override { return Fail(); }
  bool ContinueFlag() override { return Fail(); }
  void Finish() override { Fail(); }
  void Start() override { Fail(); }
  void SetMaximum(std::int32_t) override { Fail(); }

 private:
  ~SilentFeedback() override = default;
  static bool Fail() {
    ADD_FAILURE() << "the feedback object was called";
    return false;
  }
};

TEST_F(OriginalEmptyOperations, OfTypesAndNames) {
  set_.put_DataSetType(2);
  EXPECT_EQ(set_.DataSetType(), 0);
  set_.put_IndependentVarsPrefix("x");
  EXPECT_EQ(set_.IndependentVarsPrefix(), "");
  set_.put_DependentVarName("z");
  EXPECT_EQ(set_.DependentVarName(), "");
  set_.put_ProblemCategory(3);
  EXPECT_EQ(set_.ProblemCategory(), 0);
  EXPECT_EQ(set_.Name(), "");
  EXPECT_FALSE(set_.IsReady());
  EXPECT_FALSE(set_.HasLabelPrefix());
  set_.SetLabels("a b c");
  EXPECT_EQ(set_.GetLabel(0), "d0");
}

TEST_F(OriginalEmptyOperations, OfProperties) {
  EXPECT_EQ(set_.SetProperty("5", "DelayTime"), "");
  EXPECT_EQ(set_.GetProperty("DelayTime"), "");
  set_.ResetProperties();
  EXPECT_EQ(set_.SeparatorToString(2), "");
  EXPECT_EQ(set_.SeparatorToString(77), "") << "not even an unknown code raises";
}

TEST_F(OriginalEmptyOperations, OfLoading) {
  set_.Parse("/no/such/file.csv", 2, true, 1, 1);
  std::string text = "1,2\n3,4\n";
  set_.ParseString(text, 2, false, 1, 1, nullptr);
  EXPECT_EQ(text, "1,2\n3,4\n");
  set_.Replace("/no/such/file.csv", 2, true);
  EXPECT_FALSE(set_.SetData(view_.Object().get(), 1));
  EXPECT_FALSE(set_.FormatDataAs(1));
  set_.Clear();
}

TEST_F(OriginalEmptyOperations, OfTheDataCheck) {
  std::int32_t separator = 7;
  std::string message = "old";
  EXPECT_FALSE(set_.IsValidDataSet("/no/such/file.csv", true, separator, message));
  EXPECT_EQ(separator, 7);
  EXPECT_EQ(message, "old");
  std::int32_t column = 4;
  std::int32_t row = 5;
  EXPECT_TRUE(set_.InvalidPosition(column, row).IsEmpty());
  EXPECT_EQ(column, 4);
  EXPECT_EQ(row, 5);
}

TEST_F(OriginalEmptyOperations, OfValues) {
  EXPECT_EQ(set_.GetItem(0, 0), 0);
  EXPECT_EQ(set_.GetItem(99, -1), 0);
  EXPECT_TRUE(set_.GetRowOriginalValue(0, 0).IsEmpty());
  EXPECT_TRUE(set_.GetRowOriginalValueByRecordId(3, 0).IsEmpty());
  EXPECT_EQ(set_.GetMax(1, 0, 0), 0);
  EXPECT_EQ(set_.GetMin(1, 0, 0), 0);
}

TEST_F(OriginalEmptyOperations, OfFigures) {
  VariantArray model({Variant(7)}, 3);
  set_.GetAverageModel(model);
  EXPECT_EQ(model.LowerBound(), 3);
  EXPECT_EQ(model.Size(), 1U);
  EXPECT_EQ(set_.GetGlobalCentroid(1), 0);
  EXPECT_EQ(set_.GetGlobalMedoid(1), 0);
  EXPECT_EQ(set_.GetStandardDeviation(1), 0);
  double class_value = 11;
  double value = 12;
  set_.GetClassCentroid(1, 0, class_value, value);
  set_.GetClassMedoid(1, 1, class_value, value);
  EXPECT_EQ(class_value, 11);
  EXPECT_EQ(value, 12);
  EXPECT_FALSE(set_.HasClassRecordStatistics());
  EXPECT_FALSE(set_.HasGlobalRecordStatistics());
}

TEST_F(OriginalEmptyOperations, OfClasses) {
  EXPECT_EQ(set_.GetTargetClassCount(0), 0);
  EXPECT_EQ(set_.GetTargetMinorityClassCount(), 0);
  EXPECT_EQ(set_.GetTargetMajorityClass(), 0);
}

TEST_F(OriginalEmptyOperations, KeepAFeedbackObjectUntilTheNext) {
  run_.Log().Clear();
  const Ref<SilentFeedback> feedback = MakeObject<SilentFeedback>();
  set_.CalculateStatistics(feedback.get());
  EXPECT_EQ(feedback->AddRef(), 3U) << "held here, held there, and this one";
  feedback->Release();
  view_.Open(run_, data_set_type::kTraining);
  EXPECT_EQ(feedback->AddRef(), 3U) << "an open lets it be";
  feedback->Release();
  set_.CalculateStatistics(nullptr);
  EXPECT_EQ(feedback->AddRef(), 2U);
  feedback->Release();
}

TEST_F(OriginalEmptyOperations, SendNothingToTheRun) {
  run_.Log().Clear();
  set_.CalculateStatistics(nullptr);
  set_.Clear();
  set_.GetMax(0, 0, 0);
  EXPECT_THAT(run_.Log().statements, testing::IsEmpty());
}

}  // namespace
}  // namespace tslm5
