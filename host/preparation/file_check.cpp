#include "host/preparation/file_check.h"

#include <fmt/format.h>

#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/progress.h"
#include "host/program/shown_text.h"
#include "tslm5/component/create_object.h"
#include "tslm5/platform/object.h"

namespace tslm5::host {
namespace {

/// Shows how far a check is and hands Ctrl-C on.
class CheckFeedback final : public CountedObject<IFeedback> {
 public:
  explicit CheckFeedback(Progress& progress) : progress_(progress) {}

  std::string_view TypeName() override { return "CheckFeedback"; }
  bool ReportProgress(std::int32_t pPosition, std::string_view) override {
    progress_.Step(pPosition);
    return !Interrupted();
  }
  bool ContinueFlag() override { return !Interrupted(); }
  void Finish() override { progress_.End(); }
  void Start() override {}
  void SetMaximum(std::int32_t pMaximum) override { progress_.Begin("Checking", pMaximum); }

 private:
  ~CheckFeedback() override = default;

  Progress& progress_;
};

DataCheckResult Check(const CheckRequest& request, DataCheckOptions options) {
  options.path = request.path;
  options.separator = request.separator->code;
  options.has_labels = request.has_labels;
  options.problem_category = request.problem_category;
  Progress progress(Terminal::OfStandardError());
  progress.Begin("Checking", request.lines);
  const auto feedback = MakeObject<CheckFeedback>(progress);
  try {
    DataCheckResult result =
        CreateObject<IDataCheck>(class_id::kDataCheck)->Check(options, feedback.get());
    StopIfInterrupted();
    return result;
  } catch (const Error&) {  // what kept the check from looking at the text says nothing of it
    throw Failure(ExitCode::kTrouble,
                  "the text cannot be checked: the component could not read it, or there is not "
                  "enough memory");
  }
}

}  // namespace

DataCheckResult CheckFile(const CheckRequest& request) {
  return Check(request, {});
}

DataCheckResult CheckWholeFile(const CheckRequest& request, std::int64_t most_kept) {
  DataCheckOptions options;
  options.finds_all = true;
  options.most_kept = most_kept;
  return Check(request, options);
}

bool IsAboutFields(CheckCode code) {
  return code == CheckCode::kText || code == CheckCode::kMissingValue ||
         code == CheckCode::kMissingResponse || code == CheckCode::kFirstFieldNoNumber;
}

std::string PlaceOf(const DataCheckFinding& finding) {
  std::string text;
  if (finding.line != 0) text += fmt::format("line {}", finding.line);
  if (finding.record != 0) text += fmt::format(", record {}", finding.record);
  if (finding.column != 0) text += fmt::format(", column {}", finding.column);
  if (finding.label) text += fmt::format(" ({})", Cut(*finding.label));
  if (finding.record != 0) text += fmt::format(": {}", Quoted(finding.value));
  if (!text.empty()) text += ": ";
  return text;
}

std::string OneLine(const std::string& message) {
  std::string line;
  for (const char c : message) {
    if (c == '\r') continue;
    if (c != '\n') {
      line += c;
    } else if (!line.ends_with(' ')) {
      line += ' ';
    }
  }
  return line;
}

}  // namespace tslm5::host
