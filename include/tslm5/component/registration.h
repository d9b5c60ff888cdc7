#ifndef TSLM5_COMPONENT_REGISTRATION_H_
#define TSLM5_COMPONENT_REGISTRATION_H_

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "tslm5/component/registration_folders.h"
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
/// Lines with other keys are passed over. A library's path that is not absolute goes from the
/// folder of the file; a name alone is looked for where the system looks for libraries.
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

/// Reads one registration; nothing when the file cannot be read, is no file of at most 64 KiB, or
/// names no component or library. Lines may end with CR LF.
inline std::optional<RegisteredComponent> ReadRegistration(const std::filesystem::path& file) {
  constexpr std::uintmax_t kLargest = std::uintmax_t{1} << 16;
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error)) return std::nullopt;
  if (std::filesystem::file_size(file, error) > kLargest) return std::nullopt;
  std::ifstream stream(file);
  RegisteredComponent component;
  component.file = file;
  for (std::string line; std::getline(stream, line);) {
    if (line.ends_with('\r')) line.pop_back();
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
  if (component.library.has_parent_path()) {
    component.library = file.parent_path() / component.library;  // an absolute path stays
  }
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
