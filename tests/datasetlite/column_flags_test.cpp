// Which columns are categorical, and which have missing values: as the run says at a load, and anew
// after every operation that makes other data or column records.
#include <gtest/gtest.h>

#include <functional>

#include "datasetlite/lite_set.h"
#include "inmemory/memory_set.h"
#include "tslm5/contracts/data_set_lite.h"
#include "tslm5/contracts/deployment_data_set.h"
#include "tslm5/contracts/nominal_metadata.h"
#include "tslm5/contracts/time_series.h"

namespace tslm5 {
namespace {

class ColumnFlags : public DataSetLiteTest {
 protected:
  ColumnFlags() {
    AddColumn(0, "value");
    Parse("1\n2\n3\n");
  }

  /// "categorical missing" of column 0.
  std::string Flags() const {
    const std::string categorical =
        set_.As<INominalDataSetMetadata>()->GetIsCategorical(0) ? "yes" : "no";
    return categorical + (set_.As<IDeploymentDataSet>()->HasMissingValues(0) ? " yes" : " no");
  }
  void Flag(const char* nominal, const char* missing) const {
    run_.Execute("UPDATE DataSetColumn SET IsNominal = " + std::string(nominal) +
                 ", MissingCount = " + missing);
  }
  void Describe() const {
    set_->SetProperty("1", "EmbeddingDimension");
    set_->SetProperty("1", "DelayTime");
  }
};

TEST_F(ColumnFlags, AreReadAnewWithOtherData) {
  struct {
    const char* name;
    std::function<void()> act;
  } const cases[] = {
      {"Load", [this] { set_.Load(run_, 1); }},
      {"Parse", [this] { Parse("4\n5\n6\n"); }},
      {"Replace", [this] { Replace("4\n5\n6\n"); }},
      {"SetData", [this] { set_->SetData(MemorySet("1,2\n3,4").Object().get(), 1); }},
      {"FormatDataAs", [this] { EXPECT_TRUE(set_->FormatDataAs(0)); }},
  };
  Describe();
  for (const auto& c : cases) {
    Flag("0", "0");
    Parse("1\n2\n3\n");
    Flag("1", "2");
    EXPECT_EQ(Flags(), "no no") << c.name << ": they are remembered";
    c.act();
    EXPECT_EQ(Flags(), "yes yes") << c.name;
  }
}

TEST_F(ColumnFlags, AreReadAnewWithTheRecordsOfAnEmbedding) {
  Flag("1", "2");
  set_.Load(run_, 1);
  ASSERT_EQ(Flags(), "yes yes");
  Describe();
  set_.As<ITimeSeriesDataSet>()->RenameTrainingLabels();
  EXPECT_EQ(Flags(), "no no");
}

TEST_F(ColumnFlags, AreReadAnewWithTheRecordsOfTheLabels) {
  Flag("1", "2");
  set_.Load(run_, 1);
  run_.Execute("INSERT INTO DataSetLabels VALUES (NULL, 1, 0, 'first')");
  set_.As<IDataSetLite>()->SaveTimeSeriesDataSetColumnData(0);
  EXPECT_EQ(Flags(), "no no") << "the last record of a column wins";
}

TEST_F(ColumnFlags, StayWhenAnEmbeddingIsRefused) {
  Flag("1", "2");
  EXPECT_FALSE(set_->FormatDataAs(0));
  EXPECT_EQ(Flags(), "no no");
}

}  // namespace
}  // namespace tslm5
