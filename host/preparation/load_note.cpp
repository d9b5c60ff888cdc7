#include "host/preparation/load_note.h"

#include <fmt/format.h>

#include <filesystem>

#include "host/preparation/run_history.h"
#include "host/preparation/text_source.h"
#include "host/preparation/user_locale.h"
#include "host/program/common_options.h"
#include "host/program/json_text.h"
#include "host/program/shown_text.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

/// Of the standard input as it stands.
std::string AbsolutePath(const std::string& path) {
  if (path == kStandardInput) return path;
  return std::filesystem::absolute(path).lexically_normal().string();
}

/// The words that say how the file is written: as it was found, so that a repetition reads it
/// alike, unless a second file is read by them too, which may be written in another way.
void AddDialect(const LoadOptions& options, const NotedDialect& noted,
                std::vector<std::string>& words) {
  const DelimitedOptions& asked = options.dialect;
  const bool is_found = options.testing.empty();
  words.emplace_back("--separator");
  words.emplace_back(is_found || options.separator != nullptr ? noted.separator->name : "auto");
  if (asked.has_header.value_or(false)) {
    words.emplace_back("--labels");
  } else if (!options.has_labels || (is_found && !noted.has_labels && !options.is_fixed)) {
    words.emplace_back("--no-labels");
  }
  if (const char decimal = is_found ? noted.decimal : asked.decimal.value_or('.'); decimal == ',') {
    words.emplace_back("--decimal=comma");
  } else if (asked.decimal) {
    words.emplace_back("--decimal=point");
  }
  if (!asked.has_quotes.value_or(true)) words.emplace_back("--no-quotes");
  if (is_found && noted.skipped_lines > 0) {
    words.push_back(fmt::format("--skip-lines={}", noted.skipped_lines));
  } else if (asked.skips_preamble) {
    words.emplace_back("--skip-lines=auto");
  } else if (asked.preamble_lines) {
    words.push_back(fmt::format("--skip-lines={}", *asked.preamble_lines));
  }
  if (!asked.encoding.empty()) words.push_back("--encoding=" + asked.encoding);
}

/// The words of the command line that loads the same again.
std::vector<std::string> LoadWords(const LoadOptions& options, const NotedDialect& noted) {
  std::vector<std::string> words = {"load", AbsolutePath(options.file), "--run",
                                    std::string(kRunWord)};
  const auto add = [&words](const char* option, const std::string& value) {
    words.emplace_back(option);
    words.push_back(value);
  };
  add("--set", options.set->name);
  AddDialect(options, noted, words);
  if (options.is_fixed) words.emplace_back("--fixed");
  if (options.layout == layout_code::kRecordsInColumns) add("--layout", "columns");
  if (!options.response.empty()) words.push_back("--response=" + options.response);
  if (options.problem) add("--problem", ProblemName(*options.problem));
  if (!options.testing.empty()) add("--testing", AbsolutePath(options.testing));
  if (options.testing_share) {
    add("--testing-share", NumberText(*options.testing_share));
    add("--seed", NumberText(options.seed));
  }
  if (options.scale) words.push_back("--normalize=" + ScaleText(*options.scale));
  if (options.positive_class) words.push_back("--positive-class=" + *options.positive_class);
  for (const std::string& token : options.missing_tokens) words.push_back("--missing=" + token);
  if (!options.checks) words.emplace_back("--no-check");
  if (!options.statistics) words.emplace_back("--no-stats");
  return words;
}

}  // namespace

void NoteLoad(const RunSession& session, const LoadOptions& options, const NotedDialect& noted,
              const StoredSet& stored) {
  HistoryEntry entry;
  entry.command = "load";
  const bool is_both = !options.testing.empty() || options.testing_share;
  entry.set = is_both ? data_set_type::kCombined : options.set->type;
  entry.file = AbsolutePath(options.file);
  nlohmann::ordered_json parameters = {
      {"separator", noted.separator->name},
      {"labels", noted.has_labels},
      {"layout", options.layout == layout_code::kRecordsInColumns ? "columns" : "rows"},
      {"rows", stored.rows},
      {"columns", stored.columns}};
  if (options.is_fixed && UserHasDecimalComma()) parameters["locale"] = UserLocaleName();
  if (noted.decimal == ',') parameters["decimal"] = "comma";
  if (noted.skipped_lines > 0) parameters["skippedLines"] = noted.skipped_lines;
  if (!options.response.empty()) parameters["response"] = options.response;
  if (options.problem) parameters["problem"] = ProblemName(*options.problem);
  if (!options.testing.empty()) parameters["testing"] = AbsolutePath(options.testing);
  if (options.testing_share) {
    parameters["testingShare"] = *options.testing_share;
    parameters["seed"] = options.seed;
  }
  if (stored.testing_rows) parameters["testingRows"] = *stored.testing_rows;
  if (options.scale) parameters["normalize"] = ScaleText(*options.scale);
  if (options.positive_class) parameters["positiveClass"] = *options.positive_class;
  if (!options.missing_tokens.empty()) parameters["missing"] = options.missing_tokens;
  entry.parameters = JsonText(parameters);
  entry.words = LoadWords(options, noted);
  WriteHistory(session, entry);
}

}  // namespace tslm5::host
