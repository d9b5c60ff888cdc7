#include "host/program/page_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "host/program/beside_file.h"
#include "host/program/failure.h"
#include "host/program/file_placing.h"
#include "host/program/interruption.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

constexpr std::size_t kBeginning = 1024;
constexpr mode_t kMode = 0666;  // less what the user's mask takes away

[[noreturn]] void Fail(const std::string& path, int error) {
  throw Failure(ExitCode::kTrouble, fmt::format("{} cannot be written: {}", Escaped(path),
                                                std::generic_category().message(error)));
}

void Write(int descriptor, const std::string& path, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(descriptor, text.data(), text.size());
    if (written >= 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      Fail(path, errno);
    }
    StopIfInterrupted();
  }
}

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
  const std::string place = EndOfLinks(path);
  try {
    BesideFile file(place, kMode);
    Write(file.Descriptor(), path, text);
    if (::fsync(file.Descriptor()) != 0) Fail(path, errno);
    file.Replace();
  } catch (const std::system_error& error) {
    Fail(path, error.code().value());
  }
  if (const int error = SyncFolderOf(place); error != 0) {
    throw Failure(
        ExitCode::kTrouble,
        fmt::format("{} is written, but a power loss may still undo it: its folder cannot "
                    "be written to the disk: {}",
                    Escaped(path), std::generic_category().message(error)));
  }
}

void RequireFreePlace(const std::string& path, const std::string& run, std::string_view mark,
                      std::string_view kind, bool is_forced) {
  std::error_code error;
  if (std::filesystem::equivalent(path, run, error) && !error) {
    Misuse(fmt::format("{} is the run itself", Escaped(path)));
  }
  if (MayReplace(path, mark) || is_forced) return;
  Misuse(fmt::format("{} is there already and is no {}; --force replaces it", Escaped(path), kind));
}

}  // namespace tslm5::host
