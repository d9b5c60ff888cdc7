#ifndef TSLM5_HOST_PROGRAM_COMMAND_SPEC_H_
#define TSLM5_HOST_PROGRAM_COMMAND_SPEC_H_

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace tslm5::host {

/// One option of a command. A handle: copies mean the same option, which the program owns.
class OptionSpec {
 public:
  explicit OptionSpec(CLI::Option& option) : option_(&option) {}

  OptionSpec& Required();

  /// What the help calls the value: "FILE".
  OptionSpec& ValueName(const std::string& name);

  /// The values that it takes; any other is wrong usage.
  OptionSpec& OneOf(const std::vector<std::string>& values);

  /// A number of [`lowest`, `highest`]; any other is wrong usage.
  OptionSpec& InRange(int lowest, int highest);

  /// Each use of the option takes one value; the next argument is not one more.
  OptionSpec& OneValueEach();

  /// The option is taken, but help, manual and completions do not show it.
  OptionSpec& Hidden();

  OptionSpec& Excludes(const OptionSpec& other);
  OptionSpec& Needs(const OptionSpec& other);

  /// Whether the command line has it. Only when the command line has been read.
  bool IsGiven() const;

 private:
  CLI::Option* option_;
};

/// The description of the program or of one of its commands: the only way in which the commands
/// reach the library that reads the command line, whose headers are dear to compile. A handle, too.
class CommandSpec {
 public:
  explicit CommandSpec(CLI::App& app) : app_(&app) {}

  /// A further command of the program.
  CommandSpec AddCommand(const std::string& name, const std::string& help);

  /// An option with a value, "-o,--output"; a name without a dash is a positional argument. `value`
  /// must live until the command line has been read.
  OptionSpec AddOption(const std::string& name, std::string& value, const std::string& help);
  OptionSpec AddOption(const std::string& name, std::optional<std::string>& value,
                       const std::string& help);
  OptionSpec AddOption(const std::string& name, std::vector<std::string>& values,
                       const std::string& help);
  OptionSpec AddOption(const std::string& name, std::size_t& value, const std::string& help);

  /// An option without a value.
  OptionSpec AddFlag(const std::string& name, bool& value, const std::string& help);

  /// The text below the options in the help.
  void Footer(const std::string& text);

  /// Called when the command line names this command, its options having been read.
  void WhenRead(std::function<void()> callback);

 private:
  CLI::App* app_;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_COMMAND_SPEC_H_
