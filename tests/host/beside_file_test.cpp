#include "host/program/beside_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <system_error>

#include "tests/host/temporary_folder.h"

namespace tslm5::host {
namespace {

constexpr mode_t kMode = 0644;

std::string Read(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool Exists(const std::string& path) {
  return std::filesystem::exists(path);
}

/// What a program that was killed leaves: the file and a journal of it, with no lock on either.
std::string LeaveBehind(const std::string& target) {
  std::string left;
  {
    const BesideFile file(target, kMode);
    left = file.Path();
  }
  std::ofstream(left) << "half";
  std::ofstream(left + "-journal") << "journal";
  return left;
}

TEST(BesideFile, StandsInTheFolderOfItsTargetAndGoes) {
  const TemporaryFolder folder;
  std::string path;
  {
    const BesideFile file(folder.Path("run.db"), kMode);
    path = file.Path();
    EXPECT_TRUE(Exists(path));
    EXPECT_TRUE(path.starts_with(folder.Path("run.db.tslm5-"))) << path;
    std::ofstream(path + "-journal") << "journal";
  }
  EXPECT_FALSE(Exists(path));
  EXPECT_FALSE(Exists(path + "-journal"));
}

TEST(BesideFile, IsPlacedWhereNothingIs) {
  const TemporaryFolder folder;
  {
    BesideFile file(folder.Path("run.db"), kMode);
    ASSERT_EQ(::write(file.Descriptor(), "new", 3), 3);
    EXPECT_TRUE(file.Place());
    EXPECT_FALSE(Exists(file.Path()));
  }
  EXPECT_EQ(Read(folder.Path("run.db")), "new");
}

TEST(BesideFile, IsNotPlacedOverAnother) {
  const TemporaryFolder folder;
  std::string path;
  {
    BesideFile file(folder.Path("run.db"), kMode);
    path = file.Path();
    folder.Write("run.db", "other");
    EXPECT_FALSE(file.Place());
  }
  EXPECT_EQ(Read(folder.Path("run.db")), "other");
  EXPECT_FALSE(Exists(path));
}

TEST(BesideFile, ReplacesWhatIsThere) {
  const TemporaryFolder folder;
  {
    BesideFile file(folder.Write("page.html", "old"), kMode);
    ASSERT_EQ(::write(file.Descriptor(), "new", 3), 3);
    file.Replace();
  }
  EXPECT_EQ(Read(folder.Path("page.html")), "new");
}

TEST(BesideFile, RemovesWhatAKilledProgramLeft) {
  const TemporaryFolder folder;
  const std::string left = LeaveBehind(folder.Path("run.db"));
  const std::string other = LeaveBehind(folder.Path("run.db2"));
  const BesideFile file(folder.Path("run.db"), kMode);
  EXPECT_FALSE(Exists(left));
  EXPECT_FALSE(Exists(left + "-journal"));
  EXPECT_TRUE(Exists(other)) << "it stands beside another target";
}

TEST(BesideFile, LeavesThoseInUseAndOtherFiles) {
  const TemporaryFolder folder;
  const BesideFile used(folder.Path("run.db"), kMode);
  const std::string similar = folder.Write("run.db.tslm5-notes", "mine");
  const BesideFile file(folder.Path("run.db"), kMode);
  EXPECT_TRUE(Exists(used.Path()));
  EXPECT_TRUE(Exists(similar));
}

TEST(BesideFile, FitsBesideTheLongestName) {
  const TemporaryFolder folder;
  const std::string longest = folder.Path(std::string(255, 'r'));
  BesideFile file(longest, kMode);
  const std::string name = std::filesystem::path(file.Path()).filename();
  EXPECT_EQ(name.size() + std::string("-journal").size(), 255U);
  EXPECT_TRUE(file.Place());
  EXPECT_TRUE(Exists(longest));
}

TEST(BesideFile, TellsWhyItCannotBeMade) {
  const TemporaryFolder folder;
  std::optional<int> code;
  try {
    const BesideFile file(folder.Path("none/run.db"), kMode);
  } catch (const std::system_error& error) {
    code = error.code().value();
  }
  EXPECT_EQ(code, ENOENT);
}

TEST(EndOfLinks, FollowsAChainToAFileThatIsNotThere) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.Path("sub"));
  std::filesystem::create_symlink("sub/second", folder.Path("first"));
  std::filesystem::create_symlink("end.db", folder.Path("sub/second"));
  EXPECT_EQ(EndOfLinks(folder.Path("first")), folder.Path("sub/end.db"));
  EXPECT_EQ(EndOfLinks("plain.db"), "plain.db");
}

}  // namespace
}  // namespace tslm5::host
