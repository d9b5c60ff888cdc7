#include "preparation/preparation_fixture.h"
#include "run/run_catalog_object.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::int32_t kTraining = data_set_type::kTraining;

class RunEmbeddingTest : public PreparationFixture {
 protected:
  RunEmbeddingTest() { catalog_.As<IRunCatalog>()->Open(run_.Service().get()); }

  EmbeddingResult Embed(const EmbeddingOptions& options, IFeedback* feedback = nullptr) const {
    EmbeddingResult result;
    Face<IRunEmbedding>().Embed(options, {"embed"}, feedback, result);
    return result;
  }

  Raised Refusal(const EmbeddingOptions& options) const {
    const Lines before = Content();
    const Raised raised = RaisedBy([&] { Embed(options); });
    EXPECT_EQ(Content(), before);
    return raised;
  }

  Ref<IUnknown> catalog_ = MakeRunCatalog();
};

TEST_F(RunEmbeddingTest, MakesRecordsLabelsTextsAndAStep) {
  Store(kTraining, {"1", "2", "3", "4"});
  catalog_.As<IRunOriginals>()->Create(1);
  for (std::int32_t i = 1; i <= 4; ++i) {
    const std::string text = "t" + std::to_string(i);
    catalog_.As<IRunOriginals>()->Append(std::vector<std::string_view>{text}, i);
  }
  const EmbeddingResult result = Embed({.dimension = 2, .delay = 1, .testing_samples = 0});
  EXPECT_EQ(result.series_rows, 4);
  EXPECT_EQ(result.records, 2);
  EXPECT_THAT(result.labels, ElementsAre("t_2", "t_1", "t_0"));
  EXPECT_FALSE(result.has_dropped_backup);
  EXPECT_THAT(run_.TableRows("TrainingSet"), ElementsAre("1|2|3|1", "2|3|4|2"));
  EXPECT_THAT(run_.TableRows("OriginalData"), ElementsAre("t1|t2|t3|1", "t2|t3|t4|2"));
  EXPECT_THAT(run_.Select("SELECT Name, IsResponse FROM DataSetColumn"),
              ElementsAre("d0|0", "d1|0", "d2|1"));
  EXPECT_THAT(run_.Select("SELECT Label FROM OriginalDataLabels"),
              ElementsAre("t_2", "t_1", "t_0"));
  EXPECT_THAT(run_.Select("SELECT intvalue FROM RunParameters WHERE element = 'ProblemCategory'"),
              ElementsAre("2"));
  EXPECT_THAT(run_.Select("SELECT COUNT(*) FROM DataSetStatistics WHERE DataSetId = 1"),
              ElementsAre("3"));
  EXPECT_THAT(Steps(), ElementsAre("embed|1||{\"dimension\":2,\"delay\":1,\"testingSamples\":0,"
                                   "\"values\":4,\"rows\":2,\"words\":[\"embed\"]}"));
}

TEST_F(RunEmbeddingTest, KeepsTestingSamplesApart) {
  Store(kTraining, {"1", "2", "3", "4", "5", "6"});
  const EmbeddingResult result = Embed({.dimension = 1, .delay = 1, .testing_samples = 2});
  EXPECT_EQ(result.records, 3);
  EXPECT_THAT(run_.Select("SELECT d0 FROM TimeSeriesTestingSet"), ElementsAre("5", "6"));
}

TEST_F(RunEmbeddingTest, CountsTheMissingCellsOfEachColumn) {
  Store(kTraining, {"1", "NULL", "3", "4"});
  Embed({.dimension = 1, .delay = 1, .testing_samples = 0});
  EXPECT_THAT(run_.Select("SELECT MissingCount FROM DataSetColumn"), ElementsAre("1", "1"));
}

TEST_F(RunEmbeddingTest, RefusesASeriesThatIsTooShort) {
  Store(kTraining, {"1", "2", "3"});
  const Raised raised = Refusal({.dimension = 2, .delay = 1, .testing_samples = 1});
  EXPECT_EQ(raised.number, 41028);
  EXPECT_EQ(raised.message,
            "the series is too short: it has 3 values, but dimension 2 with delay 1 and 1 testing "
            "samples needs at least 4");
}

TEST_F(RunEmbeddingTest, RefusesASecondEmbedding) {
  Store(kTraining, {"1", "2", "3", "4", "5"});
  Embed({.dimension = 2, .delay = 1, .testing_samples = 0});
  EXPECT_EQ(Refusal({.dimension = 1, .delay = 1, .testing_samples = 0}).message,
            "the training set is embedded already, with dimension 2 and delay 1; load the series "
            "again to embed it otherwise");
}

TEST_F(RunEmbeddingTest, RefusesWhatIsNoSeries) {
  EXPECT_EQ(Refusal({}).message, "there is no training set; load a series first");
  Store(kTraining, {"1", "2", "3"});
  catalog_.As<IRunColumns>()->WriteColumns({{"kind", true, 0, false}}, true);
  EXPECT_THAT(Refusal({}).message, HasSubstr("only numbers can be embedded"));
  catalog_.As<IRunColumns>()->WriteColumns({{"kind", false, 0, false}}, true);
  catalog_.As<IRunParameters>()->WriteWhole("set_gen", "ProblemCategory", 1);
  EXPECT_EQ(Refusal({}).message,
            "the run is for another problem; load the series for a time series");
}

TEST_F(RunEmbeddingTest, RefusesTestingRecordsFromAmongTheValues) {
  Store(kTraining, {"1", "2", "3"});
  Store(data_set_type::kTesting, {"9"});
  run_.Execute("UPDATE TrainingSet SET row = row + 10");
  EXPECT_THAT(Refusal({}).message, HasSubstr("drawn from among its values"));
}

TEST_F(RunEmbeddingTest, TellsThatAPendingResetIsFinalNow) {
  Store(kTraining, {"1", "2", "3"});
  Store(data_set_type::kTesting, {"7", "8", "9"}, 4);
  ResetResult reset;
  Face<IRunReset>().Reset({}, nullptr, reset);
  EXPECT_TRUE(Embed({.dimension = 1, .delay = 1, .testing_samples = 0}).has_dropped_backup);
}

TEST_F(RunEmbeddingTest, AStoppedEmbeddingChangesNothing) {
  Store(kTraining, {"1", "2", "3"});
  const Lines before = Content();
  const auto feedback = MakeObject<StoppingFeedback>(true);
  EXPECT_EQ(RaisedBy([&] { Embed({}, feedback.get()); }).number, 41029);
  EXPECT_EQ(Content(), before);
  const auto going = MakeObject<StoppingFeedback>(false);
  EXPECT_EQ(Embed({}, going.get()).records, 2);
  EXPECT_EQ(going->starts, 1);
}

}  // namespace
}  // namespace tslm5
