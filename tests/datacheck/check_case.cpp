#include "datacheck/check_case.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string_view>

namespace tslm5 {
namespace {

using nlohmann::json;

constexpr const char* kFolder = "tests/datacheck/cases";  // below the folder the tests are run in
constexpr std::string_view kExpected = ".expected";

constexpr std::array<std::string_view, 14> kKeys = {
    "about",  "repeat",       "separator",       "hasLabels", "checksResponse",
    "locale", "mostRowIndex", "mostColumnIndex", "cancelAt",  "crlf",
    "result", "message",      "position",        "events"};

std::string ReadBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string Repeated(const json& repeat) {
  const auto text = repeat.at("text").get<std::string>();
  std::string bytes;
  for (int i = repeat.at("times").get<int>(); i > 0; --i) bytes += text;
  return bytes;
}

/// `["name"]`, `["name", "message"]` or `["name", "message", rows]`.
CheckEvent ReadEvent(const json& event) {
  CheckEvent read;
  read.name = event.at(0).get<std::string>();
  if (event.size() > 1) read.message = event.at(1).get<std::string>();
  if (event.size() > 2) read.rows = event.at(2).get<std::int32_t>();
  return read;
}

void ReadGiven(const json& expected, CheckCase& check_case) {
  check_case.separator = expected.at("separator").get<std::int32_t>();
  check_case.has_labels = expected.value("hasLabels", false);
  check_case.locale = expected.value("locale", check_case.locale);
  check_case.cancel_at = expected.value("cancelAt", "");
  check_case.has_crlf_form = expected.value("crlf", true);
  DataCheckRules& rules = check_case.rules;
  rules.checks_response = expected.value("checksResponse", false);
  rules.most_row_index = expected.value("mostRowIndex", rules.most_row_index);
  rules.most_column_index = expected.value("mostColumnIndex", rules.most_column_index);
  check_case.has_usual_limits =
      !expected.contains("mostRowIndex") && !expected.contains("mostColumnIndex");
}

void ReadOutcome(const json& expected, CheckCase& check_case) {
  check_case.result = expected.at("result").get<bool>();
  if (const json& message = expected.at("message"); !message.is_null()) {
    check_case.message = message.get<std::string>();
  }
  if (const auto position = expected.find("position"); position != expected.end()) {
    check_case.position.column = position->value("column", kOlderPosition.column);
    check_case.position.row = position->value("row", kOlderPosition.row);
  }
  for (const json& event : expected.at("events")) check_case.events.push_back(ReadEvent(event));
}

}  // namespace

std::vector<std::string> CheckCaseNames() {
  std::vector<std::string> names;
  std::error_code no_folder;
  for (const auto& entry : std::filesystem::directory_iterator(kFolder, no_folder)) {
    if (entry.path().extension() == kExpected) names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string> CheckDataOfNoCase() {
  std::vector<std::string> files;
  std::error_code no_folder;
  for (const auto& entry : std::filesystem::directory_iterator(kFolder, no_folder)) {
    std::filesystem::path expected = entry.path();
    expected.replace_extension(kExpected);
    if (entry.path().filename() != ".gitattributes" && !std::filesystem::exists(expected)) {
      files.push_back(entry.path().filename().string());
    }
  }
  return files;
}

CheckCase ReadCheckCase(const std::string& name) {
  const std::filesystem::path data = std::filesystem::path(kFolder) / (name + ".txt");
  const std::filesystem::path words =
      std::filesystem::path(kFolder) / (name + std::string(kExpected));
  const json expected = json::parse(ReadBytes(words));
  static_cast<void>(expected.at("about"));
  for (const auto& [key, value] : expected.items()) {
    if (std::find(kKeys.begin(), kKeys.end(), key) == kKeys.end()) {
      throw std::runtime_error("unknown key " + key);
    }
  }
  CheckCase check_case;
  if (std::filesystem::exists(data)) {
    const auto repeat = expected.find("repeat");
    check_case.bytes = repeat == expected.end() ? "" : Repeated(*repeat);
    *check_case.bytes += ReadBytes(data);
  }
  ReadGiven(expected, check_case);
  ReadOutcome(expected, check_case);
  return check_case;
}

std::string WithCrlf(const std::string& bytes) {
  std::string result;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == '\n' && (i == 0 || bytes[i - 1] != '\r')) result += '\r';
    result += bytes[i];
  }
  return result;
}

}  // namespace tslm5
