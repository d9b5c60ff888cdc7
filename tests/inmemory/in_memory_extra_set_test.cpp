#include "inmemory/in_memory_extra_set.h"

#include <gmock/gmock.h>

#include <functional>
#include <limits>

#include "inmemory/memory_set.h"
#include "tslm5/contracts/nominal_data_set.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

const Variant kEmpty;

class InMemoryExtraSet : public testing::Test {
 protected:
  /// Two columns of data, and five rows of one column beside them: 10, 11, 12, 13, 14.
  InMemoryExtraSet() {
    set_.Parse("1,2\n3,4");
    set_.State().extra_set = CellArray(5, 1);
    set_.State().extra_set_exists = true;
    for (std::int32_t row = 0; row < 5; ++row) extra_->SetItem(0, row, 10 + row);
  }

  VariantArray Vectorize(std::int32_t column, std::int32_t start, std::int32_t count) const {
    VariantArray array;
    extra_->Vectorize(column, array, start, count);
    return array;
  }

  MemorySet set_;
  Ref<IExtraSet> extra_ = set_.As<IExtraSet>();
};

TEST_F(InMemoryExtraSet, HasRowsOfItsOwnAndTheColumnsOfTheData) {
  EXPECT_TRUE(extra_->Exists());
  EXPECT_EQ(extra_->Rows(), 5);
  EXPECT_EQ(extra_->Columns(), 2);
}

TEST_F(InMemoryExtraSet, TakesTheColumnFirst) {
  set_.State().extra_set = CellArray(2, 3);
  extra_->SetItem(2, 1, 7);
  EXPECT_EQ(extra_->GetItem(2, 1), 7);
  EXPECT_EQ(set_.State().extra_set.Get(1, 2), 7);
  EXPECT_EQ(set_->GetItem(0, 0), 1) << "the data are others";
}

TEST_F(InMemoryExtraSet, RaisesOutsideItself) {
  for (const auto& place : {std::pair(1, 0), {0, 5}, {-1, 0}, {0, -1}}) {
    const std::int32_t column = place.first;
    const std::int32_t row = place.second;
    EXPECT_THAT(Raised([&] { extra_->GetItem(column, row); }), IsSubscriptError());
    EXPECT_THAT(Raised([&] { extra_->SetItem(column, row, 1); }), IsSubscriptError());
  }
}

TEST_F(InMemoryExtraSet, IsVectorizedWithSourcesOfItsOwn) {
  EXPECT_THAT(Vectorize(0, 3, -1).Elements(), ElementsAre(13.0, 14.0, kEmpty));
  EXPECT_THAT(Raised([&] { Vectorize(3, 0, -1); }),
              IsError(12125, "IExtraSet_Vectorize", "Column Index is too large."));
  EXPECT_THAT(Raised([&] { Vectorize(-1, 0, -1); }),
              IsError(12126, "IExtraSet_Vectorize", "Column Index is less than zero."));
}

TEST_F(InMemoryExtraSet, PassesTheTestOfColumnsThatTheDataHave) {
  EXPECT_THAT(Raised([&] { Vectorize(1, 0, -1); }), IsSubscriptError());
}

TEST_F(InMemoryExtraSet, EndsWithItsData) {
  const struct {
    const char* name;
    std::function<void()> change;
  } kChanges[] = {
      {"a text", [this] { set_.Parse("7,8"); }},
      {"a text with words",
       [this] {
         std::string text = "a,8\nb,9";
         set_.As<INominalDataSet>()->ParseString(text, separator_code::kComma, false, 1, 1, 2,
                                                 nullptr);
       }},
      {"nothing", [this] { set_->Clear(); }},
  };
  for (const auto& [name, change] : kChanges) {
    set_.State().extra_set = CellArray(5, 1);
    set_.State().extra_set_exists = true;
    change();
    EXPECT_FALSE(extra_->Exists()) << name;
    EXPECT_EQ(extra_->Rows(), 0) << name;
  }
}

TEST_F(InMemoryExtraSet, OutlivesATextThatIsRefused) {
  set_.State().extra_set = CellArray(5, 1);
  set_.State().extra_set_exists = true;
  set_.ErrorOf("7,8\n9");
  EXPECT_TRUE(extra_->Exists());
  EXPECT_EQ(extra_->Rows(), 5);
}

TEST_F(InMemoryExtraSet, StaysWhereNoOtherDataCome) {
  EXPECT_EQ(RaisedNumber([this] { set_.ParseFile(""); }), 41001);
  EXPECT_EQ(extra_->Rows(), 5);
  EXPECT_EQ(set_.As<IInMemorySet>()->Clone().As<IExtraSet>()->Rows(), 5);
}

class InMemoryVectorize : public testing::Test {
 protected:
  void Vectorize(std::int32_t column, std::int32_t start, std::int32_t count) {
    set_.As<IVectorize>()->Vectorize(column, array_, start, count);
  }
  Error ErrorOf(std::int32_t column, std::int32_t start, std::int32_t count) {
    return Raised([&] { Vectorize(column, start, count); });
  }

  MemorySet set_{"1,2\n3,4\n5,6\n7,8\n9,10"};
  VariantArray array_;
};

TEST_F(InMemoryVectorize, GivesOneElementMoreThanThereAreRows) {
  Vectorize(1, 0, -1);
  EXPECT_EQ(array_.LowerBound(), 0);
  EXPECT_THAT(array_.Elements(), ElementsAre(2.0, 4.0, 6.0, 8.0, 10.0, kEmpty));
}

TEST_F(InMemoryVectorize, KeepsItsSizePastTheData) {
  Vectorize(0, 3, 10);
  EXPECT_EQ(array_.LowerBound(), 3);
  EXPECT_EQ(array_.UpperBound(), 12);
  EXPECT_EQ(array_[3], Variant(7.0));
  EXPECT_EQ(array_[4], Variant(9.0));
  for (std::int32_t row = 5; row <= 12; ++row) EXPECT_EQ(array_[row], kEmpty) << row;
}

TEST_F(InMemoryVectorize, GivesTheRowsThatWereAskedFor) {
  Vectorize(1, 1, 3);
  EXPECT_EQ(array_.LowerBound(), 1);
  EXPECT_THAT(array_.Elements(), ElementsAre(4.0, 6.0, 8.0));
}

TEST_F(InMemoryVectorize, SizesTheArrayBeforeItTestsTheColumn) {
  EXPECT_THAT(ErrorOf(3, 1, 2), IsError(12125, "IDataSet_Vectorize", "Column Index is too large."));
  EXPECT_EQ(array_.LowerBound(), 1);
  EXPECT_EQ(array_.Size(), 2u);
  EXPECT_THAT(ErrorOf(-1, 0, -1),
              IsError(12126, "IDataSet_Vectorize", "Column Index is less than zero."));
  EXPECT_EQ(array_.Size(), 6u);
}

TEST_F(InMemoryVectorize, LetsTheColumnPastTheLastOneFailAtTheData) {
  EXPECT_THAT(ErrorOf(2, 0, -1), IsSubscriptError());
  EXPECT_EQ(array_.Size(), 6u);
  Vectorize(2, 0, 0);
  EXPECT_EQ(array_.Size(), 0u) << "no row was read";
}

TEST_F(InMemoryVectorize, RaisesForRowsBeforeTheFirst) {
  EXPECT_THAT(ErrorOf(0, -1, -1), IsSubscriptError());
  EXPECT_THAT(ErrorOf(0, -1, 3), IsSubscriptError());
}

TEST_F(InMemoryVectorize, IsEmptyFromAStartPastTheData) {
  for (const std::int32_t start : {6, 7, 100}) {
    Vectorize(0, start, -1);
    EXPECT_EQ(array_.Size(), 0u) << start;
    EXPECT_EQ(array_.LowerBound(), start);
  }
  Vectorize(0, 5, -1);
  EXPECT_THAT(array_.Elements(), ElementsAre(kEmpty));
}

TEST_F(InMemoryVectorize, RefusesNegativeCountsButMinusOne) {
  EXPECT_THAT(ErrorOf(0, 0, -2), IsSubscriptError());
  EXPECT_THAT(ErrorOf(0, 3, -5), IsSubscriptError());
}

TEST_F(InMemoryVectorize, LeavesWhatIsMissingEmpty) {
  set_.State().data->Put(1, 0, std::numeric_limits<double>::quiet_NaN());
  Vectorize(0, 0, 3);
  EXPECT_THAT(array_.Elements(), ElementsAre(1.0, kEmpty, 5.0));
}

TEST_F(InMemoryVectorize, GivesOneEmptyElementOfAnEmptySet) {
  MemorySet().As<IVectorize>()->Vectorize(0, array_, 0, -1);
  EXPECT_THAT(array_.Elements(), ElementsAre(kEmpty));
}

}  // namespace
}  // namespace tslm5
