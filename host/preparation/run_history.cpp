#include "host/preparation/run_history.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "host/program/json_text.h"
#include "tslm5/contracts/codes.h"

namespace tslm5::host {
namespace {

constexpr const char* kWords = "words";

nlohmann::ordered_json ParseObject(const std::string& text) {
  auto object = nlohmann::ordered_json::parse(text, nullptr, false);
  return object.is_object() ? object : nlohmann::ordered_json::object();
}

/// The parameters with the words of the command line among them: one column holds both.
std::string StoredParameters(const HistoryEntry& entry) {
  nlohmann::ordered_json parameters = ParseObject(entry.parameters);
  if (!entry.words.empty()) parameters[kWords] = entry.words;
  std::string text = JsonText(parameters);
  text.pop_back();
  return text;
}

std::vector<std::string> TakeWords(nlohmann::ordered_json& parameters) {
  std::vector<std::string> words;
  const auto found = parameters.find(kWords);
  if (found == parameters.end()) return words;
  if (found->is_array()) {
    for (const auto& word : *found) {
      if (word.is_string()) words.push_back(word.get<std::string>());
    }
  }
  parameters.erase(found);
  return words;
}

HistoryEntry EntryOf(const HistoryStep& step) {
  HistoryEntry entry;
  entry.time = step.time;
  entry.command = step.command;
  entry.set = step.set;
  entry.file = step.file;
  nlohmann::ordered_json parameters = ParseObject(step.parameters);
  entry.words = TakeWords(parameters);
  entry.parameters = JsonText(parameters);
  entry.parameters.pop_back();
  return entry;
}

}  // namespace

void WriteHistory(const RunSession& session, const HistoryEntry& entry) {
  session.History().AppendStep({"", entry.command, entry.set, entry.file, StoredParameters(entry)});
}

std::vector<HistoryEntry> ReadHistory(const RunSession& session) {
  std::vector<HistoryStep> steps;
  session.History().ReadSteps(steps);
  std::vector<HistoryEntry> entries;
  entries.reserve(steps.size());
  for (const HistoryStep& step : steps) entries.push_back(EntryOf(step));
  return entries;
}

std::optional<HistoryEntry> LastLoad(const RunSession& session, std::int32_t type) {
  HistoryStep step;
  if (!session.History().ReadLastLoad(type, step)) return std::nullopt;
  std::optional<HistoryEntry> entry = EntryOf(step);
  if (entry->set == data_set_type::kCombined && type == data_set_type::kTesting) {
    const nlohmann::ordered_json parameters = ParseObject(entry->parameters);
    entry->file = parameters.value("testing", entry->file);
  }
  return entry;
}

}  // namespace tslm5::host
