#include "host/program/program_words.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string_view>

namespace tslm5::host {
namespace {

/// The choices that a validator tells: "SET:{training,testing}" takes two.
std::vector<std::string> ChoicesIn(std::string_view type) {
  std::vector<std::string> choices;
  const std::size_t open = type.find('{');
  const std::size_t close = type.find('}', open == std::string_view::npos ? 0 : open);
  if (open == std::string_view::npos || close == std::string_view::npos) return choices;
  std::string_view list = type.substr(open + 1, close - open - 1);
  while (!list.empty()) {
    const std::size_t comma = std::min(list.find(','), list.size());
    choices.emplace_back(list.substr(0, comma));
    list.remove_prefix(std::min(comma + 1, list.size()));
  }
  return choices;
}

OptionWords WordsOf(const CLI::Option& option) {
  OptionWords words;
  words.help = option.get_description();
  words.is_required = option.get_required();
  words.is_repeated = option.get_expected_max() > 1;
  const std::string type = option.get_type_name();
  if (option.get_type_size_max() > 0) words.value = type.substr(0, type.find(':'));
  words.choices = ChoicesIn(type);
  for (const std::string& name : option.get_lnames()) words.aliases.push_back("--" + name);
  for (const std::string& name : option.get_snames()) words.aliases.push_back("-" + name);
  words.is_positional = words.aliases.empty();
  if (words.is_positional) {
    words.name = option.get_name(true);
  } else {
    words.name = words.aliases.front();
    words.aliases.erase(words.aliases.begin());
  }
  return words;
}

}  // namespace

std::vector<OptionWords> OptionsOf(const CLI::App& app) {
  std::vector<OptionWords> options;
  for (const CLI::Option* option : app.get_options()) {
    if (!option->get_group().empty()) options.push_back(WordsOf(*option));
  }
  std::stable_partition(options.begin(), options.end(),
                        [](const OptionWords& words) { return words.is_positional; });
  return options;
}

CommandWords WordsOf(const CLI::App& app) {
  return {app.get_name(), app.get_description(), app.get_footer(), OptionsOf(app)};
}

std::vector<CommandWords> CommandsOf(const CLI::App& program) {
  std::vector<CommandWords> commands;
  const auto all = [](const CLI::App*) { return true; };
  for (const CLI::App* command : program.get_subcommands(all)) {
    commands.push_back(WordsOf(*command));
  }
  return commands;
}

}  // namespace tslm5::host
