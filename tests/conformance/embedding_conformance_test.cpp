// `FormatDataAs` of every dataset class: the series x[t] = t, in which each cell tells its place.
#include "conformance/set_under_test.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

class EmbeddingConformance : public ConformanceTest {
 protected:
  /// Loads the series 0, 1, ..., rows - 1.
  void ParseCount(std::int32_t rows) const {
    std::string text;
    for (std::int32_t value = 0; value < rows; ++value) text += std::to_string(value) + "\n";
    Parse(text, false, separator_code::kNone);
  }

  bool Embed(std::int32_t dimension, std::int32_t delay, std::int32_t samples) const {
    set_->SetProperty(std::to_string(dimension), "EmbeddingDimension");
    set_->SetProperty(std::to_string(delay), "DelayTime");
    set_->SetProperty(std::to_string(samples), "TestingSamples");
    return set_->FormatDataAs(0);
  }

  /// Holds a set embedded under these parameters to what its cells say of their places.
  void ExpectPlaces(std::int32_t rows, std::int32_t dimension, std::int32_t delay,
                    std::int32_t samples) const {
    const std::int32_t end = samples == 0 ? rows : rows - 1 - (samples - 1) * delay;
    ASSERT_EQ(set_->Columns(), dimension + 1);
    ASSERT_EQ(set_->Rows(), end - dimension * delay);
    for (std::int32_t row = 0; row < set_->Rows(); ++row) {
      const double t = row + dimension * delay;
      EXPECT_EQ(set_->GetItem(dimension, row), t);
      for (std::int32_t column = 0; column < dimension; ++column) {
        EXPECT_EQ(set_->GetItem(column, row), t - (dimension - column) * delay);
      }
      for (std::int32_t column = 0; column <= dimension; ++column) {
        EXPECT_LT(set_->GetItem(column, row), end) << "no record looks at a testing value";
        EXPECT_GE(set_->GetItem(column, row), 0);
      }
    }
    ASSERT_EQ(extra_->Exists(), samples > 0);
    if (samples == 0) return;
    ASSERT_EQ(extra_->Rows(), samples);
    for (std::int32_t sample = 0; sample < samples; ++sample) {
      EXPECT_EQ(extra_->GetItem(0, sample), end + sample * delay);
    }
    EXPECT_EQ(extra_->GetItem(0, samples - 1), rows - 1) << "the last one is the series' last";
  }

  Ref<IExtraSet> extra_ = As<IExtraSet>();
};
TSLM5_CONFORMANCE_SUITE(EmbeddingConformance);

TEST_P(EmbeddingConformance, PutsEveryValueInItsPlace) {
  for (const std::int32_t rows : {2, 5, 12, 40}) {
    for (const std::int32_t dimension : {1, 2, 5}) {
      for (const std::int32_t delay : {1, 3, 7}) {
        for (const std::int32_t samples : {0, 1, 4}) {
          SCOPED_TRACE(testing::Message()
                       << rows << " rows, E " << dimension << ", D " << delay << ", T " << samples);
          made_ = GetParam().make();
          set_ = As<IDataSet>();
          extra_ = As<IExtraSet>();
          ParseCount(rows);
          const std::int32_t end = samples == 0 ? rows : rows - 1 - (samples - 1) * delay;
          const bool is_possible = end - dimension * delay >= 1;
          ASSERT_EQ(Embed(dimension, delay, samples), is_possible);
          if (is_possible) {
            ExpectPlaces(rows, dimension, delay, samples);
          } else {
            EXPECT_EQ(set_->Rows(), rows);
            EXPECT_EQ(set_->Columns(), 1);
            EXPECT_FALSE(extra_->Exists());
          }
        }
      }
    }
  }
}

TEST_P(EmbeddingConformance, HappensOnce) {
  ParseCount(6);
  EXPECT_TRUE(Embed(2, 1, 1));
  const std::vector<std::string> records = Records();
  EXPECT_FALSE(Embed(1, 1, 1));
  EXPECT_EQ(Records(), records);
  EXPECT_THAT(records, ElementsAre("0,1,2", "1,2,3", "2,3,4"));
}

TEST_P(EmbeddingConformance, NeedsASeries) {
  EXPECT_FALSE(Embed(1, 1, 0)) << "of no data";
  Parse("1,2\n3,4\n5,6\n");
  EXPECT_FALSE(Embed(1, 1, 0));
  EXPECT_THAT(Records(), ElementsAre("1,2", "3,4", "5,6"));
}

TEST_P(EmbeddingConformance, NeedsWholeNumbers) {
  ParseCount(6);
  for (const char* key : {"EmbeddingDimension", "DelayTime", "TestingSamples"}) {
    for (const char* fraction : {"1.5", "0.5", "1.0000001"}) {
      for (const char* whole : {"EmbeddingDimension", "DelayTime", "TestingSamples"}) {
        set_->SetProperty("1", whole);
      }
      set_->SetProperty(fraction, key);
      EXPECT_FALSE(set_->FormatDataAs(0)) << key << " " << fraction;
    }
    set_->SetProperty("1.0", key);
  }
  EXPECT_EQ(set_->Rows(), 6);
  EXPECT_TRUE(set_->FormatDataAs(0)) << "1.0 is a whole number";
}

TEST_P(EmbeddingConformance, NeedsItsProperties) {
  ParseCount(6);
  EXPECT_FALSE(set_->FormatDataAs(0));
  set_->SetProperty("2", "EmbeddingDimension");
  EXPECT_FALSE(set_->FormatDataAs(0));
  set_->SetProperty("x", "DelayTime");
  EXPECT_FALSE(set_->FormatDataAs(0));
  set_->SetProperty("1", "DelayTime");
  set_->SetProperty("x", "TestingSamples");
  EXPECT_FALSE(set_->FormatDataAs(0));
  for (const std::int32_t wrong : {-1, 0}) {
    EXPECT_FALSE(Embed(wrong, 1, 0));
    EXPECT_FALSE(Embed(1, wrong, 0));
  }
  EXPECT_FALSE(Embed(1, 1, -1));
  EXPECT_FALSE(Embed(65536, 65536, 0)) << "their product is 0 in 32 bits";
  EXPECT_EQ(set_->Rows(), 6);
  set_->ResetProperties();
  set_->SetProperty("2", "EmbeddingDimension");
  set_->SetProperty("1", "DelayTime");
  EXPECT_TRUE(set_->FormatDataAs(0)) << "no testing samples are needed";
  EXPECT_EQ(set_->Rows(), 4);
}

TEST_P(EmbeddingConformance, LeavesMissingValuesMissing) {
  ParseCount(5);
  made_->MakeMissing(0, 2);
  EXPECT_TRUE(Embed(1, 1, 0));
  EXPECT_THAT(Records(), ElementsAre("0,1", "1,", ",3", "3,4"));
}

TEST_P(EmbeddingConformance, MakesTheSetDirty) {
  ParseCount(5);
  set_->SetProperty("1", "EmbeddingDimension");
  As<IIsDirty>()->put_IsDirty(false);
  EXPECT_FALSE(set_->FormatDataAs(0));
  EXPECT_TRUE(As<IIsDirty>()->IsDirty());
}

TEST_P(EmbeddingConformance, CanBeginAnewWithAnotherSeries) {
  ParseCount(6);
  ASSERT_TRUE(Embed(2, 1, 2));
  ParseCount(4);
  EXPECT_TRUE(Embed(1, 1, 0));
  EXPECT_THAT(Records(), ElementsAre("0,1", "1,2", "2,3"));
  EXPECT_FALSE(extra_->Exists()) << "the testing samples went with their series";
}

}  // namespace
}  // namespace tslm5
