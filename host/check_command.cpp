#include "host/check_command.h"

#include <algorithm>
#include <memory>

#include "host/check_report.h"
#include "host/common_options.h"
#include "host/delimited_text.h"
#include "host/file_check.h"
#include "host/problem_list.h"
#include "host/user_locale.h"

namespace tslm5::host {
namespace {

constexpr const char* kCheckExamples =
    "Examples:\n"
    "  tslm5 check measurements.csv\n"
    "  tslm5 check measurements.csv --all --max 100\n"
    "  tslm5 check answers.csv --separator semicolon --problem classification --json\n"
    "\n"
    "Exit codes: 0 the file is valid, 1 it has problems, 2 wrong usage, 3 file trouble.\n";

/// The text of the file. One that is empty or no text is for the check to refuse, in its words.
std::string ReadTextForCheck(const std::string& file) {
  try {
    return ReadTextFile(file);
  } catch (const Failure& failure) {
    if (failure.Code() == ExitCode::kTrouble) throw;
    return {};
  }
}

}  // namespace

ExitCode RunCheck(const CheckOptions& options, Output& output) {
  const bool comma_is_decimal = UserHasDecimalComma();
  DelimitedText text;
  text.text = ReadTextForCheck(options.file);
  const SeparatorChoice choice = options.separator != nullptr
                                     ? SeparatorChoice{options.separator, "as asked for"}
                                     : GuessSeparator(text.text, comma_is_decimal);
  text.separator = choice.separator;
  text.has_label_line = options.has_labels;

  CheckRequest request;
  request.file = options.file;
  request.separator = choice.separator;
  request.has_labels = options.has_labels;
  request.problem_category = options.problem_category;
  request.lines = std::count(text.text.begin(), text.text.end(), '\n');
  const CheckAnswer answer = CheckFile(request);
  const ProblemList problems =
      options.all ? FindProblems(text, request, answer, options.most_problems, comma_is_decimal)
                  : FindAnsweredProblem(text, request, answer, comma_is_decimal);
  const CheckReport report{request, choice, answer, problems, options.all};
  output.Write(options.json ? CheckJson(report) : CheckText(report));
  return answer.is_valid ? ExitCode::kDone : ExitCode::kRefused;
}

void AddCheckCommand(CommandSpec& app, Invocation& invocation) {
  struct Words {
    CheckOptions options;
    std::string separator = "auto";
    std::string problem = "regression";
    bool no_labels = false;
  };
  CommandSpec check = app.AddCommand("check", "Check a delimited text file before it is loaded");
  const auto words = std::make_shared<Words>();
  check.AddOption("FILE", words->options.file, "the text file").Required();
  AddSeparator(check, words->separator);
  check.AddFlag("--no-labels", words->no_labels, "the first line is a record, not the labels");
  AddProblem(check, words->problem,
             "what the data are for (default regression); a classified response must be there "
             "in every record");
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
    options.separator = FindSeparator(words->separator);
    options.has_labels = !words->no_labels;
    options.problem_category = ProblemCategory(words->problem);
    return options;
  };
  WhenChosen(check, invocation, make, RunCheck);
}

}  // namespace tslm5::host
