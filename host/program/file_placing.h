#ifndef TSLM5_HOST_PROGRAM_FILE_PLACING_H_
#define TSLM5_HOST_PROGRAM_FILE_PLACING_H_

#include <string>

namespace tslm5::host {

/// The ways to move a file to a name that must be free, in the order in which they are tried: not
/// every file system knows each of them.
enum class PlacingWay {
  kRename,  ///< a rename that replaces nothing
  kLink,    ///< a second name, then the first one goes
  kClaim,   ///< an empty file takes the name, and the rename replaces that
};

/// Moves the file `from` to `to`. 0, or the system's error: `EEXIST` when something is at `to`,
/// which stays as it is.
int PlaceBy(PlacingWay way, const std::string& from, const std::string& to);

/// Whether the error of a way says that the file system does not know it, and not that it failed.
bool IsUnknownWay(int error);

/// Moves by the first way that the file system knows.
int PlaceFile(const std::string& from, const std::string& to);

/// Writes the names in the folder of `path` to the disk: before that a power loss may undo a
/// rename. 0, or the system's error; a file system that does this by itself is no error.
int SyncFolderOf(const std::string& path);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_FILE_PLACING_H_
