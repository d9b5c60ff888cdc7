#ifndef TSLM5_HOST_PROGRAM_BESIDE_FILE_H_
#define TSLM5_HOST_PROGRAM_BESIDE_FILE_H_

#include <sys/types.h>

#include <string>

namespace tslm5::host {

/// A file with a name of its own in the folder of `target`, to be moved to `target` once it is
/// complete; removed unless it was moved. It is locked as long as this object lives: whoever makes
/// the next one for the same target removes those that a killed program left behind, and no other.
///
/// Every operation raises `std::system_error` with the system's reason.
class BesideFile {
 public:
  /// Makes the file, empty. `mode` is that of a new file, less what the user's mask takes away.
  BesideFile(std::string target, mode_t mode);
  BesideFile(const BesideFile&) = delete;
  BesideFile& operator=(const BesideFile&) = delete;
  ~BesideFile();

  const std::string& Path() const { return path_; }
  /// Open for reading and writing.
  int Descriptor() const { return descriptor_; }

  /// Moves the file to its target, in the place of what is there. To last through a power loss, a
  /// move needs `SyncFolderOf` the target.
  void Replace();
  /// Moves the file to its target unless something is there; false when something is.
  bool Place();

 private:
  void Make(mode_t mode);

  std::string target_;
  std::string path_;
  int descriptor_ = -1;
  bool is_moved_ = false;
};

/// Where a chain of symbolic links ends, whether or not a file is there.
std::string EndOfLinks(const std::string& path);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_BESIDE_FILE_H_
