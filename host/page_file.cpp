#include "host/page_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "host/failure.h"
#include "host/interruption.h"
#include "host/shown_text.h"

namespace tslm5::host {
namespace {

constexpr std::size_t kBeginning = 1024;
constexpr mode_t kMode = 0666;  // less what the user's mask takes away

[[noreturn]] void Fail(const std::string& path, int error) {
  throw Failure(ExitCode::kTrouble, fmt::format("{} cannot be written: {}", Escaped(path),
                                                std::generic_category().message(error)));
}

/// Where a chain of symbolic links ends, whether or not a file is there.
std::string EndOfLinks(std::filesystem::path path) {
  constexpr int kMostLinks = 40;
  std::error_code error;
  for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(path, error); ++i) {
    path = path.parent_path() / std::filesystem::read_symlink(path, error);
  }
  return path.string();
}

/// A file that goes away again unless it is put in its place.
class BesideFile {
 public:
  explicit BesideFile(const std::string& path)
      : path_(path), beside_(fmt::format("{}.{}.part", path, ::getpid())) {
    ::unlink(beside_.c_str());  // of a program that ended in the midst of it
    descriptor_ = ::open(beside_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kMode);
    if (descriptor_ < 0) Fail(path_, errno);
  }
  BesideFile(const BesideFile&) = delete;
  BesideFile& operator=(const BesideFile&) = delete;
  ~BesideFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
    if (!is_placed_) ::unlink(beside_.c_str());
  }

  void Write(std::string_view text) const {
    while (!text.empty()) {
      const ssize_t written = ::write(descriptor_, text.data(), text.size());
      if (written >= 0) {
        text.remove_prefix(static_cast<std::size_t>(written));
      } else if (errno != EINTR) {
        Fail(path_, errno);
      }
      StopIfInterrupted();
    }
  }

  void PutInPlace() {
    if (::fsync(descriptor_) != 0) Fail(path_, errno);
    const int closed = ::close(descriptor_);
    descriptor_ = -1;
    if (closed != 0) Fail(path_, errno);
    if (std::rename(beside_.c_str(), path_.c_str()) != 0) Fail(path_, errno);
    is_placed_ = true;
  }

 private:
  std::string path_;
  std::string beside_;
  int descriptor_ = -1;
  bool is_placed_ = false;
};

}  // namespace

bool MayReplace(const std::string& path, std::string_view mark) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    if (errno == ENOENT) return true;
    Fail(path, errno);
  }
  if (!S_ISREG(status.st_mode)) {
    throw Failure(ExitCode::kTrouble, fmt::format("{} is no file", Escaped(path)));
  }
  std::array<char, kBeginning> beginning{};
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) Fail(path, errno);
  const ssize_t size = ::read(descriptor, beginning.data(), beginning.size());
  ::close(descriptor);
  if (size < 0) Fail(path, errno);
  const std::string_view text(beginning.data(), static_cast<std::size_t>(size));
  return text.find(mark) != std::string_view::npos;
}

void WriteWhole(const std::string& path, std::string_view text) {
  BesideFile file(EndOfLinks(path));
  file.Write(text);
  file.PutInPlace();
}

void RequireFreePlace(const std::string& path, const std::string& run, std::string_view mark,
                      std::string_view kind, bool is_forced) {
  std::error_code error;
  if (std::filesystem::equivalent(path, run, error) && !error) {
    throw Failure(ExitCode::kUsage, fmt::format("{} is the run itself", Escaped(path)));
  }
  if (MayReplace(path, mark) || is_forced) return;
  throw Failure(
      ExitCode::kUsage,
      fmt::format("{} is there already and is no {}; --force replaces it", Escaped(path), kind));
}

}  // namespace tslm5::host
