#ifndef TSLM5_SUPPORT_TEXT_CLEANUP_H_
#define TSLM5_SUPPORT_TEXT_CLEANUP_H_

#include <cstddef>
#include <string>
#include <string_view>

/// Clean-ups of a whole text, however long: each works in the text's own buffer, in one pass, and
/// costs one fast scan where there is nothing to do. Lines end at "\n".
namespace tslm5::TextCleanup {

/// Replaces every `token`, left to right, by `replacement`, which must not be longer. Returns
/// whether there was one. An empty token is nowhere.
bool ReplaceToken(std::string& text, std::string_view token, std::string_view replacement);

/// Replaces every `separator` by one blank. An empty separator leaves the text alone.
void ReplaceSeparator(std::string& text, std::string_view separator);

/// Deletes the blanks before and after every `separator`, one character other than a blank: they
/// belong to no value. A text without a blank costs one fast scan.
void DropBlanksBeside(std::string& text, char separator);

/// Replaces every run of `c` by one `c`. Returns the length of the longest run of two or more,
/// 0 when there was none.
std::size_t CollapseRuns(std::string& text, char c);

/// Deletes every tab and every ";", then every line that is empty or holds blanks (U+0020) alone.
/// The lines kept keep their own "\n", so rows are never joined and a last line without a line
/// feed stays without. "1\t2\n \n;\n3" becomes "12\n3", "1 2\n\n3 4\n\n" becomes "1 2\n3 4\n".
void CleanLines(std::string& text);

/// The number of line feeds plus one; 0 for the empty text. One scan of the text.
std::size_t CountLines(std::string_view text);

/// Where the second line starts; the size of the text when there is none.
std::size_t SecondLineOffset(std::string_view text);

/// Deletes the first line with its "\n"; everything when there is no "\n".
void DropFirstLine(std::string& text);

}  // namespace tslm5::TextCleanup

#endif  // TSLM5_SUPPORT_TEXT_CLEANUP_H_
