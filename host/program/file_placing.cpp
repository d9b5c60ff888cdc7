#include "host/program/file_placing.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

namespace tslm5::host {
namespace {

constexpr mode_t kClaimMode = 0600;

int Result(int returned) {
  return returned == 0 ? 0 : errno;
}

int PlaceByLink(const std::string& from, const std::string& to) {
  if (::link(from.c_str(), to.c_str()) != 0) return errno;
  ::unlink(from.c_str());  // a second name left behind does no harm
  return 0;
}

int PlaceByClaim(const std::string& from, const std::string& to) {
  const int claim = ::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kClaimMode);
  if (claim < 0) return errno;
  ::close(claim);
  const int error = Result(::rename(from.c_str(), to.c_str()));
  if (error != 0) ::unlink(to.c_str());
  return error;
}

}  // namespace

bool IsUnknownWay(int error) {
  return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP || error == EPERM ||
         error == EMLINK;
}

int PlaceBy(PlacingWay way, const std::string& from, const std::string& to) {
  switch (way) {
    case PlacingWay::kRename:
      return Result(::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE));
    case PlacingWay::kLink:
      return PlaceByLink(from, to);
    case PlacingWay::kClaim:
      break;
  }
  return PlaceByClaim(from, to);
}

int PlaceFile(const std::string& from, const std::string& to) {
  for (const PlacingWay way : {PlacingWay::kRename, PlacingWay::kLink}) {
    const int error = PlaceBy(way, from, to);
    if (!IsUnknownWay(error)) return error;
  }
  return PlaceBy(PlacingWay::kClaim, from, to);
}

int SyncFolderOf(const std::string& path) {
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  const int descriptor =
      ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return errno == EACCES ? 0 : errno;  // a folder that cannot be listed
  const int error = Result(::fsync(descriptor));
  ::close(descriptor);
  return error == EINVAL || error == EOPNOTSUPP ? 0 : error;
}

}  // namespace tslm5::host
