#include "host/commands/embed_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <vector>

#include "host/preparation/run_history.h"
#include "host/preparation/run_session.h"
#include "host/preparation/statistics_feedback.h"
#include "host/program/common_options.h"
#include "host/program/failure.h"
#include "host/program/json_text.h"
#include "host/program/shown_text.h"
#include "host/program/terminal.h"
#include "tslm5/contracts/codes.h"

namespace tslm5::host {
namespace {

constexpr const char* kEmbedExamples =
    "Examples:\n"
    "  tslm5 load passengers.csv --run air.db --problem timeseries\n"
    "  tslm5 embed air.db --dimension 12 --delay 1\n"
    "  tslm5 embed air.db --dimension 3 --delay 2 --testing-samples 12 --json\n"
    "\n"
    "The training set, a series of one column, becomes records of E inputs and a response: the\n"
    "values E*D, ..., 2*D, D before it. Testing samples are the last value and those D, 2*D, ...\n"
    "before it; no record holds a value from the first of them on.\n";

constexpr std::int32_t kMaxDimension = 1998;  // with the response, what a data table takes

std::string Holds(const EmbedOptions& options, std::int32_t column) {
  if (column == options.embedding.dimension) return "the value itself (the response)";
  const std::int64_t lag = options.embedding.LagOf(column);
  return fmt::format("the value {} before", lag);
}

std::string Values(std::int64_t count) {
  return fmt::format("{} {}", count, count == 1 ? "value" : "values");
}

/// How many values between the testing samples are used nowhere.
std::int64_t UnusedValues(const EmbedOptions& options) {
  const EmbeddingOptions& embedding = options.embedding;
  return std::max<std::int64_t>(0, embedding.TestingSpan() - embedding.testing_samples);
}

std::vector<std::string> WarningsOf(const EmbeddingResult& embedded) {
  if (!embedded.has_dropped_backup) return {};
  return {"the reset of before can no longer be undone"};
}

/// The words of the command line that embeds the same again.
std::vector<std::string> WordsOf(const EmbedOptions& options) {
  std::vector<std::string> words = {"embed",       std::string(kRunWord),
                                    "--dimension", fmt::format("{}", options.embedding.dimension),
                                    "--delay",     fmt::format("{}", options.embedding.delay)};
  if (options.embedding.testing_samples > 0) {
    words.insert(words.end(),
                 {"--testing-samples", fmt::format("{}", options.embedding.testing_samples)});
  }
  return words;
}

EmbeddingResult Embed(const EmbedOptions& options) {
  const RunSession session(options.run, RunOptions::Mode::kReadWrite);
  if (!session.Sets().HasSet(data_set_type::kTraining)) {
    throw Failure(ExitCode::kTrouble,
                  fmt::format("{} has no training set (tslm5 load FILE --run RUN.db "
                              "--problem timeseries loads a series)",
                              Escaped(options.run)));
  }
  Transaction transaction(session.Connection());
  EmbeddingResult embedded;
  PrepareWithProgress([&](IFeedback* feedback) {
    session.Preparation().As<IRunEmbedding>()->Embed(options.embedding, WordsOf(options), feedback,
                                                     embedded);
  });
  CommitChange(session, transaction);
  return embedded;
}

std::string EmbedText(const EmbedOptions& options, const EmbeddingResult& embedded) {
  std::string text =
      fmt::format("{} is embedded: {} of {} columns\n", Escaped(options.run),
                  embedded.records == 1 ? "1 record" : fmt::format("{} records", embedded.records),
                  embedded.labels.size());
  std::int32_t column = 0;
  std::size_t width = 0;
  for (const std::string& label : embedded.labels) width = std::max(width, label.size());
  for (const std::string& label : embedded.labels) {
    text += fmt::format("  {:<{}}  {}\n", label, width, Holds(options, column++));
  }
  text += fmt::format("lost       {} at the start, which are inputs only\n",
                      Values(options.embedding.LagOf(0)));
  if (options.embedding.testing_samples == 0) return text;
  text += fmt::format("testing    {} samples, {} apart, in the set time-series-testing\n",
                      options.embedding.testing_samples, Values(options.embedding.delay));
  const std::int64_t unused = UnusedValues(options);
  if (unused > 0) text += fmt::format("unused     {} between the samples\n", Values(unused));
  return text;
}

std::string EmbedJson(const EmbedOptions& options, const EmbeddingResult& embedded) {
  nlohmann::ordered_json columns = nlohmann::ordered_json::array();
  std::int32_t column = 0;
  for (const std::string& label : embedded.labels) {
    columns.push_back({{"label", label}, {"lag", options.embedding.LagOf(column++)}});
  }
  return JsonText({{"run", options.run},
                   {"dimension", options.embedding.dimension},
                   {"delay", options.embedding.delay},
                   {"values", embedded.series_rows},
                   {"rows", embedded.records},
                   {"columns", std::move(columns)},
                   {"lostAtStart", options.embedding.LagOf(0)},
                   {"testingSamples", options.embedding.testing_samples},
                   {"unused", UnusedValues(options)},
                   {"warnings", WarningsOf(embedded)}});
}

}  // namespace

void RunEmbed(const EmbedOptions& options, Output& output) {
  const EmbeddingResult embedded = Embed(options);
  for (const std::string& warning : WarningsOf(embedded)) Warn(warning);
  output.NoteDone("the series is embedded");
  output.Write(options.json ? EmbedJson(options, embedded) : EmbedText(options, embedded));
}

void AddEmbedCommand(CommandSpec& app, Invocation& invocation) {
  struct Words {
    std::string run;
    std::string dimension;
    std::string delay;
    std::string samples = "0";
    bool json = false;
  };
  CommandSpec embed = app.AddCommand("embed", "Make records of a time series");
  const auto words = std::make_shared<Words>();
  AddRun(embed, words->run);
  embed.AddOption("--dimension", words->dimension, "how many earlier values a record holds")
      .Required()
      .ValueName("E");
  embed.AddOption("--delay", words->delay, "how many values lie from one of them to the next")
      .Required()
      .ValueName("D");
  embed
      .AddOption("--testing-samples", words->samples,
                 "how many values at the end to keep for testing (default 0)")
      .ValueName("T");
  AddJson(embed, words->json);
  embed.Footer(kEmbedExamples);
  const auto make = [words] {
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    EmbedOptions options;
    options.run = RunName(words->run);
    options.embedding.dimension = ParseWhole("--dimension", words->dimension, 1, kMaxDimension);
    options.embedding.delay = ParseWhole("--delay", words->delay, 1, kMost);
    options.embedding.testing_samples = ParseWhole("--testing-samples", words->samples, 0, kMost);
    options.json = words->json;
    return options;
  };
  WhenChosen(embed, invocation, make, RunEmbed);
}

}  // namespace tslm5::host
