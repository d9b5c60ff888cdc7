#ifndef TSLM5_HOST_PROGRAM_COMPLETIONS_H_
#define TSLM5_HOST_PROGRAM_COMPLETIONS_H_

#include <string>

namespace CLI {
class App;
}

namespace tslm5::host {

/// A script that completes the program's command lines in bash.
std::string BashCompletion(const CLI::App& program);

/// The same for zsh: the file of the function `_tslm5`.
std::string ZshCompletion(const CLI::App& program);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_COMPLETIONS_H_
