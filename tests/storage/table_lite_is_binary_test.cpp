// Whether the response of a data table has exactly two values.
#include <gtest/gtest.h>

#include "storage/table_lite.h"
#include "storage/test_run.h"

namespace tslm5 {
namespace {

struct ResponseCase {
  const char* name;
  Lines responses;
  bool binary;
};

TEST(TableLiteIsBinary, CountsTheDistinctValuesOfTheResponse) {
  const ResponseCase cases[] = {
      {"two", {"0", "1", "0"}, true},
      {"other than 0 and 1", {"-3", "2.5", "2.5"}, true},
      {"missing ones do not count", {"0", "1", "?"}, true},
      {"one and missing", {"0", "?", "?"}, false},
      {"one", {"1", "1"}, false},
      {"three", {"0", "1", "2"}, false},
      {"no row", {}, false},
  };
  for (const ResponseCase& c : cases) {
    const TestRun run;
    // The inputs have another number of values than the response.
    Lines lines;
    for (const std::string& response : c.responses) {
      lines.push_back(std::to_string(lines.size()) + " 5 " + response);
    }
    EXPECT_EQ(run.Filled(3, lines)->IsBinary(), c.binary) << c.name;
  }
}

TEST(TableLiteIsBinary, LooksAtTheTableOfItsOwnType) {
  const TestRun run;
  run.Filled(1, {"0", "1"}, 1);
  EXPECT_FALSE(run.Filled(1, {"0", "0"}, 2)->IsBinary());
}

TEST(TableLiteIsBinary, AsksOnlyWhenItIsAsked) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(2, {"7 0", "8 1"});
  table->LoadRecordSet();
  EXPECT_EQ(run.Log().statements, Lines({"SELECT * FROM TrainingSet;"}));
  EXPECT_TRUE(table->IsBinary());
  EXPECT_EQ(run.Log().statements.back(), "SELECT COUNT(DISTINCT d1) FROM TrainingSet");
}

TEST(TableLiteIsBinary, SeesTheTableAsItIsNow) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"0", "1"});
  EXPECT_TRUE(table->IsBinary());
  run.Execute("UPDATE TrainingSet SET d0 = 1");
  EXPECT_FALSE(table->IsBinary());
  ASSERT_TRUE(table->PutValue(0, 0, 2));
  EXPECT_TRUE(table->IsBinary());
}

TEST(TableLiteIsBinary, IsFalseWhenItCannotBeRead) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"0", "1"});
  run.Log().FailAt(1, Error(10, "TSLMRep5", "disk I/O error"));
  EXPECT_FALSE(table->IsBinary());
  EXPECT_TRUE(table->IsBinary());
  run.Execute("DROP TABLE TrainingSet");
  EXPECT_FALSE(table->IsBinary());
}

TEST(TableLiteIsBinary, IsFalseWithoutARecordSet) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"0", "1"});
  table->Dispose(true);
  EXPECT_FALSE(table->IsBinary());
}

TEST(TableLiteIsBinary, LeavesNoReaderOpen) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"0", "1"});
  EXPECT_TRUE(table->IsBinary());
  table->Drop(true);
  EXPECT_EQ(run.Schema(), Lines());
}

}  // namespace
}  // namespace tslm5
