// `IDataSet::SetData` of an `InMemorySet`: it becomes the series in another set's extra part.
#include <gmock/gmock.h>

#include "fakes/fake_data_set.h"
#include "inmemory/memory_set.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class InMemorySetData : public testing::Test {
 protected:
  InMemorySetData() {
    source_.Parse("1,2\n3,4");
    source_.State().extra_set = CellArray(3, 2);
    source_.State().extra_set_exists = true;
    for (std::int32_t row = 0; row < 3; ++row) {
      source_.As<IExtraSet>()->SetItem(0, row, 10 + row);
      source_.As<IExtraSet>()->SetItem(1, row, 20 + row);
    }
  }

  MemorySet source_;
  MemorySet set_;
};

TEST_F(InMemorySetData, TakesTheFirstExtraColumnAsASeries) {
  const Ref<RecordingMemoryEvents> events = set_.Listen();
  EXPECT_TRUE(set_->SetData(source_.Object().get(), 1));
  EXPECT_EQ(set_->Rows(), 3);
  EXPECT_EQ(set_->Columns(), 1);
  EXPECT_THAT(set_.Records(), ElementsAre("10", "11", "12"));
  EXPECT_EQ(set_->GetItem(1, 2), 0) << "the other columns are there, but not copied";
  EXPECT_THAT(Raised([&] { set_->GetItem(2, 0); }), IsSubscriptError());
  EXPECT_EQ(set_->DataSetType(), 5);
  EXPECT_EQ(set_->Name(), "");
  EXPECT_EQ(set_.State().name, "Time Series");
  EXPECT_EQ(set_->GetLabel(0), "Time Series");
  EXPECT_FALSE(set_->HasLabels());
  EXPECT_TRUE(set_->IsReady());
  EXPECT_FALSE(set_.IsDirty());
  EXPECT_THAT(events->lines, IsEmpty());
}

TEST_F(InMemorySetData, ReplacesEarlierData) {
  set_.Parse("a,b,c\n7,8,9", {.has_labels = true});
  EXPECT_TRUE(set_->SetData(source_.Object().get(), 5));
  EXPECT_THAT(set_.Records(), ElementsAre("10", "11", "12"));
  EXPECT_THAT(set_.State().labels, ElementsAre("Time Series"));
}

TEST_F(InMemorySetData, IsLeftAloneByAnyOtherSource) {
  set_.Parse("7,8");
  set_.SetDirty(false);
  const Ref<FakeDataSet> no_extra_set = MakeObject<FakeDataSet>(std::vector<std::vector<double>>());
  EXPECT_FALSE(set_->SetData(no_extra_set.get(), 5));
  EXPECT_FALSE(set_->SetData(nullptr, 5));
  EXPECT_THAT(set_.Records(), ElementsAre("7,8"));
  EXPECT_EQ(set_->DataSetType(), 1);
  EXPECT_FALSE(set_.IsDirty());
}

TEST_F(InMemorySetData, MayComeFromTheSetItself) {
  EXPECT_TRUE(source_->SetData(source_.Object().get(), 5));
  EXPECT_THAT(source_.Records(), ElementsAre("10", "11", "12"));
  EXPECT_FALSE(source_.As<IExtraSet>()->Exists()) << "the samples are the data now";
}

TEST_F(InMemorySetData, EndsTheExtraSetOfEarlierData) {
  set_.Parse("7,8");
  set_.State().extra_set = CellArray(2, 1);
  set_.State().extra_set_exists = true;
  EXPECT_TRUE(set_->SetData(source_.Object().get(), 5));
  EXPECT_FALSE(set_.As<IExtraSet>()->Exists());
  EXPECT_EQ(set_.As<IExtraSet>()->Rows(), 0);
}

TEST_F(InMemorySetData, LeavesTheSetAloneWhenTheSourceCannotBeRead) {
  set_.Parse("7,8");
  set_.State().extra_set_exists = true;
  source_.State().column_count = 0;
  EXPECT_EQ(RaisedNumber([&] { set_->SetData(source_.Object().get(), 5); }), 9);
  EXPECT_THAT(set_.Records(), ElementsAre("7,8"));
  EXPECT_TRUE(set_.As<IExtraSet>()->Exists());
}

TEST_F(InMemorySetData, HasNoRowsWhereTheSourceHasNoExtraPart) {
  EXPECT_TRUE(set_->SetData(MemorySet("1,2").Object().get(), 5));
  EXPECT_EQ(set_->Rows(), 0);
  EXPECT_EQ(set_->Columns(), 1);
}

}  // namespace
}  // namespace tslm5
