#ifndef TSLM5_HOST_PROGRAM_PAGE_FILE_H_
#define TSLM5_HOST_PROGRAM_PAGE_FILE_H_

#include <string>
#include <string_view>

namespace tslm5::host {

/// Whether a page may be written to `path`: there is no file yet, or one that has `mark` near its
/// beginning, so that it was written by the same command. Raises `Failure`, file trouble, for what
/// is no file.
bool MayReplace(const std::string& path, std::string_view mark);

/// Raises `Failure`, wrong usage, when `path` is the run itself, or a file that is there already
/// and does not have `mark`, so that it is no `kind` ("report"); the latter not with `is_forced`.
void RequireFreePlace(const std::string& path, const std::string& run, std::string_view mark,
                      std::string_view kind, bool is_forced);

/// Writes `text` to the file `path`, all of it or nothing: it goes to a file beside it first, which
/// then takes its place. A symbolic link stays one. Raises `Failure`, file trouble.
void WriteWhole(const std::string& path, std::string_view text);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_PAGE_FILE_H_
