#ifndef TSLM5_SUPPORT_SHARED_FUNCTIONS_H_
#define TSLM5_SUPPORT_SHARED_FUNCTIONS_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "support/file_helpers.h"
#include "support/separators.h"

/// Reading a text file, and the clean-ups of a line or text before it is split.
namespace tslm5::SharedFunctions {

/// The text of a file as `FileHelpers::ReadAllText` gives it, every "\r\n" made "\n" in one pass;
/// a lone "\r" stays. Empty when there is no such file. Raises 75 when it cannot be read.
std::string ReadTextFile(std::string_view path);

/// The same of `FileHelpers::ReadFile`, for those who tell apart what stands at the path.
FileHelpers::TextFile ReadFile(std::string_view path);

/// The same text, for those who need a file: raises 53 when nothing stands at the path and 75 for
/// a folder, both with `source`, and 75 when the file cannot be read.
std::string ReadExistingFile(std::string_view path, const char* source);

/// Whether the lines of a text end at carriage returns alone: it has several of them by those, and
/// only one by line feeds.
bool HasLoneReturns(std::string_view text);

/// Replaces pairs of `token` by one, as long as there are pairs. Returns the number of passes this
/// takes, not of pairs: 2 for four in a row. An empty token leaves the text alone.
std::int32_t MergeRepeats(std::string_view token, std::string& text);

/// Deletes every tab and every ";" of a line. Of several lines, it then deletes one blank after
/// each line feed, each pair of line feeds, and those at the start, in that order. As a deleted
/// pair joins two lines, whole texts go to `TextCleanup::CleanLines`.
void CleanLine(std::string& line);

}  // namespace tslm5::SharedFunctions

#endif  // TSLM5_SUPPORT_SHARED_FUNCTIONS_H_
