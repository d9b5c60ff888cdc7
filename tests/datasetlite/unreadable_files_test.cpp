// Paths with no file, or none that can be read, behind them.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

constexpr uid_t kNobody = 65534;

class DataSetLiteUnreadableFile : public DataSetLiteTest {
 protected:
  DataSetLiteUnreadableFile() { Parse("a,b\n1,2\n3,4\n", {.has_labels = true}); }
  ~DataSetLiteUnreadableFile() override { chmod(folder_.Path().c_str(), 0700); }

  /// Loads a path and expects error `number` with all that was loaded before whole.
  void ExpectRefusal(const std::string& path, std::int32_t number,
                     const std::string& description) const {
    const Lines before = set_.Everything();
    const Ref<RecordingEvents> events = MakeObject<RecordingEvents>();
    const std::int32_t cookie = set_.Listen(events);
    const Error error = Raised([&] { ParseFile(set_, path, {.separator = 0, .type = 2}); });
    EXPECT_EQ(error.Number(), number) << path;
    EXPECT_EQ(error.Description(), description);
    EXPECT_EQ(events->lines, (Lines{"AfterDataLoad 2 x 0: Data load failed."}));
    EXPECT_EQ(set_.Everything(), before);
    set_.As<IConnectionPoint>()->Unadvise(cookie);
  }

  /// Runs `check` as a user without special rights, in a child process if need be: 0 when every
  /// expectation held, 1 when not, -1 where there is no such user.
  template <class Check>
  static int AsACommonUser(Check check) {
    const auto failed_parts = [&check] {
      check();
      return testing::Test::HasFailure() ? 1 : 0;
    };
    if (geteuid() != 0) return failed_parts();
    const pid_t child = fork();
    if (child == 0) {
      if (setgid(kNobody) != 0 || setuid(kNobody) != 0) _exit(77);
      _exit(failed_parts());
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFEXITED(status)) return 1;
    return WEXITSTATUS(status) == 77 ? -1 : WEXITSTATUS(status);
  }
};

TEST_F(DataSetLiteUnreadableFile, ThatIsMissingIsNotFound) {
  for (const std::string& path :
       {folder_.PathOf("absent.csv"), folder_.PathOf("no/folder.csv"),
        folder_.PathOf("data.csv/below.csv"), folder_.PathOf("data.csv") + "/"}) {
    ExpectRefusal(path, 53, "The file " + path + " was not found.");
  }
}

TEST_F(DataSetLiteUnreadableFile, WithANulCharacterInItsNameIsNotFound) {
  const std::string path = folder_.PathOf("data.csv") + std::string(1, '\0') + "x";
  ExpectRefusal(path, 53, "The file " + path + " was not found.");
}

TEST_F(DataSetLiteUnreadableFile, ThatIsAFolderCannotBeRead) {
  ExpectRefusal(folder_.Path(), 75,
                folder_.Path() + " is a folder; a delimited text file was expected.");
}

TEST_F(DataSetLiteUnreadableFile, WithTooLongANameCannotBeRead) {
  const std::string path = folder_.PathOf(std::string(300, 'x'));
  ExpectRefusal(path, 75, "The file \"" + path + "\" cannot be read: File name too long.");
}

TEST_F(DataSetLiteUnreadableFile, ThatMayNotBeReadCannotBe) {
  const std::string path = folder_.Write("secret.csv", "1,2\n");
  ASSERT_EQ(chmod(path.c_str(), 0), 0);
  ASSERT_EQ(chmod(folder_.Path().c_str(), 0755), 0);
  const int failed = AsACommonUser([&] {
    ExpectRefusal(path, 75, "The file \"" + path + "\" cannot be read: Permission denied.");
  });
  if (failed < 0) GTEST_SKIP() << "no common user to be had";
  EXPECT_EQ(failed, 0);
}

TEST_F(DataSetLiteUnreadableFile, InAFolderThatMayNotBeSearchedCannotBeRead) {
  const std::string path = folder_.Write("secret.csv", "1,2\n");
  ASSERT_EQ(chmod(folder_.Path().c_str(), 0600), 0);
  const int failed = AsACommonUser([&] {
    ExpectRefusal(path, 75, "The file \"" + path + "\" cannot be read: Permission denied.");
  });
  if (failed < 0) GTEST_SKIP() << "no common user to be had";
  EXPECT_EQ(failed, 0);
}

}  // namespace
}  // namespace tslm5
