#include "host/answers/history_steps.h"

#include <nlohmann/json.hpp>
#include <vector>

#include "host/program/set_names.h"
#include "host/program/shell_words.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

/// The words of a load that noted none.
std::vector<std::string> WordsOfLoad(const HistoryEntry& entry) {
  const nlohmann::ordered_json parameters = StepParameters(entry);
  std::vector<std::string> words = {"load", entry.file, "--run", std::string(kRunWord)};
  words.insert(words.end(), {"--set", StepSet(entry)});
  words.insert(words.end(), {"--separator", parameters.value("separator", "auto")});
  if (!parameters.value("labels", true)) words.emplace_back("--no-labels");
  words.insert(words.end(), {"--layout", parameters.value("layout", "rows")});
  return words;
}

}  // namespace

std::string StepSet(const HistoryEntry& entry) {
  if (entry.set == data_set_type::kCombined) return "training and testing";
  const SetName* set = FindSet(entry.set);
  return set == nullptr ? "" : set->name;
}

nlohmann::ordered_json StepParameters(const HistoryEntry& entry) {
  return nlohmann::ordered_json::parse(entry.parameters);
}

std::string StepValue(const nlohmann::ordered_json& value) {
  return Cut(value.is_string() ? value.get<std::string>() : value.dump());
}

std::string StepCommandLine(const HistoryEntry& entry, const std::string& run) {
  std::vector<std::string> words = entry.words;
  if (words.empty() && entry.command == "load") words = WordsOfLoad(entry);
  if (words.empty()) return {};
  for (std::string& word : words) {
    if (word == kRunWord) word = run;
  }
  words.insert(words.begin(), "tslm5");
  // The decimal separator is that of the locale in which the step was taken.
  const std::string locale = StepParameters(entry).value("locale", "");
  return (locale.empty() ? "" : "LC_ALL=" + ShellWord(locale) + " ") + ShellLine(words);
}

}  // namespace tslm5::host
