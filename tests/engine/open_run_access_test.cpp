// Places that the user may not read or write. The superuser may do everything, so under that
// account a child process that has become nobody opens the run and tells what it met.

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "engine/engine_fixture.h"
#include "engine/interrupted_run.h"

namespace tslm5 {
namespace {

using testing::HasSubstr;

constexpr uid_t kNobody = 65534;

Error RaisedByOpening(const std::string& path, RunOptions::Mode mode) {
  RunOptions options;
  options.mode = mode;
  return Raised([&] { OpenRun(path, options); });
}

/// What `RaisedByOpening` gives to a user without special rights.
Error RaisedToACommonUser(const std::string& path, RunOptions::Mode mode) {
  if (geteuid() != 0) return RaisedByOpening(path, mode);
  int ends[2];
  if (pipe(ends) != 0) return Error(-1, "", "no pipe");
  const pid_t child = fork();
  if (child == 0) {
    if (setgid(kNobody) != 0 || setuid(kNobody) != 0) _exit(2);
    const Error error = RaisedByOpening(path, mode);
    const std::string told = std::to_string(error.Number()) + " " + error.Description();
    _exit(write(ends[1], told.data(), told.size()) == static_cast<ssize_t>(told.size()) ? 0 : 3);
  }
  close(ends[1]);
  std::string told;
  char buffer[4096];
  for (ssize_t size = 0; (size = read(ends[0], buffer, sizeof(buffer))) > 0;) {
    told.append(buffer, static_cast<std::size_t>(size));
  }
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  const std::size_t blank = told.find(' ');
  if (status != 0 || blank == std::string::npos) return Error(-1, "", "the child failed");
  return Error(std::stoi(told.substr(0, blank)), "", told.substr(blank + 1));
}

class OpenRunAccess : public testing::Test {
 protected:
  OpenRunAccess() {
    ConnectionOf(OpenRun(path_, Creating()))->Execute("CREATE TABLE t (a FLOAT)");
    Allow(folder_.Path(), 0777);
    Allow(path_, 0666);
  }
  ~OpenRunAccess() override { Allow(folder_.Path(), 0700); }

  static void Allow(const std::string& path, mode_t mode) {
    ASSERT_EQ(chmod(path.c_str(), mode), 0) << path;
  }

  TempFolder folder_;
  std::string path_ = folder_.File("run.db");
};

TEST_F(OpenRunAccess, IsGivenWhereNothingForbids) {
  EXPECT_EQ(RaisedToACommonUser(path_, RunOptions::Mode::kReadWrite).Number(), 0);
  EXPECT_EQ(RaisedToACommonUser(path_, RunOptions::Mode::kReadOnly).Number(), 0);
}

TEST_F(OpenRunAccess, RefusesAFileThatCannotBeRead) {
  Allow(path_, 0);
  const Error error = RaisedToACommonUser(path_, RunOptions::Mode::kReadOnly);
  EXPECT_EQ(error.Number(), error_number::kFileAccess);
  EXPECT_EQ(error.Description(), "The run " + path_ + " cannot be read: Permission denied.");
}

TEST_F(OpenRunAccess, RefusesAFileThatCannotBeWritten) {
  Allow(path_, 0444);
  const Error error = RaisedToACommonUser(path_, RunOptions::Mode::kReadWrite);
  EXPECT_EQ(error.Number(), error_number::kFileAccess);
  EXPECT_EQ(error.Description(), "The run " + path_ + " cannot be written: Permission denied.");
  EXPECT_EQ(RaisedToACommonUser(path_, RunOptions::Mode::kReadOnly).Number(), 0);
}

TEST_F(OpenRunAccess, RefusesAFolderThatCannotTakeTheJournal) {
  Allow(folder_.Path(), 0555);
  const Error error = RaisedToACommonUser(path_, RunOptions::Mode::kReadWrite);
  EXPECT_EQ(error.Number(), error_number::kFileAccess);
  EXPECT_THAT(error.Description(), HasSubstr("The run " + path_ + " cannot be written"));
  EXPECT_THAT(error.Description(), HasSubstr("folder " + folder_.Path()));
  EXPECT_EQ(RaisedToACommonUser(path_, RunOptions::Mode::kReadOnly).Number(), 0);
}

TEST_F(OpenRunAccess, RefusesToMakeAFileInAFolderThatCannotBeWritten) {
  Allow(folder_.Path(), 0555);
  const std::string path = folder_.File("new.db");
  const Error error = RaisedToACommonUser(path, RunOptions::Mode::kReadWriteCreate);
  EXPECT_EQ(error.Number(), error_number::kFileAccess);
  EXPECT_EQ(error.Description(), "The run " + path + " cannot be made, because its folder " +
                                     folder_.Path() + " cannot be written: Permission denied.");
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(OpenRunAccess, RefusesAFolderThatCannotBeEntered) {
  Allow(folder_.Path(), 0600);
  const Error error = RaisedToACommonUser(path_, RunOptions::Mode::kReadWrite);
  EXPECT_EQ(error.Number(), error_number::kFileAccess);
  EXPECT_EQ(error.Description(), "The run " + path_ + " cannot be read: Permission denied.");
}

class InterruptedRunAccess : public OpenRunAccess {
 protected:
  InterruptedRunAccess() {
    std::filesystem::remove(path_);
    MakeInterruptedRun(path_);
    Allow(path_, 0666);
    Allow(Journal(), 0666);
  }

  std::string Journal() const { return path_ + "-journal"; }
  std::string Told(const std::string& reason) const {
    return "The run " + path_ +
           " holds a change that was interrupted, which must be undone before the run can be read,"
           " but " +
           reason + ". Open it once where it can be written, or copy " + path_ + " and " +
           Journal() + " together to a folder that can be written and open the copy.";
  }
};

TEST_F(InterruptedRunAccess, IsRecoveredWhereNothingForbids) {
  EXPECT_EQ(RaisedToACommonUser(path_, RunOptions::Mode::kReadOnly).Number(), 0);
  EXPECT_FALSE(std::filesystem::exists(Journal()));
}

TEST_F(InterruptedRunAccess, TellsHowToRecoverInAFolderThatCannotBeWritten) {
  Allow(folder_.Path(), 0555);
  const Error error = RaisedToACommonUser(path_, RunOptions::Mode::kReadOnly);
  EXPECT_EQ(error.Number(), error_number::kFileAccess);
  EXPECT_EQ(error.Description(),
            Told("its folder " + folder_.Path() + " cannot be written: Permission denied"));
  EXPECT_TRUE(std::filesystem::exists(Journal()));
}

TEST_F(InterruptedRunAccess, TellsHowToRecoverAFileThatCannotBeWritten) {
  Allow(path_, 0444);
  const Error error = RaisedToACommonUser(path_, RunOptions::Mode::kReadOnly);
  EXPECT_EQ(error.Number(), error_number::kFileAccess);
  EXPECT_EQ(error.Description(), Told("the file cannot be written: Permission denied"));
}

}  // namespace
}  // namespace tslm5
