#ifndef TSLM5_TESTS_SUPPORT_TEMPORARY_FOLDER_H_
#define TSLM5_TESTS_SUPPORT_TEMPORARY_FOLDER_H_

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tslm5 {

/// A folder of its own for a test's files, removed with everything in it at the end of the scope.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tslm5_test_XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string Path() const { return path_.string(); }

  /// The path of a file of that name in the folder, which need not exist.
  std::string PathOf(std::string_view name) const { return (path_ / name).string(); }

  /// Writes a file of that name and returns its path.
  std::string Write(std::string_view name, std::string_view bytes) const {
    std::ofstream file(path_ / name, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush()) throw std::runtime_error("cannot write a temporary file");
    return PathOf(name);
  }

 private:
  std::filesystem::path path_;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_SUPPORT_TEMPORARY_FOLDER_H_
