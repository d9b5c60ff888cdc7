#include "host/program/file_placing.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/host/temporary_folder.h"

namespace tslm5::host {
namespace {

std::string Read(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class FilePlacing : public testing::TestWithParam<PlacingWay> {};

TEST_P(FilePlacing, MovesToAFreeName) {
  const TemporaryFolder folder;
  const std::string from = folder.Write("from", "new");
  EXPECT_EQ(PlaceBy(GetParam(), from, folder.Path("to")), 0);
  EXPECT_EQ(Read(folder.Path("to")), "new");
  EXPECT_FALSE(std::filesystem::exists(from));
}

TEST_P(FilePlacing, LeavesWhatIsThere) {
  const TemporaryFolder folder;
  const std::string from = folder.Write("from", "new");
  const std::string to = folder.Write("to", "old");
  EXPECT_EQ(PlaceBy(GetParam(), from, to), EEXIST);
  EXPECT_EQ(Read(to), "old");
  EXPECT_EQ(Read(from), "new");
}

TEST_P(FilePlacing, LeavesNothingWhereItFails) {
  const TemporaryFolder folder;
  EXPECT_EQ(PlaceBy(GetParam(), folder.Path("absent"), folder.Path("to")), ENOENT);
  EXPECT_FALSE(std::filesystem::exists(folder.Path("to")));
}

INSTANTIATE_TEST_SUITE_P(Ways, FilePlacing,
                         testing::Values(PlacingWay::kRename, PlacingWay::kLink,
                                         PlacingWay::kClaim));

TEST(PlaceFile, TriesTheNextWayWhereTheFileSystemDoesNotKnowOne) {
  for (const int error : {EINVAL, ENOSYS, EOPNOTSUPP, EPERM, EMLINK}) {
    EXPECT_TRUE(IsUnknownWay(error)) << error;
  }
  for (const int error : {0, EEXIST, ENOENT, ENOSPC, EIO, EACCES}) {
    EXPECT_FALSE(IsUnknownWay(error)) << error;
  }
}

TEST(SyncFolderOf, KnowsTheFolderOfAPlainName) {
  const TemporaryFolder folder;
  EXPECT_EQ(SyncFolderOf(folder.Path("file")), 0);
  EXPECT_EQ(SyncFolderOf("file"), 0);
  EXPECT_EQ(SyncFolderOf(folder.Path("absent/file")), ENOENT);
}

}  // namespace
}  // namespace tslm5::host
