#include "host/program/completions.h"

#include <fmt/format.h>

#include "host/program/program_words.h"
#include "host/program/shell_words.h"

namespace tslm5::host {
namespace {

std::vector<std::string> NamesOf(const OptionWords& option) {
  std::vector<std::string> names = {option.name};
  names.insert(names.end(), option.aliases.begin(), option.aliases.end());
  return names;
}

/// All names of the options, in one list of words.
std::string OptionNames(const std::vector<OptionWords>& options) {
  std::vector<std::string> names;
  for (const OptionWords& option : options) {
    if (option.is_positional) continue;
    for (const std::string& name : NamesOf(option)) names.push_back(name);
  }
  return fmt::format("{}", fmt::join(names, " "));
}

/// The lines of a bash case of one command: what follows an option, then its options, or a file.
std::string BashCase(const CommandWords& command) {
  std::string text = fmt::format("    {})\n      case \"$previous\" in\n", command.name);
  for (const OptionWords& option : command.options) {
    if (option.is_positional || option.value.empty()) continue;
    const std::string names = fmt::format("{}", fmt::join(NamesOf(option), "|"));
    if (!option.choices.empty()) {
      text += fmt::format("        {}) words={} ;;\n", names,
                          ShellWord(fmt::format("{}", fmt::join(option.choices, " "))));
    } else {
      text += fmt::format("        {}) files=yes ;;\n", names);
    }
  }
  text += fmt::format("        *) words={}; files=yes ;;\n      esac\n      ;;\n",
                      ShellWord(OptionNames(command.options)));
  return text;
}

/// What `_arguments` of zsh takes for one option. In it ":" and the brackets mean something.
std::string ZshArgument(const OptionWords& option) {
  std::string help;
  for (const char c : option.help) {
    if (c == ':' || c == '[' || c == ']' || c == '\\') help += '\\';
    help += c;
  }
  const std::string values =
      option.choices.empty() ? "_files" : fmt::format("({})", fmt::join(option.choices, " "));
  if (option.is_positional) return fmt::format(":{}:_files", option.name);
  const std::string action =
      option.value.empty() ? "" : fmt::format(":{}:{}", option.value, values);
  return fmt::format("{}{}[{}]{}", option.is_repeated ? "*" : "", option.name, help, action);
}

}  // namespace

std::string BashCompletion(const CLI::App& program) {
  const std::vector<CommandWords> commands = CommandsOf(program);
  std::vector<std::string> names;
  names.reserve(commands.size());
  for (const CommandWords& command : commands) names.push_back(command.name);
  std::string text = fmt::format(
      "# Completes the command lines of tslm5 in bash.\n"
      "_tslm5() {{\n"
      "  local current=${{COMP_WORDS[COMP_CWORD]}} previous=${{COMP_WORDS[COMP_CWORD-1]}}\n"
      "  local command=${{COMP_WORDS[1]}} words='' files=no\n"
      "  COMPREPLY=()\n"
      "  if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
      "    mapfile -t COMPREPLY < <(compgen -W {} -- \"$current\")\n"
      "    return\n"
      "  fi\n"
      "  case \"$command\" in\n",
      ShellWord(fmt::format("{} {}", fmt::join(names, " "), OptionNames(OptionsOf(program)))));
  for (const CommandWords& command : commands) text += BashCase(command);
  text +=
      "  esac\n"
      "  mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$current\")\n"
      "  if [ \"$files\" = yes ] && [[ $current != -* ]]; then\n"
      "    mapfile -t COMPREPLY < <(compgen -f -- \"$current\")\n"
      "  fi\n"
      "}\n"
      "complete -o filenames -F _tslm5 tslm5\n";
  return text;
}

std::string ZshCompletion(const CLI::App& program) {
  std::string text =
      "#compdef tslm5\n"
      "# Completes the command lines of tslm5 in zsh.\n"
      "_tslm5() {\n"
      "  local -a commands\n"
      "  commands=(\n";
  for (const CommandWords& command : CommandsOf(program)) {
    text += fmt::format("    {}\n", ShellWord(command.name + ":" + command.help));
  }
  text +=
      "  )\n"
      "  if (( CURRENT == 2 )); then\n"
      "    _describe command commands\n"
      "    return\n"
      "  fi\n"
      "  local command=$words[2]\n"
      "  shift words\n"
      "  (( CURRENT-- ))\n"
      "  case $command in\n";
  for (const CommandWords& command : CommandsOf(program)) {
    text += fmt::format("    {})\n      _arguments", command.name);
    for (const OptionWords& option : command.options) {
      text += fmt::format(" \\\n        {}", ShellWord(ZshArgument(option)));
    }
    text += "\n      ;;\n";
  }
  text +=
      "  esac\n"
      "}\n"
      "_tslm5 \"$@\"\n";
  return text;
}

}  // namespace tslm5::host
