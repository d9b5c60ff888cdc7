#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <memory>
#include <string>
#include <vector>

#include "host/commands/dialect_arguments.h"
#include "host/commands/load_command.h"
#include "host/preparation/lines.h"
#include "host/program/common_options.h"
#include "host/program/failure.h"
#include "host/program/shown_text.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

constexpr const char* kLoadExamples =
    "Examples:\n"
    "  tslm5 load measurements.csv --run flowers.db\n"
    "  tslm5 load later.csv --run flowers.db --set testing\n"
    "  tslm5 load plain.txt --run plain.db --separator space --no-labels --json\n"
    "  tslm5 load air.csv --run air.db --response ozone --testing-share 0.3 --normalize zscore\n"
    "\n"
    "One record a line; the last column is the response. Columns that hold words are coded, "
    "missing\n"
    "cells noted, and the original text of every cell is kept. A file that cannot be loaded leaves "
    "the\n"
    "run as it was.\n";

struct Words {
  std::string file;
  std::string run;
  std::string set = "training";
  DialectArguments dialect;
  std::string layout = "rows";
  bool no_check = false;
  bool no_statistics = false;
  std::string response;
  std::string problem;
  std::string testing;
  std::string testing_share;
  std::string seed;
  std::string normalize;
  std::string positive_class;
  std::vector<std::string> missing;
  bool json = false;
};

double ParseShare(const std::string& word) {
  double share = 0.0;
  if (!ParseNumber(word, '.', share) || !(share > 0.0) || !(share < 1.0)) {
    Misuse(fmt::format("--testing-share: invalid share {}; expected a number between 0 and 1",
                       Quoted(word)));
  }
  return share;
}

std::uint32_t ParseSeed(const std::string& word) {
  std::int32_t seed = 0;
  const auto [end, code] = std::from_chars(word.data(), word.data() + word.size(), seed);
  if (code != std::errc{} || end != word.data() + word.size() || seed < 0) {
    Misuse(fmt::format("--seed: invalid seed {}; expected a whole number from 0 to 2147483647",
                       Quoted(word)));
  }
  return static_cast<std::uint32_t>(seed);
}

/// The tokens between the commas, each once; nothing is no token, an empty cell is missing anyway.
std::vector<std::string> ParseTokens(const std::vector<std::string>& words) {
  std::vector<std::string> tokens;
  for (const std::string& word : words) {
    std::string_view rest = word;
    for (;;) {
      const std::size_t comma = rest.find(',');
      const std::string token(Trimmed(rest.substr(0, comma)));
      const bool is_known = std::find(tokens.begin(), tokens.end(), token) != tokens.end();
      if (!token.empty() && !is_known) tokens.push_back(token);
      if (comma == std::string_view::npos) break;
      rest.remove_prefix(comma + 1);
    }
  }
  return tokens;
}

/// What a training set alone can be asked for.
void RequireTraining(const LoadOptions& options) {
  if (options.set->type == data_set_type::kTraining) return;
  if (!options.testing.empty() || options.testing_share) {
    Misuse("--testing and --testing-share go with a training set, not with --set testing");
  }
  if (options.problem || options.scale || options.positive_class) {
    Misuse(
        "a testing set is prepared by what the run holds: --problem, --normalize and "
        "--positive-class go with the training set");
  }
}

void MakePreparation(const Words& words, LoadOptions& options) {
  options.response = words.response;
  if (!words.problem.empty()) options.problem = ProblemCategory(words.problem);
  options.testing = words.testing;
  if (!words.testing_share.empty()) options.testing_share = ParseShare(words.testing_share);
  if (!words.seed.empty()) options.seed = ParseSeed(words.seed);
  if (!words.seed.empty() && !options.testing_share) {
    Misuse("--seed goes with --testing-share");
  }
  if (options.testing_share && options.problem == problem_category::kTimeSeries) {
    Misuse(
        "--testing-share draws from anywhere in a series; load all of it, and tslm5 embed "
        "--testing-samples keeps values at its end for testing");
  }
  if (options.testing_share && !options.testing.empty()) {
    Misuse("--testing and --testing-share exclude each other");
  }
  if (!words.normalize.empty()) options.scale = ParseScale(words.normalize);
  if (!words.positive_class.empty()) options.positive_class = words.positive_class;
  if (options.positive_class) {
    if (!options.problem) options.problem = problem_category::kClassification;
    if (*options.problem == problem_category::kRegression ||
        *options.problem == problem_category::kTimeSeries) {
      Misuse("--positive-class goes with --problem classification or binary");
    }
  }
  options.missing_tokens = ParseTokens(words.missing);
  RequireTraining(options);
}

/// What the contract's loader does not do.
void RequireFixed(const LoadOptions& options) {
  if (!options.is_fixed) return;  // --no-check then has nothing to switch off
  if (!options.response.empty() || options.problem || !options.testing.empty() ||
      options.testing_share || options.scale || options.positive_class ||
      !options.missing_tokens.empty()) {
    Misuse(
        "--fixed stores the numbers of the file as they are: --response, --problem, --testing, "
        "--testing-share, --normalize, --positive-class and --missing do not go with it");
  }
}

LoadOptions MakeOptions(const Words& words) {
  LoadOptions options;
  options.file = words.file;
  options.run = RunName(words.run);
  options.set = FindSet(words.set);
  options.separator = FindSeparator(words.dialect.separator);
  options.has_labels = !words.dialect.no_labels;
  options.dialect = DialectOf(words.dialect);
  options.is_fixed = words.dialect.fixed;
  options.json = words.json;
  options.checks = !words.no_check;
  options.statistics = !words.no_statistics;
  MakePreparation(words, options);
  RequireFixed(options);
  if (words.layout == "columns") options.layout = layout_code::kRecordsInColumns;
  if (options.layout == layout_code::kRecordsInColumns && options.separator != nullptr &&
      options.separator->code == separator_code::kNone) {
    Misuse("--layout columns needs a separator between the records");
  }
  return options;
}

void AddPreparation(CommandSpec& load, Words& words) {
  load.AddOption("--response", words.response,
                 "the column to predict, moved to the end (default: the last)")
      .ValueName("LABEL");
  AddProblem(load, words.problem,
             "what the run is for (default: classification for a response of words, else "
             "regression)");
  load.AddOption("--testing", words.testing, "a second file, for the testing set")
      .ValueName("FILE");
  load.AddOption("--testing-share", words.testing_share,
                 "draw this share of the records for the testing set, 0.3 say")
      .ValueName("SHARE");
  load.AddOption("--seed", words.seed, "random seed of --testing-share (default 1)").ValueName("N");
  load.AddOption("--normalize", words.normalize,
                 "none, zscore, minmax or range:A:B, by the training set's figures")
      .ValueName("SCALE");
  load.AddOption("--positive-class", words.positive_class,
                 "the class of the response that becomes 1, every other 0")
      .ValueName("TEXT");
  load.AddOption("--missing", words.missing, "more words that stand for a missing value")
      .ValueName("TOKEN,...")
      .OneValueEach();
}

}  // namespace

void AddLoadCommand(CommandSpec& app, Invocation& invocation) {
  CommandSpec load = app.AddCommand("load", "Load a delimited text file into a run");
  const auto words = std::make_shared<Words>();
  load.AddOption("FILE", words->file, "the text file").Required();
  load.AddOption("--run", words->run, "the run database; made when it is missing")
      .Required()
      .ValueName("RUN.db");
  AddDataSet(load, words->set, "the set to fill");
  AddDialect(load, words->dialect);
  load.AddOption("--layout", words->layout, "what a line holds (default rows: a record)")
      .OneOf({"rows", "columns"})
      .ValueName("NAME");
  AddPreparation(load, *words);
  load.AddFlag("--no-check", words->no_check, "with --fixed: load without the data check");
  load.AddFlag("--no-stats", words->no_statistics, "do not compute the statistics of the columns");
  AddJson(load, words->json);
  load.Footer(kLoadExamples);
  WhenChosen(
      load, invocation, [words] { return MakeOptions(*words); }, RunLoad);
}

}  // namespace tslm5::host
