// Runs that cannot take a load: locked, read-only, full, or failing at any statement.
#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

using testing::HasSubstr;

constexpr std::int32_t kBusy = 5;
constexpr std::int32_t kReadOnly = 8;
constexpr std::int32_t kFull = 13;

class DataSetLiteRunFailure : public testing::Test {
 protected:
  DataSetLiteRunFailure() {
    const TestRun run(OpenRun(path_, {.mode = RunOptions::Mode::kReadWriteCreate}));
    CreateRunTables(*run.Connection());
    Parse(LiteSet(run, 1), "a,b\n1,2\n3,4\n", true);
  }

  static TestRun Open(const std::string& path, RunOptions::Mode mode) {
    return TestRun(OpenRun(path, {.mode = mode, .busy_timeout_ms = 1}));
  }

  void Parse(const LiteSet& set, std::string_view bytes, bool has_labels = false) const {
    set->Parse(folder_.Write("data.csv", bytes), separator_code::kComma, has_labels, 1, 1);
  }

  /// Expects that a load into the loaded set fails with `number`, and leaves the set whole.
  void ExpectFailure(const LiteSet& set, std::string_view bytes, std::int32_t number,
                     const char* words) const {
    const Lines before = set.Everything();
    const Ref<RecordingEvents> events = MakeObject<RecordingEvents>();
    const std::int32_t cookie = set.Listen(events);
    const Error error = Raised([&] { Parse(set, bytes); });
    EXPECT_EQ(error.Number() & 0xFF, number);
    EXPECT_THAT(error.Description(), HasSubstr(words));
    EXPECT_THAT(events->lines.back(), HasSubstr("AfterDataLoad 2 x 2: Data load failed."));
    EXPECT_EQ(set.Everything(), before);
    set.As<IConnectionPoint>()->Unadvise(cookie);
  }

  TemporaryFolder folder_;
  std::string path_ = folder_.PathOf("run.db");
};

TEST_F(DataSetLiteRunFailure, OfALockedRunEndsWithTheLock) {
  const TestRun run = Open(path_, RunOptions::Mode::kReadWrite);
  const LiteSet set;
  set.Load(run, 1);
  {
    const TestRun other = Open(path_, RunOptions::Mode::kReadWrite);
    other.Connection()->BeginTrans();
    ExpectFailure(set, "5,6\n", kBusy, "database is locked");
    other.Connection()->RollbackTrans();
  }
  Parse(set, "5,6\n");
  EXPECT_EQ(set.Records(), (Lines{"5,6"}));
}

TEST_F(DataSetLiteRunFailure, OfARunLockedForReadersTooKeepsTheRecordsRead) {
  const TestRun run = Open(path_, RunOptions::Mode::kReadWrite);
  const LiteSet set;
  set.Load(run, 1);
  set.Records();
  const TestRun other = Open(path_, RunOptions::Mode::kReadWrite);
  other.Execute("PRAGMA locking_mode = EXCLUSIVE");
  other.Execute("UPDATE RunParameters SET intvalue = 0");
  ExpectFailure(set, "5,6\n", kBusy, "database is locked");
}

TEST_F(DataSetLiteRunFailure, OfAReadOnlyRunLeavesItToBeRead) {
  const TestRun run = Open(path_, RunOptions::Mode::kReadOnly);
  const LiteSet set;
  EXPECT_TRUE(set.Load(run, 1));
  ExpectFailure(set, "5,6\n", kReadOnly, "readonly");
  EXPECT_NE(RaisedNumber([&] { set->Clear(); }), 0);
  EXPECT_EQ(set.Records(), (Lines{"1,2", "3,4"}));

  const TestRun writable = Open(path_, RunOptions::Mode::kReadWrite);
  set.Load(writable, 1);
  Parse(set, "5,6\n");
  EXPECT_EQ(set.Records(), (Lines{"5,6"}));
}

TEST_F(DataSetLiteRunFailure, OfAFullDiskEndsWithRoom) {
  std::string large;
  for (int i = 0; i < 3000; ++i) large += std::to_string(i) + ",0.5\n";
  const auto fill = [&](const TestRun& run, const LiteSet& set) {
    const std::string pages = run.Select("PRAGMA page_count").front();
    run.Execute("PRAGMA max_page_count = " + pages);
    ExpectFailure(set, large, kFull, "database or disk is full");
    run.Execute("PRAGMA max_page_count = 1000000");
    Parse(set, large);
    EXPECT_EQ(set->Rows(), 3000);
    EXPECT_EQ(set->GetItem(0, 2999), 2999.0);
  };
  const TestRun on_disk = Open(path_, RunOptions::Mode::kReadWrite);
  const LiteSet set;
  set.Load(on_disk, 1);
  fill(on_disk, set);

  const TestRun in_memory;
  CreateRunTables(*in_memory.Connection());
  const LiteSet other(in_memory, 1);
  Parse(other, "a,b\n1,2\n3,4\n", true);
  fill(in_memory, other);
}

/// Makes each statement of a load fail in turn, the begins and ends of transactions among them.
TEST_F(DataSetLiteRunFailure, AtAnyStatementLeavesTheSetWhole) {
  const TestRun run = Open(path_, RunOptions::Mode::kReadWrite);
  const LiteSet set;
  set.Load(run, 1);
  const Lines before = set.Everything();
  const Ref<RecordingEvents> events = set.Listen();
  std::size_t failures = 0;
  for (bool loaded = false; !loaded; ++failures) {
    events->lines.clear();
    run.Log().FailAt(failures + 1, Error(4711, "Test", "it fails"));
    const std::int32_t number = RaisedNumber([&] { Parse(set, "p,q,r\n7,8,9\n", true); });
    run.Log().before = nullptr;
    loaded = number == 0;
    if (loaded) break;
    ASSERT_EQ(number, 4711) << "statement " << failures + 1;
    EXPECT_THAT(events->lines.back(), HasSubstr("AfterDataLoad 2 x 3: Data load failed."));
    ASSERT_EQ(set.Everything(), before) << "statement " << failures + 1;
    ASSERT_FALSE(run.InTransaction()) << "statement " << failures + 1;
  }
  EXPECT_GT(failures, 8U) << "the begin, the drops, the makings, the record, the commit";
  EXPECT_EQ(set.Records(), (Lines{"7,8,9"}));
  EXPECT_EQ(set.Labels(), (Lines{"p", "q", "r"}));
}

TEST_F(DataSetLiteRunFailure, OfAClosedFileKeepsTheLoadThatWasDone) {
  {
    const TestRun run = Open(path_, RunOptions::Mode::kReadWrite);
    const LiteSet set;
    set.Load(run, 1);
    Parse(set, "5,6\n7,8\n");
    EXPECT_THAT(Raised([&] { Parse(set, "9,10\n11\n"); }).Description(),
                HasSubstr("Line 2 has 1 field"));
  }
  const TestRun run = Open(path_, RunOptions::Mode::kReadOnly);
  const LiteSet set;
  set.Load(run, 1);
  EXPECT_EQ(set.Records(), (Lines{"5,6", "7,8"}));
}

}  // namespace
}  // namespace tslm5
