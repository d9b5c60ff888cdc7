#ifndef TSLM5_TESTS_HOST_TEMPORARY_FOLDER_H_
#define TSLM5_TESTS_HOST_TEMPORARY_FOLDER_H_

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace tslm5::host {

/// A folder of its own for one test, gone at its end.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tslm5_host_XXXXXX").string();
    path_ = mkdtemp(pattern.data());
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::string Path(std::string_view name) const { return path_ + "/" + std::string(name); }

  /// Writes a file and returns its path.
  std::string Write(std::string_view name, std::string_view bytes) const {
    std::ofstream(Path(name), std::ios::binary) << bytes;
    return Path(name);
  }

 private:
  std::string path_;
};

}  // namespace tslm5::host

#endif  // TSLM5_TESTS_HOST_TEMPORARY_FOLDER_H_
