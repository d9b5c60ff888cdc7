// The cells of the extra set that `Save` still has to write, on a run that a second connection
// looks at: a question to the first one would write them.
#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"
#include "tslm5/contracts/extra_set.h"

namespace tslm5 {
namespace {

constexpr std::int32_t kReadOnly = 8;

class DataSetLiteSavePending : public testing::Test {
 protected:
  DataSetLiteSavePending() {
    const TestRun run(OpenRun(path_, {.mode = RunOptions::Mode::kReadWriteCreate}));
    CreateRunTables(*run.Connection());
    const std::string series = folder_.Write("series.csv", "10\n20\n");
    LiteSet(run, 5)->Parse(series, separator_code::kNone, false, 5, 1);
    const std::string records = folder_.Write("data.csv", "a,b\n1,2\n");
    LiteSet(run, 1)->Parse(records, separator_code::kComma, true, 1, 1);
  }

  TestRun Open(RunOptions::Mode mode = RunOptions::Mode::kReadWrite) const {
    return TestRun(OpenRun(path_, {.mode = mode}));
  }
  /// The samples as another program finds them.
  Lines Samples() const {
    return Open(RunOptions::Mode::kReadOnly).TableRows("TimeSeriesTestingSet");
  }
  static void Refuse(const TestRun& run) {
    run.Execute(
        "CREATE TRIGGER refuse BEFORE UPDATE ON TimeSeriesTestingSet"
        " BEGIN SELECT RAISE(ABORT, 'no'); END");
  }

  TemporaryFolder folder_;
  std::string path_ = folder_.PathOf("run.db");
};

TEST_F(DataSetLiteSavePending, AreWrittenWhenItSaysSo) {
  const TestRun run = Open();
  const LiteSet set;
  set.Load(run, 1);
  set.As<IExtraSet>()->SetItem(0, 0, 77);
  EXPECT_EQ(Samples(), (Lines{"10|1", "20|2"})) << "not yet";
  set.SetDirty(false);  // as a caller may: the cell is pending all the same
  EXPECT_TRUE(set.Save(run, 1));
  EXPECT_EQ(Samples(), (Lines{"77|1", "20|2"}));
}

TEST_F(DataSetLiteSavePending, AreWrittenAlsoWithoutDataBesideThem) {
  const TestRun run = Open();
  const LiteSet set;
  ASSERT_FALSE(set.Load(run, data_set_type::kTesting));
  set.As<IExtraSet>()->SetItem(0, 1, 88);
  EXPECT_FALSE(set.Save(run, data_set_type::kTesting)) << "there is no testing set to save";
  EXPECT_EQ(Samples(), (Lines{"10|1", "88|2"}));
}

TEST_F(DataSetLiteSavePending, MakeItFalseWhereTheyCannotBeWritten) {
  const TestRun run = Open();
  const LiteSet set;
  set.Load(run, 1);
  set->SetLabels("p q");
  Refuse(run);
  set.As<IExtraSet>()->SetItem(0, 0, 77);
  EXPECT_FALSE(set.Save(run, 1));
  EXPECT_TRUE(set.IsDirty());
  EXPECT_EQ(Samples(), (Lines{"10|1", "20|2"}));
  EXPECT_TRUE(Open(RunOptions::Mode::kReadOnly).TableRows("DataSetLabels").empty());
}

TEST_F(DataSetLiteSavePending, AreRefusedAtOnceByARunThatCanOnlyBeRead) {
  const TestRun run = Open(RunOptions::Mode::kReadOnly);
  const LiteSet set;
  set.Load(run, 1);
  const Ref<IExtraSet> extra = set.As<IExtraSet>();
  const Error error = Raised([&] { extra->SetItem(0, 0, 77); });
  EXPECT_EQ(error.Number(), kReadOnly);
  EXPECT_THAT(error.Description(), testing::HasSubstr("the run was opened for reading only"));
  EXPECT_EQ(extra->GetItem(0, 0), 10.0);
  EXPECT_FALSE(set.IsDirty());
  EXPECT_NO_THROW(set.As<IDisposable>()->Dispose(true));
}

}  // namespace
}  // namespace tslm5
