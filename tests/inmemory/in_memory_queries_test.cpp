// Figures of an `InMemorySet`, and what it carries for the interface's sake.
#include <gmock/gmock.h>

#include <limits>

#include "inmemory/memory_set.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

TEST(InMemoryQueries, AreExtremesOfARangeOfRows) {
  const MemorySet set("5,1\n-3,2\n9,3\n7,4");
  const struct {
    std::int32_t from, to;
    double maximum, minimum;
  } kCases[] = {{0, 0, 9, -3}, {0, 1, 5, -3},  {1, 2, 9, -3}, {3, 0, 7, 7},
                {2, 99, 9, 7}, {-5, 1, 5, -3}, {2, -1, 9, 7}, {0, 4, 9, -3}};
  for (const auto& [from, to, maximum, minimum] : kCases) {
    EXPECT_EQ(set->GetMax(0, from, to), maximum) << from << ' ' << to;
    EXPECT_EQ(set->GetMin(0, from, to), minimum) << from << ' ' << to;
  }
}

TEST(InMemoryQueries, StartFromTheContractsOwnLimits) {
  const MemorySet empty;
  EXPECT_EQ(empty->GetMax(0, 0, 0), -1.79769313486231E308);
  EXPECT_EQ(empty->GetMin(0, 0, 0), 1.69769313486232E308);
  const MemorySet set("1.7E308,1\n1.75E308,-1.797693134862315E308");
  EXPECT_EQ(set->GetMin(0, 0, 0), 1.69769313486232E308);
  EXPECT_EQ(set->GetMax(1, 1, 1), -1.79769313486231E308);
  EXPECT_EQ(set->GetMax(0, 5, 1), -1.79769313486231E308) << "no row is in the range";
}

TEST(InMemoryQueries, PassOverWhatIsMissing) {
  const MemorySet set("1,2\n3,4");
  set.State().data->Put(1, 0, kNone);
  EXPECT_EQ(set->GetMax(0, 0, 0), 1);
  EXPECT_EQ(set->GetMin(0, 0, 0), 1);
}

TEST(InMemoryQueries, RaiseForAColumnThatIsNotThere) {
  const MemorySet set("1,2\n3,4");
  EXPECT_EQ(RaisedNumber([&] { set->GetMax(2, 0, 0); }), 9);
  EXPECT_EQ(RaisedNumber([&] { set->GetMin(-1, 0, 0); }), 9);
}

TEST(InMemoryQueries, CountTheRarestResponse) {
  EXPECT_EQ(MemorySet("7,0\n7,0\n8,1\n9,-0")->GetTargetMinorityClassCount(), 1);
  EXPECT_EQ(MemorySet("7,0\n7,1\n8,1\n9,0")->GetTargetMinorityClassCount(), 2);
  EXPECT_EQ(MemorySet("7,5\n8,5\n9,5")->GetTargetMinorityClassCount(), 3);
  EXPECT_EQ(MemorySet()->GetTargetMinorityClassCount(), 0);
  const MemorySet gap("7,0\n7,0\n8,1");
  gap.State().data->Put(2, 1, kNone);
  EXPECT_EQ(gap->GetTargetMinorityClassCount(), 2);
}

TEST(InMemoryQueries, AverageTheInputsOfEachRow) {
  const MemorySet set("2,4,9\n5,4,8");
  set.State().data->Put(1, 0, kNone);
  VariantArray averages(std::vector<Variant>{"x"}, 7);
  set->GetAverageModel(averages);
  EXPECT_EQ(averages.LowerBound(), 0);
  EXPECT_THAT(averages.Elements(), ElementsAre(Variant(3.0), Variant(2.0)));
}

TEST(InMemoryQueries, AverageNoInputsOnlyWhereThereAreNoRows) {
  const MemorySet one_column;
  one_column.Parse("1\n2", {.separator = separator_code::kNone});
  VariantArray averages;
  EXPECT_THAT(Raised([&] { one_column->GetAverageModel(averages); }),
              IsError(11, "", "Division by zero"));
  averages = VariantArray(std::vector<Variant>{"x"});
  one_column->Clear();
  one_column->GetAverageModel(averages);
  EXPECT_EQ(averages.Size(), 0u);
}

TEST(InMemoryQueries, OfARunAreCarriedOnly) {
  const MemorySet set("1,2\n3,4");
  double class_value = 7;
  double value = 8;
  set->GetClassCentroid(0, 0, class_value, value);
  set->GetClassMedoid(0, 1, class_value, value);
  EXPECT_EQ(class_value, 7);
  EXPECT_EQ(value, 8);
  set->CalculateStatistics(nullptr);
  set->Replace("no such file", 2, false);
  EXPECT_THAT(set.Records(), ElementsAre("1,2", "3,4"));
  EXPECT_EQ(set->GetGlobalCentroid(0), 0);
  EXPECT_EQ(set->GetGlobalMedoid(0), 0);
  EXPECT_EQ(set->GetStandardDeviation(0), 0);
  EXPECT_EQ(set->GetTargetMajorityClass(), 0);
  EXPECT_EQ(set->GetTargetClassCount(0), 0);
  EXPECT_FALSE(set->HasClassRecordStatistics());
  EXPECT_FALSE(set->HasGlobalRecordStatistics());
  EXPECT_EQ(set->GetRowOriginalValue(0, 0), Variant(0));
  EXPECT_EQ(set->GetRowOriginalValueByRecordId(1, 0), Variant(0));
}

TEST(InMemoryQueries, OfIndexesNeedNoData) {
  const MemorySet set;
  EXPECT_TRUE(set->HasLabelPrefix());
  EXPECT_EQ(set->GetRowNumber(0), 1);
  EXPECT_EQ(RaisedNumber([&] { set->GetRowOriginalIndex(2147483647); }), 6);
  EXPECT_EQ(set->GetRowOriginalIndex(41), 42);
  EXPECT_EQ(set->GetColumnIndex(5), 5);
  EXPECT_EQ(set->SeparatorToString(4), "|");
  EXPECT_EQ(set->SeparatorToString(-1), "");
  EXPECT_EQ(RaisedNumber([&] { set->SeparatorToString(5); }), 41012);
}

}  // namespace
}  // namespace tslm5
