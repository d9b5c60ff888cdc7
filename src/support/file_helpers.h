#ifndef TSLM5_SUPPORT_FILE_HELPERS_H_
#define TSLM5_SUPPORT_FILE_HELPERS_H_

#include <cstddef>
#include <cstdint>
#include <limits>
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

/// Lines are counted and measured in 32 bits.
inline constexpr std::size_t kLongestLine = std::numeric_limits<std::int32_t>::max();

/// What a path led to when it was opened, and the text of a file.
struct TextFile {
  enum class Kind {
    kRead,
    kAbsent,     ///< nothing of that name
    kFolder,     ///< a directory
    kForbidden,  ///< a file, or a folder on the way to it, that this user may not open
  };
  Kind kind = Kind::kAbsent;
  std::string text;  ///< empty unless the file was read
};

/// Opens a path once and reads what is there to its end, as UTF-8 (see `TextDecoding::ToUtf8`): a
/// file that another takes the place of meanwhile is still read whole. A failure of the system, or
/// a file that does not fit into memory, raises 75 with the path and the reason. 41011 is raised,
/// before the file is read any further, when its first 256 KiB hold a NUL character and no line
/// feed, and when a line is longer than `longest_line` bytes. Valid UTF-8 takes about the file's
/// size in memory.
TextFile ReadFile(std::string_view path, std::size_t longest_line = kLongestLine);

/// The text of `ReadFile`; empty when there is no such file or it is a directory. A file that
/// may not be opened raises 75 as well.
std::string ReadAllText(std::string_view path);

/// Raises 75 for a file that may not be opened.
[[noreturn]] void RaiseForbidden(std::string_view path);

}  // namespace tslm5::FileHelpers

#endif  // TSLM5_SUPPORT_FILE_HELPERS_H_
