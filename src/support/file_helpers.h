#ifndef TSLM5_SUPPORT_FILE_HELPERS_H_
#define TSLM5_SUPPORT_FILE_HELPERS_H_

#include <string>
#include <string_view>

namespace tslm5::FileHelpers {

/// Everything up to and including the last "\"; empty when there is none. "/" divides nothing
/// here: these two take names as they were written into a run, not names of this system.
std::string GetDirectory(std::string_view path);

/// Everything after the last "\"; all of `path` when there is none.
std::string GetFileName(std::string_view path);

/// Whether there is a file of that name; a directory is not a file.
bool FileExists(std::string_view path);

/// The whole file as UTF-8 text (see `TextDecoding::ToUtf8`), read once; empty when there is no
/// such file or it is a directory. A file that cannot be opened, read or held in memory raises 75,
/// with its path and the system's reason. Valid UTF-8 takes about the file's size in memory.
std::string ReadAllText(std::string_view path);

}  // namespace tslm5::FileHelpers

#endif  // TSLM5_SUPPORT_FILE_HELPERS_H_
