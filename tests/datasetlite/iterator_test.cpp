// `IIterator`. A sample's cells are read with row and column crossed: so the contract has it.
#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"
#include "tslm5/contracts/iterator.h"

namespace tslm5 {
namespace {

class DataSetLiteIterator : public DataSetLiteTest {
 protected:
  bool Next() { return iterator_->GetCurrentSample(sample_); }

  Ref<IIterator> iterator_ = set_.As<IIterator>();
  Array<double> sample_;
};

TEST_F(DataSetLiteIterator, MustBeResetFirst) {
  Parse("1,2\n3,4\n");
  EXPECT_EQ(iterator_->CurrentRow(), -1);
  const Error error = Raised([&] { Next(); });
  EXPECT_EQ(error.Number(), 41010);
  EXPECT_EQ(error.Source(), "");
  EXPECT_EQ(error.Description(), "");
  iterator_->ResetIterator();
  EXPECT_EQ(iterator_->CurrentRow(), 0);
}

TEST_F(DataSetLiteIterator, ReadsTheCurrentRowAsAColumn) {
  Parse("1,2\n3,4\n5,6\n");
  iterator_->ResetIterator();
  EXPECT_TRUE(Next());
  EXPECT_EQ(sample_.Elements(), (std::vector<double>{1, 3}));
  EXPECT_EQ(iterator_->CurrentRow(), 1);
  EXPECT_TRUE(Next());
  EXPECT_EQ(sample_.Elements(), (std::vector<double>{2, 4}));
  EXPECT_TRUE(Next());
  EXPECT_EQ(sample_.Elements(), (std::vector<double>{1, 2})) << "the row keys";
  EXPECT_FALSE(Next());
  EXPECT_EQ(iterator_->CurrentRow(), 3);
  EXPECT_FALSE(Next());
  EXPECT_EQ(iterator_->CurrentRow(), 3);
}

TEST_F(DataSetLiteIterator, StartsAgainAfterAReset) {
  Parse("1,2\n3,4\n");
  iterator_->ResetIterator();
  Next();
  iterator_->ResetIterator();
  EXPECT_EQ(iterator_->CurrentRow(), 0);
  Next();
  EXPECT_EQ(sample_.Elements(), (std::vector<double>{1, 3}));
}

TEST_F(DataSetLiteIterator, ReadsNothingAndMovesOnUntilTheColumnsWereCounted) {
  Parse("1,2\n3,4\n5,6\n");
  set_.Load(run_, 1);
  iterator_->ResetIterator();
  sample_ = Array<double>({-7});
  for (std::int32_t row = 1; row <= 9; ++row) {
    EXPECT_TRUE(Next());
    EXPECT_EQ(iterator_->CurrentRow(), row);
  }
  EXPECT_EQ(sample_.Elements(), (std::vector<double>{-7}));
  set_->Columns();
  iterator_->ResetIterator();
  EXPECT_TRUE(Next());
  EXPECT_EQ(sample_.Elements(), (std::vector<double>{1, 3}));
}

TEST_F(DataSetLiteIterator, KeepsTheCellsReadWhenRowsAreFewerThanColumns) {
  Parse("1,2,3\n");
  iterator_->ResetIterator();
  EXPECT_FALSE(Next());
  EXPECT_EQ(iterator_->CurrentRow(), 0);
  EXPECT_EQ(sample_.Elements(), (std::vector<double>{1, 0, 0}));
}

TEST_F(DataSetLiteIterator, LeavesTheRestOfALargerArrayAlone) {
  Parse("1,2\n3,4\n");
  iterator_->ResetIterator();
  sample_ = Array<double>({-1, -2, -3});
  EXPECT_TRUE(Next());
  EXPECT_EQ(sample_.Elements(), (std::vector<double>{1, 3, -3}));
}

TEST_F(DataSetLiteIterator, ReadsAMissingCellAsNoNumber) {
  Parse("1,2\n?,4\n");
  iterator_->ResetIterator();
  EXPECT_TRUE(Next());
  EXPECT_EQ(sample_[0], 1.0);
  EXPECT_NE(sample_[1], sample_[1]);
}

}  // namespace
}  // namespace tslm5
