#include <algorithm>

#include "host/check_report.h"
#include "host/commands.h"
#include "host/delimited_text.h"
#include "host/file_check.h"
#include "host/problem_list.h"
#include "host/user_locale.h"

namespace tslm5::host {
namespace {

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

}  // namespace tslm5::host
