#ifndef TSLM5_COMPONENT_REGISTRATION_H_
#define TSLM5_COMPONENT_REGISTRATION_H_

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "tslm5/platform/uuid.h"

namespace tslm5 {

/// A component as it was registered: one small text file that tells where its library is and which
/// classes it makes. A line is a key, a blank and a value:
///
///     component TSLM5DataManager
///     version 0.1.0
///     library /usr/lib/x86_64-linux-gnu/libTSLM5DataManager.so.0.1.0
///     class DataSetLite 54534c4d350000c1-8a1f4c0b6d2e73c1
///
/// Lines with other keys are passed over.
struct RegisteredComponent {
  /// One class that the component makes.
  struct Class {
    std::string name;  ///< what follows the point in "TSLM5DataManager.DataSetLite"
    Uuid id;           ///< what its `DllGetClassObject` knows the class by
  };

  std::string name;               ///< what stands before the point
  std::string version;            ///< as registered, for display alone; may be ""
  std::filesystem::path library;  ///< that is loaded
  std::vector<Class> classes;     ///< in the order of the file
  std::filesystem::path file;     ///< that this was read from
};

/// What the name of a registration's file ends in, behind the component's name.
inline constexpr std::string_view kRegistrationSuffix = ".component";

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

/// The identifier as two groups of 16 hexadecimal digits with "-" between them.
inline std::string UuidText(const Uuid& id) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  for (const std::uint64_t group : {id.high, id.low}) {
    if (!text.empty()) text += '-';
    for (int shift = 60; shift >= 0; shift -= 4) text += kDigits[(group >> shift) & 0xf];
  }
  return text;
}

/// The identifier written as two groups of 16 hexadecimal digits; nothing when it is not.
inline std::optional<Uuid> ParseUuid(std::string_view text) {
  constexpr std::size_t kDigits = 16;
  if (text.size() != 2 * kDigits + 1 || text[kDigits] != '-') return std::nullopt;
  const auto group = [](std::string_view digits, std::uint64_t& value) {
    const char* end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, value, 16);
    return read.ec == std::errc() && read.ptr == end;
  };
  Uuid id;
  if (!group(text.substr(0, kDigits), id.high) || !group(text.substr(kDigits + 1), id.low)) {
    return std::nullopt;
  }
  return id;
}

/// Reads one registration; nothing when the file cannot be read or names no component or library.
inline std::optional<RegisteredComponent> ReadRegistration(const std::filesystem::path& file) {
  std::ifstream stream(file);
  RegisteredComponent component;
  component.file = file;
  for (std::string line; std::getline(stream, line);) {
    const std::size_t blank = line.find(' ');
    if (blank == std::string::npos) continue;
    const std::string key = line.substr(0, blank);
    const std::string value = line.substr(blank + 1);
    if (key == "component") component.name = value;
    if (key == "version") component.version = value;
    if (key == "library") component.library = value;
    if (key != "class") continue;
    const std::size_t end = value.find(' ');
    if (end == std::string::npos) continue;
    if (const auto id = ParseUuid(std::string_view(value).substr(end + 1))) {
      component.classes.push_back({value.substr(0, end), *id});
    }
  }
  if (component.name.empty() || component.library.empty()) return std::nullopt;
  return component;
}

/// Every registered component, the first of each name, in the order of the folders and then of the
/// names. A file that is no registration is passed over.
inline std::vector<RegisteredComponent> RegisteredComponents() {
  std::vector<RegisteredComponent> components;
  for (const std::filesystem::path& folder : RegistrationFolders()) {
    std::vector<std::filesystem::path> files;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
      if (entry->path().extension() == kRegistrationSuffix) files.push_back(entry->path());
    }
    std::sort(files.begin(), files.end());
    for (const std::filesystem::path& file : files) {
      auto component = ReadRegistration(file);
      const bool is_new =
          component && std::none_of(components.begin(), components.end(), [&](const auto& known) {
            return known.name == component->name;
          });
      if (is_new) components.push_back(*std::move(component));
    }
  }
  return components;
}

}  // namespace tslm5

#endif  // TSLM5_COMPONENT_REGISTRATION_H_
