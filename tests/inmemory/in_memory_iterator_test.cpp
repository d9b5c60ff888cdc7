#include <gmock/gmock.h>

#include "inmemory/memory_set.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

class InMemoryIterator : public testing::Test {
 protected:
  void Reset(std::string_view text) {
    set_.Parse(text);
    iterator_->ResetIterator();
  }
  bool Next() { return iterator_->GetCurrentSample(sample_); }
  Error ErrorOfNext() {
    return Raised([this] { Next(); });
  }

  MemorySet set_;
  Ref<IIterator> iterator_ = set_.As<IIterator>();
  Array<double> sample_;
};

TEST_F(InMemoryIterator, MustBeResetFirst) {
  set_.Parse("1,2\n3,4");
  EXPECT_THAT(ErrorOfNext(), IsError(41010));
  EXPECT_EQ(iterator_->CurrentRow(), -1);
  iterator_->ResetIterator();
  EXPECT_EQ(iterator_->CurrentRow(), 0);
}

TEST_F(InMemoryIterator, GivesColumnsAsSamples) {
  Reset("1,2,3\n4,5,6\n7,8,9");
  EXPECT_TRUE(Next());
  EXPECT_THAT(sample_.Elements(), ElementsAre(1, 4, 7));
  EXPECT_TRUE(Next());
  EXPECT_THAT(sample_.Elements(), ElementsAre(2, 5, 8));
  EXPECT_TRUE(Next());
  EXPECT_THAT(sample_.Elements(), ElementsAre(3, 6, 9));
  EXPECT_FALSE(Next());
  EXPECT_FALSE(Next());
  EXPECT_EQ(iterator_->CurrentRow(), 3);
}

TEST_F(InMemoryIterator, RaisesWhereTheCrossedCellIsNotThere) {
  Reset("1,2,3\n4,5,6");
  EXPECT_THAT(ErrorOfNext(), IsSubscriptError());
  EXPECT_EQ(iterator_->CurrentRow(), 0) << "and stays";
}

TEST_F(InMemoryIterator, EndsWhereTheRowsDoThoughItWalksColumns) {
  Reset("1,2\n3,4\n5,6");
  EXPECT_TRUE(Next());
  EXPECT_THAT(sample_.Elements(), ElementsAre(1, 3));
  EXPECT_TRUE(Next());
  EXPECT_THAT(sample_.Elements(), ElementsAre(2, 4));
  EXPECT_THAT(ErrorOfNext(), IsSubscriptError());
  EXPECT_EQ(iterator_->CurrentRow(), 2);
}

TEST_F(InMemoryIterator, FillsALongerArrayFromItsLowerBoundOn) {
  Reset("1,2\n3,4");
  sample_ = Array<double>({8, 8, 8}, 5);
  EXPECT_TRUE(Next());
  EXPECT_EQ(sample_.LowerBound(), 5);
  EXPECT_THAT(sample_.Elements(), ElementsAre(1, 3, 8));
}

TEST_F(InMemoryIterator, IsAtItsEndWithoutData) {
  iterator_->ResetIterator();
  EXPECT_FALSE(Next());
  EXPECT_EQ(iterator_->CurrentRow(), 0);
}

}  // namespace
}  // namespace tslm5
