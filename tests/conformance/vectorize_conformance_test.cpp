// `IVectorize::Vectorize` of the data and `IExtraSet::Vectorize`: the same rules, other data.
#include <limits>

#include "conformance/set_under_test.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

const Variant kEmpty;

/// Column 0 of either holds 0, 10, 20, 30, 40; column 1 of the data one more.
class VectorizeConformance : public ConformanceTest {
 protected:
  VectorizeConformance() {
    Parse("0,1\n10,11\n20,21\n30,31\n40,41\n");
    made_->FillExtraSet({0, 10, 20, 30, 40});
  }

  /// Asks for a column of the data or of the extra set; returns the error's number.
  std::int32_t Take(bool is_extra, std::int32_t column, std::int32_t start, std::int32_t count) {
    error_ = Raised([&] {
      if (is_extra) {
        As<IExtraSet>()->Vectorize(column, array_, start, count);
      } else {
        As<IVectorize>()->Vectorize(column, array_, start, count);
      }
    });
    return error_.Number();
  }

  VariantArray array_;
  Error error_{0};
};
TSLM5_CONFORMANCE_SUITE(VectorizeConformance);

TEST_P(VectorizeConformance, GoesToTheEndAndOneElementBeyond) {
  for (const bool is_extra : {false, true}) {
    EXPECT_EQ(Take(is_extra, 0, 2, -1), 0);
    EXPECT_EQ(array_.LowerBound(), 2);
    EXPECT_THAT(array_.Elements(), ElementsAre(20.0, 30.0, 40.0, kEmpty));
  }
}

TEST_P(VectorizeConformance, KeepsItsSizePastTheData) {
  for (const bool is_extra : {false, true}) {
    EXPECT_EQ(Take(is_extra, 0, 3, 4), 0);
    EXPECT_EQ(array_.LowerBound(), 3);
    EXPECT_THAT(array_.Elements(), ElementsAre(30.0, 40.0, kEmpty, kEmpty));
    EXPECT_EQ(Take(is_extra, 0, 5, -1), 0);
    EXPECT_THAT(array_.Elements(), ElementsAre(kEmpty));
  }
}

TEST_P(VectorizeConformance, TakesNoRows) {
  for (const bool is_extra : {false, true}) {
    EXPECT_EQ(Take(is_extra, 0, 3, 0), 0);
    EXPECT_EQ(array_, VariantArray({}, 3));
    EXPECT_EQ(Take(is_extra, 0, 6, -1), 0);
    EXPECT_EQ(array_, VariantArray({}, 6));
  }
}

TEST_P(VectorizeConformance, RefusesNegativeCountsButMinusOne) {
  for (const bool is_extra : {false, true}) EXPECT_EQ(Take(is_extra, 0, 0, -2), 9);
}

TEST_P(VectorizeConformance, RefusesMoreElementsThanMemoryHolds) {
  constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
  array_ = VariantArray({Variant(1)});
  for (const bool is_extra : {false, true}) {
    EXPECT_EQ(Take(is_extra, 0, 0, kHighest), error_number::kOutOfMemory);
    EXPECT_EQ(error_.Description(), "Out of memory");
    EXPECT_EQ(Take(is_extra, 0, kLowest, -1), error_number::kOutOfMemory);
    EXPECT_EQ(array_.Size(), 1U) << "the array is as it was";
  }
}

TEST_P(VectorizeConformance, RefusesAColumnOnceTheArrayHasItsSize) {
  for (const bool is_extra : {false, true}) {
    const std::string source = is_extra ? "IExtraSet_Vectorize" : "IDataSet_Vectorize";
    EXPECT_EQ(Take(is_extra, 3, 4, 2), 12125);
    EXPECT_EQ(error_.Source(), source);
    EXPECT_EQ(error_.Description(), "Column Index is too large.");
    EXPECT_EQ(array_, VariantArray(std::vector<Variant>(2), 4));
    EXPECT_EQ(Take(is_extra, -1, 0, -1), 12126);
    EXPECT_EQ(error_.Source(), source);
    EXPECT_EQ(error_.Description(), "Column Index is less than zero.");
    EXPECT_EQ(array_.Size(), 6u);
  }
}

TEST_P(VectorizeConformance, PassesTheColumnBehindTheLastOnToTheData) {
  const bool has_keys = Means().behind_the_columns_are_row_keys;
  EXPECT_EQ(Take(false, 2, 0, 2), has_keys ? 0 : 9);
  const VariantArray keys({Variant(1.0), Variant(2.0)});
  EXPECT_EQ(array_, has_keys ? keys : VariantArray(std::vector<Variant>(2)));
}

TEST_P(VectorizeConformance, FindsNoRowsBeforeTheFirst) {
  for (const bool is_extra : {false, true}) {
    EXPECT_EQ(Take(is_extra, 0, -1, 2), Means().vectorize_before_the_data_error);
    EXPECT_EQ(array_.LowerBound(), -1);
    EXPECT_EQ(array_.Size(), 2u);
    EXPECT_EQ(array_[-1], kEmpty);
  }
}

TEST_P(VectorizeConformance, LeavesWhatIsMissingEmpty) {
  made_->MakeMissing(1, 1);
  EXPECT_EQ(Take(false, 1, 0, 3), 0);
  EXPECT_THAT(array_.Elements(), ElementsAre(1.0, kEmpty, 21.0));
}

TEST_P(VectorizeConformance, GivesNumbersOfTheOrderOfRows) {
  EXPECT_EQ(Take(false, 1, 0, 5), 0);
  EXPECT_THAT(array_.Elements(), ElementsAre(1.0, 11.0, 21.0, 31.0, 41.0));
}

}  // namespace
}  // namespace tslm5
