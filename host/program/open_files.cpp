#include "host/program/open_files.h"

#include <dirent.h>
#include <sys/stat.h>

#include <cerrno>
#include <charconv>
#include <memory>
#include <string_view>
#include <system_error>

namespace tslm5::host {
namespace {

constexpr const char* kOpenFiles = "/proc/self/fd";

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

[[noreturn]] void FailToTell() {
  throw std::system_error(errno, std::generic_category());
}

bool IsSameFile(const struct stat& left, const struct stat& right) {
  return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

}  // namespace

bool IsOpenFile(const std::string& path) {
  struct stat named {};
  if (::stat(path.c_str(), &named) != 0) {
    if (errno == ENOENT || errno == ENOTDIR) return false;
    FailToTell();
  }
  const std::unique_ptr<DIR, CloseFolder> folder(::opendir(kOpenFiles));
  if (!folder && errno == ENOENT) return true;
  if (!folder) FailToTell();
  bool can_tell = true;
  while (const dirent* entry = ::readdir(folder.get())) {
    const std::string_view name = static_cast<const char*>(entry->d_name);
    int descriptor = -1;
    std::from_chars(name.data(), name.data() + name.size(), descriptor);
    if (descriptor < 0) continue;
    struct stat open {};
    if (::fstat(descriptor, &open) != 0) {
      can_tell = false;
    } else if (IsSameFile(open, named)) {
      return true;
    }
  }
  if (!can_tell) throw std::system_error(EIO, std::generic_category());
  return false;
}

}  // namespace tslm5::host
