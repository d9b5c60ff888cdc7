#include "host/program/common_options.h"

#include <fmt/format.h>

#include <charconv>

#include "host/program/failure.h"
#include "host/program/set_names.h"
#include "host/program/shown_text.h"
#include "tslm5/contracts/codes.h"

namespace tslm5::host {

void AddRun(CommandSpec& command, std::string& run) {
  command.AddOption("RUN", run, "the run database").Required();
}

void AddDataSet(CommandSpec& command, std::string& set, const std::string& purpose) {
  command.AddOption("--set", set, purpose + " (default training)")
      .OneOf({"training", "testing"})
      .ValueName("SET");
}

void AddAnyDataSet(CommandSpec& command, std::string& set, const std::string& purpose) {
  std::vector<std::string> names;
  for (const SetName& one : kSets) names.emplace_back(one.name);
  command.AddOption("--set", set, purpose + " (default training)").OneOf(names).ValueName("SET");
}

void AddSeparator(CommandSpec& command, std::string& separator) {
  command.AddOption("--separator", separator, "what stands between fields (default: auto-detect)")
      .OneOf({"auto", "none", "space", "tab", "comma", "semicolon", "bar"})
      .ValueName("NAME");
}

void AddProblem(CommandSpec& command, std::string& problem, const std::string& purpose) {
  command.AddOption("--problem", problem, purpose)
      .OneOf({"regression", "classification", "timeseries", "binary"})
      .ValueName("NAME");
}

OptionSpec AddJson(CommandSpec& command, bool& json) {
  return command.AddFlag("--json", json, "print one JSON object");
}

std::int32_t ProblemCategory(const std::string& name) {
  if (name == "classification") return problem_category::kClassification;
  if (name == "timeseries") return problem_category::kTimeSeries;
  if (name == "binary") return problem_category::kBinary;
  return problem_category::kRegression;
}

std::string ProblemName(std::int32_t code) {
  for (const char* name : {"classification", "timeseries", "binary"}) {
    if (ProblemCategory(name) == code) return name;
  }
  return "regression";
}

std::int32_t ParseWhole(const char* option, const std::string& word, std::int32_t lowest,
                        std::int32_t highest) {
  std::int32_t value = 0;
  const auto [end, code] = std::from_chars(word.data(), word.data() + word.size(), value);
  const bool is_whole = code == std::errc{} && end == word.data() + word.size();
  if (is_whole && value >= lowest && value <= highest) return value;
  Misuse(
      fmt::format("{}: {} is out of range; expected a whole number "
                  "from {} to {}",
                  option, Quoted(word), lowest, highest));
}

std::string RunName(const std::string& run) {
  if (!run.empty() && !run.starts_with(':') && !run.starts_with("file:")) return run;
  Misuse(fmt::format("{} names no file; the path of a run database was expected", Quoted(run)));
}

}  // namespace tslm5::host
