// A run whose last change was interrupted: the journal still stands beside it.

#include <fcntl.h>
#include <sys/stat.h>

#include "engine/engine_fixture.h"
#include "engine/interrupted_run.h"
#include "tslm5/engine/run_recovery.h"

namespace tslm5 {
namespace {

constexpr const char* kFigures = "SELECT count(*) || ' ' || min(a) || ' ' || max(a) FROM t";
constexpr const char* kWhole = "1000 1 1000";

class InterruptedRun : public testing::Test {
 protected:
  InterruptedRun() { MakeInterruptedRun(path_); }

  static RunOptions In(RunOptions::Mode mode) {
    RunOptions options;
    options.mode = mode;
    return options;
  }
  std::string JournalPath() const { return path_ + "-journal"; }

  TempFolder folder_;
  std::string path_ = folder_.File("run.db");
};

TEST_F(InterruptedRun, IsMixedWithoutItsJournal) {
  std::filesystem::remove(JournalPath());
  const auto run = OpenRun(path_, In(RunOptions::Mode::kReadOnly));
  EXPECT_NE(Listed(ConnectionOf(run), kFigures), kWhole);
}

TEST_F(InterruptedRun, IsRecoveredByOpeningItInWhateverMode) {
  for (const auto mode : {RunOptions::Mode::kReadOnly, RunOptions::Mode::kReadWrite,
                          RunOptions::Mode::kReadWriteCreate}) {
    std::filesystem::remove(path_);
    std::filesystem::remove(JournalPath());
    MakeInterruptedRun(path_);
    const auto run = OpenRun(path_, In(mode));
    EXPECT_EQ(Listed(ConnectionOf(run), kFigures), kWhole);
    EXPECT_FALSE(std::filesystem::exists(JournalPath()));
    EXPECT_TRUE(Query<IRunRecovery>(run.get())->WasRecovered());
  }
}

TEST_F(InterruptedRun, OpenedForReadingStaysReadOnly) {
  const auto run = OpenRun(path_, In(RunOptions::Mode::kReadOnly));
  EXPECT_EQ(RaisedNumber([&] { ConnectionOf(run)->Execute("DELETE FROM t"); }), SQLITE_READONLY);
}

TEST_F(InterruptedRun, TellsWhenItWasInterrupted) {
  const timespec when[2] = {{1700000000, 0}, {1700000000, 0}};
  ASSERT_EQ(utimensat(AT_FDCWD, JournalPath().c_str(), when, 0), 0);
  const auto run = OpenRun(path_, In(RunOptions::Mode::kReadOnly));
  EXPECT_EQ(Query<IRunRecovery>(run.get())->InterruptedAt(), 1700000000);
}

TEST_F(InterruptedRun, TellsOfTheRecoveryToWhoeverMadeItAlone) {
  OpenRun(path_, In(RunOptions::Mode::kReadOnly));
  const auto again = OpenRun(path_, In(RunOptions::Mode::kReadOnly));
  EXPECT_FALSE(Query<IRunRecovery>(again.get())->WasRecovered());
  EXPECT_EQ(Query<IRunRecovery>(again.get())->InterruptedAt(), 0);
}

TEST_F(InterruptedRun, IsRecoveredThroughALinkFromAnotherFolder) {
  const TempFolder other;
  std::filesystem::create_symlink(path_, other.File("link.db"));
  const auto run = OpenRun(other.File("link.db"), In(RunOptions::Mode::kReadOnly));
  EXPECT_TRUE(Query<IRunRecovery>(run.get())->WasRecovered());
  EXPECT_EQ(Listed(ConnectionOf(run), kFigures), kWhole);
}

TEST_F(InterruptedRun, IsNotOneThatAnotherProgramIsStillChanging) {
  const std::string path = folder_.File("busy.db");
  BareDatabase writer(path);
  writer.Run("CREATE TABLE t (a INTEGER)");
  writer.Run("INSERT INTO t VALUES (1)");
  writer.Run("BEGIN");
  writer.Run("UPDATE t SET a = 2");
  ASSERT_TRUE(std::filesystem::exists(path + "-journal"));
  const auto run = OpenRun(path, In(RunOptions::Mode::kReadOnly));
  EXPECT_FALSE(Query<IRunRecovery>(run.get())->WasRecovered());
  EXPECT_EQ(Listed(ConnectionOf(run), "SELECT a FROM t"), "1");
  EXPECT_EQ(writer.Run("COMMIT"), SQLITE_OK);
}

TEST_F(InterruptedRun, SharesItsIdentityWithItsRecoveryFace) {
  const auto run = OpenRun(path_, In(RunOptions::Mode::kReadOnly));
  const auto recovery = Query<IRunRecovery>(run.get());
  EXPECT_EQ(Query<IUnknown>(recovery.get()).get(), Query<IUnknown>(run.get()).get());
  EXPECT_EQ(Query<IConnectionService>(recovery.get()).get(), run.get());
}

}  // namespace
}  // namespace tslm5
