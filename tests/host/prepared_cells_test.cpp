// Single cells from a text to the run, through a replacement in the run's scale, and back.
#include <gtest/gtest.h>

#include <cmath>

#include "host/preparation/prepared_load.h"
#include "host/preparation/run_preparation.h"
#include "host/preparation/run_session.h"
#include "tests/host/temporary_folder.h"
#include "tslm5/contracts/missing_metadata.h"
#include "tslm5/contracts/nominal_metadata.h"

namespace tslm5::host {
namespace {

// The wind's figures: average 6, deviation 4, minimum 2, maximum 10.
constexpr const char* kText = "colour,wind,answer\nred,2,1\nblue,6,2\nred,NA,3\ngrün,10,4\n";
constexpr const char* kTesting = "colour,wind,answer\nblue,?,5\nred,NA,6\n";

FieldFile Fields(const char* text) {
  const TemporaryFolder folder;
  FieldFile file{SurveyFile(folder.Write("data", text), {}), {}};
  file.table = ReadTable(file.file);
  return file;
}

class PreparedCells : public testing::TestWithParam<const char*> {
 protected:
  PreparedCells() {
    options_.file = "text.csv";
    options_.run = folder_.Path("run.db");
    options_.set = FindSet("training");
    options_.statistics = false;
  }

  void Store(const char* scale) {
    options_.scale = ParseScale(scale);
    const FieldFile main = Fields(kText);
    const FieldFile testing = Fields(kTesting);
    StorePrepared(options_, {}, main, &testing);
  }

  TemporaryFolder folder_;
  LoadOptions options_;
};

/// 8 in each scale.
double Wanted(std::string_view scale) {
  if (scale == "zscore") return 0.5;
  if (scale == "minmax") return 0.75;
  return scale == "none" ? 8.0 : 2.0;  // range:-1:3
}

TEST_P(PreparedCells, AReplacementIsInTheScaleOfItsColumn) {
  Store(GetParam());
  const RunSession session(options_.run, RunOptions::Mode::kReadWrite);
  const Ref<IDataSet> training = session.OpenDataSet(data_set_type::kTraining);
  const Ref<IDataSet> testing = session.OpenDataSet(data_set_type::kTesting);
  EXPECT_TRUE(std::isnan(training->GetItem(1, 2)));
  const auto missing = training.As<IMissingMetadata>();
  EXPECT_EQ(missing->GetMissingCount(1), 3);
  missing->UpdateMissing(1, Variant("NA"), Variant(8.0), 5);
  ASSERT_TRUE(missing->ApplyMissing(1));

  EXPECT_DOUBLE_EQ(training->GetItem(1, 2), Wanted(GetParam()));
  EXPECT_DOUBLE_EQ(testing->GetItem(1, 1), Wanted(GetParam()));
  EXPECT_TRUE(std::isnan(testing->GetItem(1, 0))) << "another token";
  EXPECT_EQ(training->GetRowOriginalValue(2, 1).ToString(), "NA");
  EXPECT_EQ(testing->GetRowOriginalValue(0, 1).ToString(), "?");
}

INSTANTIATE_TEST_SUITE_P(Scales, PreparedCells,
                         testing::Values("none", "zscore", "minmax", "range:-1:3"));

TEST_F(PreparedCells, ACategoryIsRecodedByItsText) {
  Store("zscore");
  const RunSession session(options_.run, RunOptions::Mode::kReadWrite);
  const Ref<IDataSet> training = session.OpenDataSet(data_set_type::kTraining);
  const Ref<IDataSet> testing = session.OpenDataSet(data_set_type::kTesting);
  const auto nominal = training.As<INominalDataSetMetadata>();
  EXPECT_TRUE(nominal->GetIsCategorical(0));
  EXPECT_FALSE(nominal->GetIsCategorical(1));
  EXPECT_EQ(nominal->GetModeMapping(0), 1.0);
  EXPECT_EQ(training->GetItem(0, 3), 3.0);
  nominal->UpdateCategory("d0", "grün", Variant(9.0));
  nominal->UpdateCategory("d0", "blue", Variant(8.0));
  EXPECT_EQ(training->GetItem(0, 3), 9.0);
  EXPECT_EQ(testing->GetItem(0, 0), 8.0);
  EXPECT_EQ(testing->GetRowOriginalValue(0, 0).ToString(), "blue");
}

TEST_F(PreparedCells, WhatTheRunTellsIsReadBack) {
  options_.missing_tokens = {"none"};
  options_.problem = problem_category::kBinary;
  options_.positive_class = "3";
  Store("range:-1:3");
  const RunSession session(options_.run, RunOptions::Mode::kReadOnly);
  EXPECT_TRUE(IsPrepared(session));
  const Preparation read = ReadPreparation(session);
  EXPECT_EQ(ScaleText(read.scale), "range:-1:3");
  EXPECT_EQ(read.problem, problem_category::kBinary);
  EXPECT_EQ(read.missing_tokens, (std::vector<std::string>{"none"}));
  EXPECT_TRUE(read.has_positive_class);
  EXPECT_TRUE(read.IsMerging());
  EXPECT_EQ(read.two_classes.value().positive_class, "3");
  ASSERT_EQ(read.columns.size(), 3U);
  EXPECT_TRUE(read.columns[0].is_nominal);
  EXPECT_EQ(read.columns[0].categories.Texts(), (std::vector<std::string>{"red", "blue", "grün"}));
  EXPECT_TRUE(read.columns[1].is_scaled);
  EXPECT_EQ(read.columns[1].figures.average, 6.0);
  EXPECT_EQ(read.columns[1].figures.deviation, 4.0);
  EXPECT_EQ(read.columns[1].missing, 1);
  ASSERT_EQ(read.columns[1].tokens.size(), 1U) << "those of the training records alone";
  EXPECT_EQ(read.columns[1].tokens[0].text, "NA");
  EXPECT_FALSE(read.columns[2].is_scaled);
}

}  // namespace
}  // namespace tslm5::host
