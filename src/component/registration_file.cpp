#include "component/registration_file.h"

#include <dlfcn.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <fstream>
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

bool WriteRegistration() {
  const std::filesystem::path library = LibraryPath();
  const std::filesystem::path file = RegistrationPath();
  if (library.empty() || file.empty()) return false;
  if (library.string().find_first_of("\r\n") != std::string::npos) return false;  // one line each
  std::error_code error;
  std::filesystem::create_directories(file.parent_path(), error);
  static std::atomic<std::uint32_t> calls{0};  // several threads may register at once
  const std::filesystem::path fresh =
      file.string() + "." + std::to_string(::getpid()) + "." + std::to_string(calls++);
  std::ofstream stream(fresh, std::ios::trunc | std::ios::binary);
  stream << RegistrationText(library.string());
  stream.close();
  if (stream) std::filesystem::rename(fresh, file, error);
  if (stream && !error) return true;
  std::filesystem::remove(fresh, error);
  return false;
}

bool RemoveRegistration() {
  const std::filesystem::path file = RegistrationPath();
  if (file.empty()) return true;
  std::error_code error;
  std::error_code ignored;
  std::filesystem::remove(file, error);
  return !error || !std::filesystem::exists(file, ignored);
}

}  // namespace tslm5
