// `Vectorize` of the main table and of the extra one: the same rules, another table.
#include <gtest/gtest.h>

#include <limits>
#include <ostream>

#include "datasetlite/lite_set.h"
#include "tslm5/contracts/extra_set.h"
#include "tslm5/contracts/vectorize.h"

namespace tslm5 {
namespace {

/// Which table is asked, and under what source its errors come.
struct Asked {
  bool is_extra;
  const char* source;
};

void PrintTo(const Asked& asked, std::ostream* out) {
  *out << asked.source;
}

class DataSetLiteVectorize : public DataSetLiteTest, public testing::WithParamInterface<Asked> {
 protected:
  DataSetLiteVectorize() {
    std::string main;
    std::string extra;
    for (int i = 0; i < 10; ++i) {
      main += std::to_string(i) + "," + std::to_string(100 + i) + "\n";
      extra += std::to_string(500 + i) + "," + std::to_string(600 + i) + "\n";
    }
    ParseFile(LiteSet(run_, 5), File(extra), {.type = 5});
    Parse(main);
    set_.Load(run_, 1);
  }

  void Vectorize(const LiteSet& set, std::int32_t column, std::int32_t start, std::int32_t count) {
    if (GetParam().is_extra) {
      set.As<IExtraSet>()->Vectorize(column, array_, start, count);
    } else {
      set.As<IVectorize>()->Vectorize(column, array_, start, count);
    }
  }

  /// Asks for a column and returns the array's lower bound and elements, empty ones as "-".
  std::string Taken(std::int32_t column, std::int32_t start, std::int32_t count) {
    Vectorize(set_, column, start, count);
    std::string taken = std::to_string(array_.LowerBound()) + ":";
    for (const Variant& element : array_.Elements()) {
      EXPECT_TRUE(element.IsEmpty() || element.GetKind() == Variant::Kind::kDouble);
      taken += element.IsEmpty() ? " -" : " " + element.ToString();
    }
    return taken;
  }

  /// A cell as `Taken` shows it.
  std::string Cell(std::int32_t column, std::int32_t row) const {
    return std::to_string((GetParam().is_extra ? 500 : 0) + 100 * column + row);
  }

  VariantArray array_;
};

INSTANTIATE_TEST_SUITE_P(Tables, DataSetLiteVectorize,
                         testing::Values(Asked{false, "IDataSet_Vectorize"},
                                         Asked{true, "IExtraSet_Vectorize"}),
                         [](const testing::TestParamInfo<Asked>& tested) {
                           return tested.param.is_extra ? "Extra" : "Main";
                         });

TEST_P(DataSetLiteVectorize, CopiesRowsIntoAnArrayIndexedByRow) {
  EXPECT_EQ(Taken(1, 3, 2), "3: " + Cell(1, 3) + " " + Cell(1, 4));
  EXPECT_EQ(array_[3], Variant(GetParam().is_extra ? 603.0 : 103.0));
}

TEST_P(DataSetLiteVectorize, GoesToTheEndAndOneElementBeyond) {
  EXPECT_EQ(Taken(0, 8, -1), "8: " + Cell(0, 8) + " " + Cell(0, 9) + " -");
  Vectorize(set_, 0, 0, -1);
  EXPECT_EQ(array_.LowerBound(), 0);
  EXPECT_EQ(array_.UpperBound(), 10);
  EXPECT_TRUE(array_[10].IsEmpty());
  Vectorize(set_, 0, 1, -1);
  EXPECT_EQ(array_.LowerBound(), 1);
  EXPECT_EQ(array_.UpperBound(), 10);
}

TEST_P(DataSetLiteVectorize, LeavesElementsPastTheDataEmpty) {
  EXPECT_EQ(Taken(0, 8, 5), "8: " + Cell(0, 8) + " " + Cell(0, 9) + " - - -");
  EXPECT_EQ(Taken(0, 10, 2), "10: - -");
  EXPECT_EQ(Taken(0, 10, -1), "10: -");
  EXPECT_EQ(Taken(0, 40, 1), "40: -");
}

TEST_P(DataSetLiteVectorize, LeavesElementsBeforeTheDataEmpty) {
  EXPECT_EQ(Taken(0, -2, 3), "-2: - - " + Cell(0, 0));
}

TEST_P(DataSetLiteVectorize, TakesNoRows) {
  EXPECT_EQ(Taken(0, 3, 0), "3:");
}

TEST_P(DataSetLiteVectorize, TakesNoRowsToTheEndFromBehindIt) {
  EXPECT_EQ(Taken(0, 11, -1), "11:");
  EXPECT_EQ(Taken(0, 12, -1), "12:");
  EXPECT_EQ(Taken(0, 500, -1), "500:");
}

TEST_P(DataSetLiteVectorize, LeavesAMissingCellEmpty) {
  run_.Execute(GetParam().is_extra ? "UPDATE TimeSeriesTestingSet SET d0 = NULL WHERE row = 2"
                                   : "UPDATE TrainingSet SET d0 = NULL WHERE row = 2");
  EXPECT_EQ(Taken(0, 0, 3), "0: " + Cell(0, 0) + " - " + Cell(0, 2));
}

TEST_P(DataSetLiteVectorize, GivesTheRowKeysAsTheColumnBehindTheLast) {
  EXPECT_EQ(Taken(2, 0, 3), "0: 1 2 3");
}

TEST_P(DataSetLiteVectorize, RefusesAColumnOutsideOnceTheArrayHasItsSize) {
  struct {
    std::int32_t column;
    std::int32_t number;
    const char* description;
  } const cases[] = {
      {3, 12125, "Column Index is too large."},
      {std::numeric_limits<std::int32_t>::max(), 12125, "Column Index is too large."},
      {-1, 12126, "Column Index is less than zero."}};
  for (const auto& c : cases) {
    array_ = VariantArray({1, 2, 3, 4, 5, 6});
    const Error error = Raised([&] { Vectorize(set_, c.column, 4, 2); });
    EXPECT_EQ(error.Number(), c.number);
    EXPECT_EQ(error.Source(), GetParam().source);
    EXPECT_EQ(error.Description(), c.description);
    EXPECT_EQ(array_, VariantArray(std::vector<Variant>(2), 4));
  }
}

TEST_P(DataSetLiteVectorize, RefusesANegativeCountOtherThanMinusOne) {
  EXPECT_EQ(RaisedNumber([&] { Vectorize(set_, 0, 0, -2); }), 9);
}

TEST_P(DataSetLiteVectorize, OfNoTableIsAnArrayOfEmptyElements) {
  const LiteSet set;
  Vectorize(set, 0, 2, 3);
  EXPECT_EQ(array_, VariantArray(std::vector<Variant>(3), 2));
  Vectorize(set, 0, -3, 5);
  EXPECT_EQ(array_, VariantArray(std::vector<Variant>(5), -3));
  Vectorize(set, 0, 0, -1);
  EXPECT_EQ(array_.UpperBound(), 0);
  EXPECT_EQ(RaisedNumber([&] { Vectorize(set, 1, 0, -1); }), 12125);
}

}  // namespace
}  // namespace tslm5
