#include "conformance/set_under_test.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

class IteratorConformance : public ConformanceTest {
 protected:
  void Reset(std::string_view text) {
    Parse(text);
    set_->Columns();  // one implementation gives no cell before it was asked
    iterator_->ResetIterator();
  }
  bool Next() { return iterator_->GetCurrentSample(sample_); }

  Ref<IIterator> iterator_ = As<IIterator>();
  Array<double> sample_;
};
TSLM5_CONFORMANCE_SUITE(IteratorConformance);

TEST_P(IteratorConformance, MustBeResetFirst) {
  Parse("1,2\n3,4\n");
  EXPECT_EQ(iterator_->CurrentRow(), -1);
  const Error error = Raised([&] { Next(); });
  EXPECT_EQ(error.Number(), 41010);
  EXPECT_EQ(error.Source(), "");
  EXPECT_EQ(error.Description(), "");
  iterator_->ResetIterator();
  EXPECT_EQ(iterator_->CurrentRow(), 0);
}

TEST_P(IteratorConformance, CrossesRowAndColumn) {
  Reset("1,2,3\n4,5,6\n7,8,9\n");
  EXPECT_TRUE(Next());
  EXPECT_THAT(sample_.Elements(), ElementsAre(1, 4, 7));
  EXPECT_EQ(iterator_->CurrentRow(), 1);
  EXPECT_TRUE(Next());
  EXPECT_THAT(sample_.Elements(), ElementsAre(2, 5, 8));
  EXPECT_TRUE(Next());
  EXPECT_THAT(sample_.Elements(), ElementsAre(3, 6, 9));
}

TEST_P(IteratorConformance, GoesOnBehindASquareWithTheRowKeysWhereThereAreAny) {
  Reset("1,2\n3,4\n");
  Next();
  Next();
  EXPECT_EQ(Next(), Means().behind_the_columns_are_row_keys);
  EXPECT_FALSE(Next());
  const std::int32_t last = Means().behind_the_columns_are_row_keys ? 3 : 2;
  EXPECT_EQ(iterator_->CurrentRow(), last);
  EXPECT_FALSE(Next());
  EXPECT_EQ(iterator_->CurrentRow(), last);
}

TEST_P(IteratorConformance, StaysWhereRowsAreFewerThanColumns) {
  Reset("1,2,3\n4,5,6\n");
  EXPECT_EQ(RaisedNumber([&] { EXPECT_FALSE(Next()); }), Means().sample_past_the_rows_error);
  EXPECT_EQ(iterator_->CurrentRow(), 0);
  EXPECT_THAT(sample_.Elements(), ElementsAre(1, 4, 0)) << "what was read is kept";
}

TEST_P(IteratorConformance, LeavesTheRestOfALargerArrayAlone) {
  Reset("1,2\n3,4\n");
  sample_ = Array<double>({8, 8, 8}, 5);
  EXPECT_TRUE(Next());
  EXPECT_EQ(sample_.LowerBound(), 5);
  EXPECT_THAT(sample_.Elements(), ElementsAre(1, 3, 8));
}

TEST_P(IteratorConformance, StartsAgainAfterAReset) {
  Reset("1,2\n3,4\n");
  Next();
  iterator_->ResetIterator();
  EXPECT_EQ(iterator_->CurrentRow(), 0);
  Next();
  EXPECT_THAT(sample_.Elements(), ElementsAre(1, 3));
}

}  // namespace
}  // namespace tslm5
