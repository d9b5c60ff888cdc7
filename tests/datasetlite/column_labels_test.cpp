// `GetLabel` and `GetLongLabel`.
#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

class DataSetLiteColumnLabels : public DataSetLiteTest {
 protected:
  DataSetLiteColumnLabels() {
    set_->put_IndependentVarsPrefix("x");
    set_->put_DependentVarName("target");
  }

  void ExpectLabels(const Lines& labels, const Lines& long_labels) const {
    EXPECT_EQ(set_.Labels(), labels);
    Lines found;
    for (std::int32_t column = 0; column < set_->Columns(); ++column) {
      found.push_back(set_->GetLongLabel(column));
    }
    EXPECT_EQ(found, long_labels);
  }

  void ParseSeries(const std::string& label, std::int32_t category) const {
    Parse(label + "\n1\n2\n", {.separator = separator_code::kNone, .has_labels = true});
    set_->put_ProblemCategory(category);
  }
};

TEST_F(DataSetLiteColumnLabels, AreMadeOfTheNamesWhereThereAreNone) {
  Parse("1,2,3\n");
  ExpectLabels({"x0", "x1", "target"}, {"x0", "x1", "target"});
}

TEST_F(DataSetLiteColumnLabels, StandBehindTheNamesInTheLongForm) {
  Parse("a,b,c\n1,2,3\n", {.has_labels = true});
  ExpectLabels({"a", "b", "c"}, {"x0:a", "x1:b", "target:c"});
}

TEST_F(DataSetLiteColumnLabels, OfOneColumnAreTheResponses) {
  Parse("1\n2\n");
  ExpectLabels({"target"}, {"target"});
  Parse("a\n1\n2\n", {.has_labels = true});
  ExpectLabels({"a"}, {"target:a"});
}

TEST_F(DataSetLiteColumnLabels, OutsideTheTableAreStillMade) {
  Parse("1,2,3\n");
  EXPECT_EQ(set_->GetLabel(3), "x3");
  EXPECT_EQ(set_->GetLabel(-1), "x-1");
}

TEST_F(DataSetLiteColumnLabels, OutsideTheListAreEmpty) {
  Parse("a,b,c\n1,2,3\n", {.has_labels = true});
  EXPECT_EQ(set_->GetLabel(3), "");
  EXPECT_EQ(set_->GetLabel(-1), "");
  EXPECT_EQ(set_->GetLongLabel(3), "x3:");
}

TEST_F(DataSetLiteColumnLabels, ShowATimeSeriesInTwoWords) {
  ParseSeries("TimeSeries", problem_category::kTimeSeries);
  ExpectLabels({"Time Series"}, {"Time Series"});
}

TEST_F(DataSetLiteColumnLabels, OfASeriesAreTheSameInTheLongForm) {
  ParseSeries("sales", problem_category::kTimeSeries);
  ExpectLabels({"sales"}, {"sales"});
}

TEST_F(DataSetLiteColumnLabels, AreLeftAloneInAllOtherCases) {
  ParseSeries("timeseries", problem_category::kTimeSeries);
  EXPECT_EQ(set_->GetLabel(0), "timeseries") << "another spelling";
  ParseSeries("TimeSeries", problem_category::kRegression);
  ExpectLabels({"TimeSeries"}, {"target:TimeSeries"});
  Parse("TimeSeries,b\n1,2\n", {.has_labels = true});
  set_->put_ProblemCategory(problem_category::kTimeSeries);
  ExpectLabels({"TimeSeries", "b"}, {"x0:TimeSeries", "target:b"});
}

TEST_F(DataSetLiteColumnLabels, ShowASeriesWithoutLabelsInTwoWordsToo) {
  Parse("1\n2\n");
  set_->put_ProblemCategory(problem_category::kTimeSeries);
  set_->put_DependentVarName("TimeSeries");
  EXPECT_EQ(set_->GetLabel(0), "Time Series") << "the label obtained counts, wherever it is from";
}

TEST_F(DataSetLiteColumnLabels, HaveNothingToDoWithAPropertyOfThatName) {
  ParseSeries("sales", problem_category::kTimeSeries);
  set_->SetProperty("TimeSeries", "TimeSeries");
  EXPECT_EQ(set_->GetLabel(0), "sales");
}

}  // namespace
}  // namespace tslm5
