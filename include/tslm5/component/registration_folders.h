#ifndef TSLM5_COMPONENT_REGISTRATION_FOLDERS_H_
#define TSLM5_COMPONENT_REGISTRATION_FOLDERS_H_

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <vector>

namespace tslm5 {

/// The folders that are searched for registrations, in this order: with the environment variable
/// TSLM5_COMPONENTS that folder alone; else the user's (`$XDG_DATA_HOME`, by default
/// ~/.local/share) and the system's (/usr/local/share, /usr/share), each with /tslm5/components.
inline std::vector<std::filesystem::path> RegistrationFolders() {
  const auto variable = [](const char* name) {
    const char* value = ::secure_getenv(name);
    return std::filesystem::path(value == nullptr ? "" : value);
  };
  if (const auto chosen = variable("TSLM5_COMPONENTS"); !chosen.empty()) return {chosen};
  std::vector<std::filesystem::path> folders;
  if (const auto data = variable("XDG_DATA_HOME"); data.is_absolute()) {
    folders.push_back(data);
  } else if (const auto home = variable("HOME"); home.is_absolute()) {
    folders.push_back(home / ".local/share");
  }
  folders.insert(folders.end(), {"/usr/local/share", "/usr/share"});
  for (auto& folder : folders) folder /= "tslm5/components";
  return folders;
}

/// The folder that this user registers into: the user's own, or as root /usr/local/share's; with
/// TSLM5_COMPONENTS that one. Empty when the user has no home.
inline std::filesystem::path RegistrationFolder() {
  const std::vector<std::filesystem::path> folders = RegistrationFolders();
  if (folders.size() == 1) return folders.front();  // the chosen one
  if (::geteuid() == 0) return folders[folders.size() - 2];
  return folders.size() == 3 ? folders.front() : std::filesystem::path();
}

}  // namespace tslm5

#endif  // TSLM5_COMPONENT_REGISTRATION_FOLDERS_H_
