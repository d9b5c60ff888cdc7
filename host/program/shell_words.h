#ifndef TSLM5_HOST_PROGRAM_SHELL_WORDS_H_
#define TSLM5_HOST_PROGRAM_SHELL_WORDS_H_

#include <string>
#include <string_view>
#include <vector>

namespace tslm5::host {

/// `word` as a shell takes it back for one word: as it is where that is safe, between single
/// quotes, or as $'...' where it holds something that would disturb a terminal.
std::string ShellWord(std::string_view word);

/// The words as one command line.
std::string ShellLine(const std::vector<std::string>& words);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_SHELL_WORDS_H_
