// What is an in-memory set's own in `FormatDataAs`; the rest is held by the conformance tests.
#include <gmock/gmock.h>

#include "inmemory/memory_set.h"
#include "inmemory/nominal_set.h"
#include "tslm5/contracts/extra_set.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

class InMemoryEmbedding : public testing::Test {
 protected:
  void Describe(const char* dimension, const char* delay, const char* samples) const {
    set_->SetProperty(dimension, "EmbeddingDimension");
    set_->SetProperty(delay, "DelayTime");
    set_->SetProperty(samples, "TestingSamples");
  }

  MemorySet set_;
};

TEST_F(InMemoryEmbedding, LabelsTheColumnsByTheirLags) {
  set_.Parse("1\n2\n3\n4\n5\n6\n7\n8\n", {.separator = separator_code::kNone});
  EXPECT_FALSE(set_->HasLabels());
  Describe("3", "2", "0");
  EXPECT_TRUE(set_->FormatDataAs(0));
  EXPECT_TRUE(set_->HasLabels());
  EXPECT_THAT(set_.Labels(), ElementsAre("t_6", "t_4", "t_2", "t_0"));
  EXPECT_THAT(set_.Records(), ElementsAre("1,3,5,7", "2,4,6,8"));
  EXPECT_EQ(set_->TerminalCount(), 3);
}

TEST_F(InMemoryEmbedding, ThatIsRefusedLeavesEverything) {
  set_.Parse("v\n1\n2\n3\n", {.separator = separator_code::kNone, .has_labels = true});
  Describe("2", "2", "0");
  set_.SetDirty(false);
  EXPECT_FALSE(set_->FormatDataAs(0));
  EXPECT_THAT(set_.Labels(), ElementsAre("v"));
  EXPECT_THAT(set_.Records(), ElementsAre("1", "2", "3"));
  EXPECT_TRUE(set_.IsDirty());
}

TEST_F(InMemoryEmbedding, KeepsTypeAndReadiness) {
  set_.Parse("1\n2\n3\n", {.separator = separator_code::kNone, .type = 2});
  Describe("1", "1", "1");
  EXPECT_TRUE(set_->FormatDataAs(0));
  EXPECT_EQ(set_->DataSetType(), 2);
  EXPECT_TRUE(set_->IsReady());
  EXPECT_THAT(set_.Records(), ElementsAre("1,2"));
  EXPECT_EQ(set_.As<IExtraSet>()->GetItem(0, 0), 3);
}

TEST_F(InMemoryEmbedding, TakesTheSeriesOfAnotherSetsExtraSet) {
  const MemorySet source("1,2\n3,4");
  source.State().extra_set = CellArray(3, 1);
  source.State().extra_set_exists = true;
  for (std::int32_t row = 0; row < 3; ++row) source.As<IExtraSet>()->SetItem(0, row, 10 * row);
  ASSERT_TRUE(set_->SetData(source.Object().get(), 5));
  Describe("1", "1", "0");
  EXPECT_TRUE(set_->FormatDataAs(0));
  EXPECT_THAT(set_.Records(), ElementsAre("0,10", "10,20"));
}

TEST_F(InMemoryEmbedding, OfAnEmptySetIsRefused) {
  Describe("1", "1", "0");
  EXPECT_FALSE(set_->FormatDataAs(0));
  set_.Parse("1\n2\n3\n", {.separator = separator_code::kNone});
  set_->Clear();
  Describe("1", "1", "0");
  EXPECT_FALSE(set_->FormatDataAs(0)) << "one column is still counted, but there is none";
}

TEST_F(InMemoryEmbedding, OfWordsIsOneOfTheirCodes) {
  const NominalSet words;
  words.Parse("low\nhigh\nlow\nmean\n", {.separator = separator_code::kNone});
  ASSERT_EQ(words.Nominal().GetItem(0, 3), Variant("mean"));
  words->SetProperty("1", "EmbeddingDimension");
  words->SetProperty("1", "DelayTime");
  EXPECT_TRUE(words.Nominal().FormatDataAs(0));
  EXPECT_THAT(words.Records(), ElementsAre("0,1", "1,0", "0,2"));
  EXPECT_EQ(words.Nominal().GetItem(0, 1), Variant(1.0));
  EXPECT_EQ(words.Nominal().GetItem(1, 2), Variant(2.0));
}

TEST_F(InMemoryEmbedding, DoesNotReachTheSetItWasClonedFrom) {
  set_.Parse("1\n2\n3\n", {.separator = separator_code::kNone});
  Describe("1", "1", "1");
  const Ref<IDataSet> clone = set_.As<IInMemorySet>()->Clone();
  EXPECT_TRUE(clone->FormatDataAs(0));
  EXPECT_THAT(set_.Records(), ElementsAre("1", "2", "3"));
  EXPECT_FALSE(set_.As<IExtraSet>()->Exists());
}

}  // namespace
}  // namespace tslm5
