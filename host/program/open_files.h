#ifndef TSLM5_HOST_PROGRAM_OPEN_FILES_H_
#define TSLM5_HOST_PROGRAM_OPEN_FILES_H_

#include <string>

namespace tslm5::host {

/// Whether `path` names a file that this program has open: false once the file was removed or
/// another one was moved to its name. True where the system does not list the open files. Raises
/// `std::system_error` when it fails to tell.
bool IsOpenFile(const std::string& path);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_OPEN_FILES_H_
