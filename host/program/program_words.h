#ifndef TSLM5_HOST_PROGRAM_PROGRAM_WORDS_H_
#define TSLM5_HOST_PROGRAM_PROGRAM_WORDS_H_

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tslm5::host {

/// One option of a command, as the command line's own table has it.
struct OptionWords {
  std::string name;                  ///< "--set", or "FILE" for a word without a name
  std::vector<std::string> aliases;  ///< other names of it
  std::string value;                 ///< what follows the name; empty for a flag
  std::vector<std::string> choices;  ///< the values that it takes; empty: any
  std::string help;
  bool is_positional = false;
  bool is_required = false;
  bool is_repeated = false;  ///< takes more than one value
};

/// One command, or the program itself, which has no options but --help and --version.
struct CommandWords {
  std::string name;
  std::string help;
  std::string footer;
  std::vector<OptionWords> options;  ///< positional ones first
};

/// The options of one command, or of the program: positional words first.
std::vector<OptionWords> OptionsOf(const CLI::App& app);

/// One command, or the program.
CommandWords WordsOf(const CLI::App& app);

/// Every command in the order of the table.
std::vector<CommandWords> CommandsOf(const CLI::App& program);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_PROGRAM_WORDS_H_
