#include "host/commands/check_command.h"

#include <algorithm>
#include <memory>

#include "host/answers/check_report.h"
#include "host/answers/file_report.h"
#include "host/answers/text_warnings.h"
#include "host/commands/dialect_arguments.h"
#include "host/preparation/delimited_text.h"
#include "host/preparation/file_check.h"
#include "host/preparation/load_trial.h"
#include "host/preparation/text_source.h"
#include "host/preparation/user_locale.h"
#include "host/program/common_options.h"
#include "host/program/terminal.h"

namespace tslm5::host {
namespace {

constexpr const char* kCheckExamples =
    "Examples:\n"
    "  tslm5 check measurements.csv\n"
    "  tslm5 check measurements.csv --all --max 100\n"
    "  tslm5 check answers.csv --separator semicolon --decimal comma --json\n"
    "  tslm5 check plain.txt --fixed --problem classification\n"
    "\n"
    "The check tells what tslm5 load would make of the file.\n"
    "Exit codes: 0 the file is valid, 1 it has problems, 2 wrong usage, 3 file trouble.\n";

/// What the check and the loader make of a file.
struct Findings {
  DataCheckResult first;  ///< up to the first finding
  DataCheckResult whole;
};

/// A file that is refused as a whole, in words that name the place.
Findings Refused(const std::string& words) {
  Findings findings;
  findings.first.count = 1;
  findings.first.findings.emplace_back().message = words;
  findings.whole = findings.first;
  return findings;
}

/// A valid file is gone through once.
Findings Check(const CheckOptions& options, const CheckRequest& request) {
  Findings findings;
  findings.first = CheckFile(request);
  findings.whole =
      findings.first.is_valid
          ? findings.first
          : CheckWholeFile(request,
                           static_cast<std::int64_t>(options.all ? options.most_problems : 0));
  return findings;
}

/// What `load` would make of the file.
ExitCode CheckFile(const CheckOptions& options, Output& output) {
  DelimitedFile file = ExamineFile(options.file, options.dialect);
  if (file.fault_count == 0) {
    if (const auto words = LoadRefusal(file, options.problem_category)) {
      file.faults.push_back({0, *words});
      file.fault_count = 1;
    }
  }
  for (const TextNote& note : file.notes) Warn(note.words);
  const FileReport report{options.file, file, options.separator != nullptr,
                          options.all ? std::optional(options.most_problems) : std::nullopt};
  output.Write(options.json ? FileJson(report) : FileText(report));
  return file.fault_count == 0 ? ExitCode::kDone : ExitCode::kRefused;
}

/// What the contract's check says, in its words.
ExitCode CheckFixed(const CheckOptions& options, Output& output) {
  const bool comma_is_decimal = UserHasDecimalComma();
  const TextSource source(options.file);
  const SeparatorChoice choice = options.separator != nullptr
                                     ? SeparatorChoice{options.separator, "as asked for"}
                                     : GuessSeparator(source.Text(), comma_is_decimal);
  DelimitedText text;
  text.text = source.Text();
  text.separator = choice.separator;
  text.has_label_line = options.has_labels;
  text.path = source.Path();

  CheckRequest request;
  request.path = source.Path();
  request.separator = choice.separator;
  request.has_labels = options.has_labels;
  request.problem_category = options.problem_category.value_or(problem_category::kRegression);
  request.lines = std::count(text.text.begin(), text.text.end(), '\n');

  const Findings findings =
      source.NulLine() ? Refused(source.WordsOfNul()) : Check(options, request);
  for (const std::string& warning : TextWarnings(source)) Warn(warning);
  const CheckReport report{options.file, choice, findings.first, findings.whole, options.all};
  output.Write(options.json ? CheckJson(report) : CheckText(report));
  return findings.first.is_valid ? ExitCode::kDone : ExitCode::kRefused;
}

}  // namespace

ExitCode RunCheck(const CheckOptions& options, Output& output) {
  return options.is_fixed ? CheckFixed(options, output) : CheckFile(options, output);
}

void AddCheckCommand(CommandSpec& app, Invocation& invocation) {
  struct Words {
    CheckOptions options;
    DialectArguments dialect;
    std::string problem;
  };
  CommandSpec check = app.AddCommand("check", "Check a delimited text file before it is loaded");
  const auto words = std::make_shared<Words>();
  check.AddOption("FILE", words->options.file, "the text file").Required();
  AddDialect(check, words->dialect);
  AddProblem(check, words->problem,
             "what the data are for (default: classification for a response of words, else "
             "regression)");
  const OptionSpec all =
      check.AddFlag("--all", words->options.all, "every problem, not the first alone");
  check.AddOption("--max", words->options.most_problems, "how many problems to show (default 20)")
      .InRange(0, 1000000000)
      .Needs(all)
      .ValueName("N");
  AddJson(check, words->options.json);
  check.Footer(kCheckExamples);
  const auto make = [words] {
    CheckOptions options = words->options;
    options.separator = FindSeparator(words->dialect.separator);
    options.has_labels = !words->dialect.no_labels;
    options.dialect = DialectOf(words->dialect);
    options.is_fixed = words->dialect.fixed;
    if (!words->problem.empty()) options.problem_category = ProblemCategory(words->problem);
    return options;
  };
  WhenChosen(check, invocation, make, RunCheck);
}

}  // namespace tslm5::host
