#include "host/preparation/load_note.h"

#include <filesystem>

#include "host/preparation/run_history.h"
#include "host/preparation/user_locale.h"
#include "host/program/common_options.h"
#include "host/program/json_text.h"
#include "host/program/shown_text.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

std::string AbsolutePath(const std::string& path) {
  return std::filesystem::absolute(path).lexically_normal().string();
}

/// The words of the command line that loads the same again, `separator` having been found out.
std::vector<std::string> LoadWords(const LoadOptions& options, const Separator& separator) {
  std::vector<std::string> words = {"load", AbsolutePath(options.file), "--run",
                                    std::string(kRunWord)};
  const auto add = [&words](const char* option, const std::string& value) {
    words.emplace_back(option);
    words.push_back(value);
  };
  add("--set", options.set->name);
  add("--separator",
      options.testing.empty() || options.separator != nullptr ? separator.name : "auto");
  if (!options.has_labels) words.emplace_back("--no-labels");
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

void NoteLoad(const RunSession& session, const LoadOptions& options, const DelimitedText& text,
              const StoredSet& stored) {
  HistoryEntry entry;
  entry.command = "load";
  const bool is_both = !options.testing.empty() || options.testing_share;
  entry.set = is_both ? data_set_type::kCombined : options.set->type;
  entry.file = AbsolutePath(options.file);
  nlohmann::ordered_json parameters = {{"separator", text.separator->name},
                                       {"labels", text.has_label_line},
                                       {"layout", text.is_transposed ? "columns" : "rows"},
                                       {"rows", stored.rows},
                                       {"columns", stored.columns}};
  if (UserHasDecimalComma()) parameters["locale"] = UserLocaleName();
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
  entry.words = LoadWords(options, *text.separator);
  WriteHistory(session, entry);
}

}  // namespace tslm5::host
