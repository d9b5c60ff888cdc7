#include "host/preparation/run_history.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <chrono>
#include <nlohmann/json.hpp>
#include <utility>

#include "host/preparation/run_metadata.h"
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

HistoryEntry ReadEntry(IDataReader& reader) {
  HistoryEntry entry;
  entry.time = reader.GetString(0);
  entry.command = reader.GetString(1);
  entry.set = reader.GetInteger(2);
  entry.file = reader.GetString(3);
  nlohmann::ordered_json parameters = ParseObject(reader.GetString(4));
  entry.words = TakeWords(parameters);
  entry.parameters = JsonText(parameters);
  entry.parameters.pop_back();
  return entry;
}

}  // namespace

void WriteHistory(const RunSession& session, const HistoryEntry& entry) {
  IConnection& connection = session.Connection();
  if (!connection.TableExists("RunHistory")) {
    connection.Execute(
        "CREATE TABLE RunHistory (Id INTEGER PRIMARY KEY, Time TEXT, Command TEXT, SetId INTEGER, "
        "File TEXT, Parameters TEXT)");
  }
  const auto now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  connection.Execute(
      fmt::format("INSERT INTO RunHistory VALUES (NULL, '{:%Y-%m-%dT%H:%M:%SZ}', {}, {}, {}, {})",
                  fmt::gmtime(now), SqlText(entry.command), entry.set, SqlText(entry.file),
                  SqlText(StoredParameters(entry))));
}

std::vector<HistoryEntry> ReadHistory(const RunSession& session) {
  std::vector<HistoryEntry> entries;
  IConnection& connection = session.Connection();
  if (!connection.TableExists("RunHistory")) return entries;
  const Ref<IDataReader> reader = connection.ExecuteReader(
      "SELECT Time, Command, SetId, File, Parameters FROM RunHistory ORDER BY Id");
  while (reader->Read()) entries.push_back(ReadEntry(*reader));
  reader->Close();
  return entries;
}

std::optional<HistoryEntry> LastLoad(const RunSession& session, std::int32_t type) {
  IConnection& connection = session.Connection();
  if (!connection.TableExists("RunHistory")) return std::nullopt;
  const Ref<IDataReader> reader = connection.ExecuteReader(
      fmt::format("SELECT Time, Command, SetId, File, Parameters FROM RunHistory "
                  "WHERE Command = 'load' AND SetId IN ({}, {}) ORDER BY Id DESC LIMIT 1",
                  type, data_set_type::kCombined));
  std::optional<HistoryEntry> entry;
  if (reader->Read()) entry = ReadEntry(*reader);
  reader->Close();
  if (entry && entry->set == data_set_type::kCombined && type == data_set_type::kTesting) {
    const nlohmann::ordered_json parameters = ParseObject(entry->parameters);
    entry->file = parameters.value("testing", entry->file);
  }
  return entry;
}

}  // namespace tslm5::host
