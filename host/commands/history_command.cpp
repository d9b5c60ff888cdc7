#include "host/commands/history_command.h"

#include <fmt/format.h>

#include <memory>
#include <vector>

#include "host/answers/history_steps.h"
#include "host/preparation/run_history.h"
#include "host/preparation/run_session.h"
#include "host/program/common_options.h"
#include "host/program/json_text.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

constexpr const char* kHistoryExamples =
    "Examples:\n"
    "  tslm5 history flowers.db\n"
    "  tslm5 history flowers.db --json\n"
    "\n"
    "What was done to the run, the first step first. The last line of a step is the command that\n"
    "does it again.\n";

std::string HistoryText(const std::string& run, const std::vector<HistoryEntry>& entries) {
  std::string text = fmt::format("{}: {} {}\n", Escaped(run), entries.size(),
                                 entries.size() == 1 ? "step" : "steps");
  std::size_t number = 0;
  for (const HistoryEntry& entry : entries) {
    text += fmt::format("\n{}  {}  {}", ++number, Escaped(entry.time), Escaped(entry.command));
    if (entry.set != 0) text += fmt::format("  {} set", StepSet(entry));
    text += '\n';
    if (!entry.file.empty()) text += fmt::format("   file: {}\n", Escaped(entry.file));
    const nlohmann::ordered_json parameters = StepParameters(entry);
    for (const auto& [name, value] : parameters.items()) {
      text += fmt::format("   {}: {}\n", Escaped(name), StepValue(value));
    }
    const std::string line = StepCommandLine(entry, run);
    if (!line.empty()) text += fmt::format("   {}\n", line);
  }
  return text;
}

std::string HistoryJson(const std::string& run, const std::vector<HistoryEntry>& entries) {
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (const HistoryEntry& entry : entries) {
    const nlohmann::ordered_json parameters = StepParameters(entry);
    const std::string line = StepCommandLine(entry, run);
    nlohmann::ordered_json one = {{"time", entry.time},       {"command", entry.command},
                                  {"set", nullptr},           {"file", nullptr},
                                  {"parameters", parameters}, {"commandLine", nullptr}};
    if (entry.set != 0) one["set"] = StepSet(entry);
    if (!entry.file.empty()) one["file"] = entry.file;
    if (!line.empty()) one["commandLine"] = line;
    list.push_back(std::move(one));
  }
  return JsonText({{"run", run}, {"steps", std::move(list)}});
}

}  // namespace

void RunHistory(const HistoryOptions& options, Output& output) {
  const RunSession session(options.run, RunOptions::Mode::kReadOnly);
  const std::vector<HistoryEntry> entries = ReadHistory(session);
  output.Write(options.json ? HistoryJson(options.run, entries)
                            : HistoryText(options.run, entries));
}

void AddHistoryCommand(CommandSpec& app, Invocation& invocation) {
  CommandSpec history = app.AddCommand("history", "List what was done to a run, step by step");
  const auto words = std::make_shared<HistoryOptions>();
  AddRun(history, words->run);
  AddJson(history, words->json);
  history.Footer(kHistoryExamples);
  const auto make = [words] { return HistoryOptions{RunName(words->run), words->json}; };
  WhenChosen(history, invocation, make, RunHistory);
}

}  // namespace tslm5::host
