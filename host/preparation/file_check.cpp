#include "host/preparation/file_check.h"

#include <fmt/format.h>

#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/progress.h"
#include "tslm5/component/create_object.h"
#include "tslm5/contracts/event_handlers.h"
#include "tslm5/platform/connection_point.h"

namespace tslm5::host {
namespace {

constexpr std::string_view kSetMark = "<DATASET>";
constexpr std::string_view kNotFound = "File not found.";
constexpr std::string_view kInvalid = "Invalid file.";
constexpr std::string_view kNoMemory = "Out of memory";
constexpr std::int64_t kRowsPerFeedback = 10;

std::string WithSetName(std::string text, const std::string& name) {
  for (std::size_t at = 0; (at = text.find(kSetMark, at)) != std::string::npos;) {
    text.replace(at, kSetMark.size(), name);
    at += name.size();
  }
  return text;
}

/// Whether the text has too few lines to be looked at, or begins with an empty one.
bool HasNoBeginning(std::string_view text, bool has_labels) {
  const std::size_t end = text.find('\n');
  const std::string_view first = text.substr(0, end);
  if (first.empty() || first == "\r") return true;
  return has_labels && (end == std::string_view::npos || end + 1 == text.size());
}

/// Whether the words are those of a failure to read the text, and none about it.
bool IsTrouble(const std::string& words, const CheckRequest& request) {
  return words == kNotFound || words == kNoMemory ||
         words.starts_with(fmt::format("The file \"{}\"", request.path)) ||
         (words == kInvalid && !HasNoBeginning(request.text, request.has_labels));
}

/// The check has no answer but "not valid": what kept it from looking at the text must not pass for
/// what it found there.
void RequireLook(const CheckAnswer& answer, const CheckRequest& request) {
  if (!IsTrouble(answer.message, request)) return;
  throw Failure(ExitCode::kTrouble,
                "the text cannot be checked: the component could not read it, or there is not "
                "enough memory");
}

}  // namespace

CheckAnswer CheckFile(const CheckRequest& request) {
  const Ref<IDataSet> data_set = CreateObject<IDataSet>(class_id::kDataSetLite);
  data_set->put_DataSetType(data_set_type::kTraining);
  data_set->put_ProblemCategory(request.problem_category);
  Progress progress(Terminal::OfStandardError());
  progress.Begin("Checking", request.lines);

  CheckAnswer answer;
  std::int64_t rows_heard = 0;
  const Ref<EventHandlers> handlers = MakeObject<EventHandlers>();
  handlers->on_before_data_check = [](IParseEventArgs& arguments) {
    if (Interrupted()) arguments.put_Cancel(true);
  };
  handlers->on_load_feedback = [&progress, &rows_heard](IParseEventArgs& arguments) {
    progress.At(rows_heard += kRowsPerFeedback);
    if (Interrupted()) arguments.put_Cancel(true);
  };
  handlers->on_after_data_check = [&answer](IParseEventArgs& arguments) {
    answer.rows = arguments.Rows();
  };
  const Ref<IConnectionPoint> source = Query<IConnectionPoint>(data_set);
  const std::int32_t cookie = source->Advise(handlers.get());

  std::int32_t separator = request.separator->code;
  std::string message;
  answer.is_valid = data_set->IsValidDataSet(request.path, request.has_labels, separator, message);
  source->Unadvise(cookie);
  StopIfInterrupted();  // a cancelled check may well have said "valid"
  if (answer.is_valid) return answer;

  answer.message = WithSetName(message, data_set->Name());
  RequireLook(answer, request);
  std::int32_t column = 0;
  std::int32_t row = 0;
  data_set->InvalidPosition(column, row);
  if (row > 0) answer.row = row;
  if (column > 0) answer.column = column;
  return answer;
}

}  // namespace tslm5::host
