#include "component/registration_file.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "component/class_objects.h"
#include "tslm5/component/entry_points.h"
#include "tslm5/component/registration.h"
#include "tslm5/component/registration_folders.h"

namespace tslm5 {
namespace {

constexpr std::string_view kComponentName = "TSLM5DataManager";

/// The path of the library that this code is in, links resolved; empty when it is not known.
std::filesystem::path LibraryPath() {
  Dl_info info{};
  if (::dladdr(reinterpret_cast<const void*>(&::DllRegisterServer), &info) == 0) return {};
  std::error_code error;
  return std::filesystem::canonical(info.dli_fname, error);
}

/// Where the registration goes; empty when the user has no folder for it.
std::filesystem::path RegistrationPath() {
  const std::filesystem::path folder = RegistrationFolder();
  if (folder.empty()) return {};
  return folder / (std::string(kComponentName) + std::string(kRegistrationSuffix));
}

/// The folder itself, or the innermost one around it that is there.
std::filesystem::path FirstThere(std::filesystem::path folder) {
  std::error_code error;
  while (folder.has_relative_path() && !std::filesystem::exists(folder, error)) {
    folder = folder.parent_path();
  }
  return folder;
}

bool WriteAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(descriptor, text.data(), text.size());
    if (written < 0 && errno != EINTR) return false;
    if (written > 0) text.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

/// Writes a new file, and its bytes to the disk.
bool WriteSynced(const std::filesystem::path& path, std::string_view text) {
  constexpr mode_t kMode = 0666;  // less what the user's mask takes away
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kMode);
  if (descriptor < 0) return false;
  const bool is_written = WriteAll(descriptor, text) && ::fsync(descriptor) == 0;
  return ::close(descriptor) == 0 && is_written;
}

/// Writes the names in a folder to the disk. A folder that cannot be listed, or whose file system
/// syncs by itself, is no failure.
bool SyncFolder(const std::filesystem::path& folder) {
  const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return errno == EACCES;
  const bool is_synced = ::fsync(descriptor) == 0 || errno == EINVAL || errno == EOPNOTSUPP;
  ::close(descriptor);
  return is_synced;
}

void AppendLine(std::string& text, std::string_view key, std::string_view value) {
  text.append(key).append(" ").append(value).append("\n");
}

}  // namespace

std::string RegistrationText(const std::string& library) {
  std::string text;
  AppendLine(text, "component", kComponentName);
  AppendLine(text, "version", TSLM5_VERSION);
  AppendLine(text, "library", library);
  for (const PublicClassName& entry : PublicClassNames()) {
    AppendLine(text, "class", std::string(entry.name) + " " + UuidText(entry.id));
  }
  return text;
}

RegistrationChange WriteRegistration() {
  const std::filesystem::path library = LibraryPath();
  const std::filesystem::path file = RegistrationPath();
  if (library.empty() || file.empty()) return RegistrationChange::kFailed;
  if (library.string().find_first_of("\r\n") != std::string::npos) {  // one line each
    return RegistrationChange::kFailed;
  }
  const std::filesystem::path first_there = FirstThere(file.parent_path());
  std::error_code error;
  std::filesystem::create_directories(file.parent_path(), error);
  static std::atomic<std::uint32_t> calls{0};  // several threads may register at once
  const std::filesystem::path fresh =
      file.string() + "." + std::to_string(::getpid()) + "." + std::to_string(calls++);
  if (!WriteSynced(fresh, RegistrationText(library.string())) ||
      ::rename(fresh.c_str(), file.c_str()) != 0) {
    ::unlink(fresh.c_str());
    return RegistrationChange::kFailed;
  }
  for (std::filesystem::path folder = file.parent_path();; folder = folder.parent_path()) {
    if (!SyncFolder(folder)) return RegistrationChange::kUnsynced;
    if (folder == first_there || !folder.has_relative_path()) return RegistrationChange::kDone;
  }
}

RegistrationChange RemoveRegistration() {
  const std::filesystem::path file = RegistrationPath();
  if (file.empty()) return RegistrationChange::kDone;
  if (::unlink(file.c_str()) != 0) {
    return errno == ENOENT || errno == ENOTDIR ? RegistrationChange::kDone
                                               : RegistrationChange::kFailed;
  }
  return SyncFolder(file.parent_path()) ? RegistrationChange::kDone : RegistrationChange::kUnsynced;
}

}  // namespace tslm5
