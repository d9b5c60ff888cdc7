#include "host/program/open_files.h"

#include <dirent.h>
#include <sys/stat.h>

#include <cerrno>
#include <charconv>
#include <memory>
#include <string_view>

namespace tslm5::host {
namespace {

constexpr const char* kOpenFiles = "/proc/self/fd";

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

bool IsSameFile(const struct stat& left, const struct stat& right) {
  return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

}  // namespace

bool IsOpenFile(const std::string& path) {
  const std::unique_ptr<DIR, CloseFolder> folder(::opendir(kOpenFiles));
  if (!folder) return true;
  struct stat named {};
  if (::stat(path.c_str(), &named) != 0) return errno != ENOENT && errno != ENOTDIR;
  while (const dirent* entry = ::readdir(folder.get())) {
    const std::string_view name = static_cast<const char*>(entry->d_name);
    int descriptor = -1;
    std::from_chars(name.data(), name.data() + name.size(), descriptor);
    struct stat open {};
    if (descriptor >= 0 && ::fstat(descriptor, &open) == 0 && IsSameFile(open, named)) return true;
  }
  return false;
}

}  // namespace tslm5::host
