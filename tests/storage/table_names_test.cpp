#include "storage/table_names.h"

#include <gtest/gtest.h>

namespace tslm5 {
namespace {

struct NameCase {
  std::int32_t type;
  std::string_view table;
  std::string_view label_table;
};

// The two mappings differ at 3 and 1000.
constexpr NameCase kNames[] = {
    {1, "TrainingSet", "TrainingSet"},
    {2, "TestingSet", "TestingSet"},
    {3, "TimeSeriesTrainingSet", ""},
    {4, "", ""},
    {5, "TimeSeriesTestingSet", "TimeSeriesTestingSet"},
    {100, "", ""},
    {1000, "Unknown", ""},
    {0, "", ""},
    {-1, "", ""},
};

TEST(TableNames, GiveTheTableOfADataSetType) {
  for (const NameCase& name : kNames) EXPECT_EQ(TableName(name.type), name.table) << name.type;
}

TEST(TableNames, GiveTheTableAsLabelsKnowIt) {
  for (const NameCase& name : kNames) {
    EXPECT_EQ(LabelTableName(name.type), name.label_table) << name.type;
  }
}

}  // namespace
}  // namespace tslm5
