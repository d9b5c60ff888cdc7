// Files that cannot be checked: none of them lets an error out.

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "datacheck/check_file.h"

namespace tslm5 {
namespace {

constexpr ::uid_t kSomeoneElse = 65534;

/// Makes a superuser someone who may not read everything, for the length of a scope.
class AsSomeoneElse {
 public:
  AsSomeoneElse() { is_other_ = before_ != 0 || ::seteuid(kSomeoneElse) == 0; }
  ~AsSomeoneElse() {
    if (::seteuid(before_) != 0) ADD_FAILURE() << "still someone else";
  }
  AsSomeoneElse(const AsSomeoneElse&) = delete;
  AsSomeoneElse& operator=(const AsSomeoneElse&) = delete;

  bool IsOther() const { return is_other_; }

 private:
  ::uid_t before_ = ::geteuid();
  bool is_other_ = false;
};

void ExpectRefused(const std::string& path, const std::string& text) {
  CheckEvents events;
  const CheckOutcome outcome = CheckPath(path, events);
  EXPECT_FALSE(outcome.result);
  EXPECT_EQ(outcome.message, text);
  EXPECT_THAT(events.seen, testing::ElementsAre(CheckEvent{"BeforeDataCheck", "", 0},
                                                CheckEvent{"AfterDataCheck", text, 0}));
}

TEST(DataCheckFiles, FindsNoFileOfAnAbsentName) {
  const TemporaryFolder folder;
  ExpectRefused(folder.PathOf("absent.txt"), "File not found.");
  ExpectRefused(folder.Write("data.txt", "1,2\n") + "/below.txt", "File not found.");
  ExpectRefused("", "File not found.");
}

TEST(DataCheckFiles, TakesAFolderForNoFile) {
  const TemporaryFolder folder;
  ExpectRefused(folder.Path(), "File not found.");
}

TEST(DataCheckFiles, RefusesAFileThatItMayNotRead) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("closed.txt", "1,2\n");
  ASSERT_EQ(::chmod(folder.Path().c_str(), 0755), 0);
  ASSERT_EQ(::chmod(path.c_str(), 0), 0);
  const AsSomeoneElse someone_else;
  if (!someone_else.IsOther()) GTEST_SKIP() << "the superuser may read everything";
  ExpectRefused(path, "Invalid file.");
}

TEST(DataCheckFiles, DoesNotBlameTheFileForAFailureOfTheSystem) {
  ExpectRefused("/proc/self/mem",
                "The file \"/proc/self/mem\" cannot be read: Input/output error.");
  const TemporaryFolder folder;
  const std::string loop = folder.PathOf("loop");
  std::filesystem::create_symlink("loop", loop);
  ExpectRefused(loop,
                "The file \"" + loop + "\" cannot be read: Too many levels of symbolic links.");
}

TEST(DataCheckFiles, TellsOfNoTextWithoutReadingItToItsEnd) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("zeros", "");
  std::filesystem::resize_file(path, std::uintmax_t{1} << 40u);
  ExpectRefused(path, "The file \"" + path +
                          "\" is not delimited text: its first line holds a NUL character and does "
                          "not end within 256 KiB.");
}

TEST(DataCheckFiles, ReadsTheFileBeforeTheFirstFeedback) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("data.txt", "1,2\n3,4\n");
  CheckEvents events;
  events.handler = [&path](const CheckEvent& event, IParseEventArgs&) {
    if (event.message == "Checking the separator...") std::filesystem::remove(path);
  };
  EXPECT_TRUE(CheckPath(path, events).result);
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(DataCheckFiles, LeavesTheFileAsItIs) {
  const TemporaryFolder folder;
  const std::string bytes = "1,2\r\n3,,4;\t\r\n\r\n";
  const std::string path = folder.Write("data.txt", bytes);
  CheckEvents events;
  EXPECT_TRUE(CheckPath(path, events).result);
  std::ifstream file(path, std::ios::binary);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), bytes);
}

}  // namespace
}  // namespace tslm5
