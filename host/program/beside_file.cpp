#include "host/program/beside_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <random>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "host/program/file_placing.h"

namespace tslm5::host {
namespace {

constexpr std::string_view kMark = ".tslm5-";
constexpr std::size_t kNumberDigits = 16;
constexpr std::string_view kJournal = "-journal";  // which a database keeps beside itself
constexpr std::size_t kLongestName = 255;
constexpr int kMostTries = 100;
constexpr off_t kLockedByte = off_t{1} << 62;  // beyond those that a database locks

[[noreturn]] void Fail(int error) {
  throw std::system_error(error, std::generic_category());
}

/// What the names of all files beside `target` begin with. A long name is cut: a name has its
/// limit.
std::string PrefixOf(const std::string& target) {
  constexpr std::size_t kRoom = kLongestName - kMark.size() - kNumberDigits - kJournal.size();
  const std::string name = std::filesystem::path(target).filename().string();
  return name.substr(0, kRoom).append(kMark);
}

bool Lock(int descriptor) {
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  lock.l_start = kLockedByte;
  lock.l_len = 1;
  return ::fcntl(descriptor, F_OFD_SETLK, &lock) == 0;
}

bool HasName(int descriptor) {
  struct stat status {};
  if (::fstat(descriptor, &status) != 0) Fail(errno);
  return status.st_nlink > 0;
}

void RemoveWithJournal(const std::string& path) noexcept {
  try {
    ::unlink((path + std::string(kJournal)).c_str());  // first: alone it would belong to nothing
  } catch (const std::exception&) {                    // no memory for its name
  }
  ::unlink(path.c_str());
}

void RemoveIfUnused(const std::string& path) {
  const int descriptor = ::open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0) return;
  if (Lock(descriptor)) RemoveWithJournal(path);
  ::close(descriptor);
}

bool IsNumber(std::string_view text) {
  return text.size() == kNumberDigits &&
         text.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

/// Removes what programs that were killed have left behind.
void RemoveUnused(const std::filesystem::path& folder, std::string_view prefix) {
  std::vector<std::string> paths;
  std::error_code error;
  std::filesystem::directory_iterator entry(folder.empty() ? "." : folder, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (!name.starts_with(prefix) || !IsNumber(std::string_view(name).substr(prefix.size()))) {
      continue;
    }
    paths.push_back(entry->path().string());
  }
  std::for_each(paths.begin(), paths.end(), RemoveIfUnused);
}

}  // namespace

BesideFile::BesideFile(std::string target, mode_t mode) : target_(std::move(target)) {
  try {
    Make(mode);
  } catch (...) {
    if (descriptor_ >= 0) {
      RemoveWithJournal(path_);
      ::close(descriptor_);
    }
    throw;
  }
}

BesideFile::~BesideFile() {
  if (!is_moved_) RemoveWithJournal(path_);
  ::close(descriptor_);
}

void BesideFile::Make(mode_t mode) {
  const std::filesystem::path folder = std::filesystem::path(target_).parent_path();
  const std::string prefix = PrefixOf(target_);
  RemoveUnused(folder, prefix);
  std::random_device device;
  for (int i = 0; i < kMostTries; ++i) {
    const std::uint64_t number = (std::uint64_t{device()} << 32) | device();
    path_ = (folder / fmt::format("{}{:016x}", prefix, number)).string();
    descriptor_ = ::open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (descriptor_ < 0 && errno != EEXIST) Fail(errno);
    if (descriptor_ < 0) continue;
    // Another program may have taken it for an unused one before it was locked.
    const bool is_taken = !Lock(descriptor_) && (errno == EAGAIN || errno == EACCES);
    if (!is_taken && HasName(descriptor_)) return;
    ::close(std::exchange(descriptor_, -1));
  }
  Fail(EEXIST);
}

void BesideFile::Replace() {
  if (std::rename(path_.c_str(), target_.c_str()) != 0) Fail(errno);
  is_moved_ = true;
}

bool BesideFile::Place() {
  const int error = PlaceFile(path_, target_);
  if (error == EEXIST) return false;
  if (error != 0) Fail(error);
  is_moved_ = true;
  return true;
}

std::string EndOfLinks(const std::string& path) {
  constexpr int kMostLinks = 40;
  std::filesystem::path end = path;
  std::error_code error;
  for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(end, error); ++i) {
    end = end.parent_path() / std::filesystem::read_symlink(end, error);
  }
  return end.string();
}

}  // namespace tslm5::host
