#include "host/commands/report_command.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <chrono>
#include <memory>

#include "host/answers/stored_text.h"
#include "host/program/common_options.h"
#include "host/program/failure.h"
#include "host/program/page_file.h"
#include "host/program/shown_text.h"
#include "host/program/terminal.h"
#include "host/report/report_page.h"
#include "host/report/report_reading.h"

namespace tslm5::host {
namespace {

constexpr const char* kReportExamples =
    "Examples:\n"
    "  tslm5 report flowers.db -o flowers.html\n"
    "\n"
    "One page that needs nothing else, to be opened in a browser, printed or sent. A former "
    "report\n"
    "is replaced; any other file only with --force, the run itself never.\n";

}  // namespace

void RunReport(const ReportOptions& options, Output& output) {
  const RunSession session(options.run, RunOptions::Mode::kReadOnly);
  RequireFreePlace(options.page, options.run, kReportMark, "report", options.force);
  Progress progress(Terminal::OfStandardError());
  const ReportData data = ReadReport(session, options.run, progress);
  for (const ReportGroup& group : data.groups) {
    for (const ReportSet& set : group.sets) {
      if (!set.has_statistics) continue;  // its figures are of the one pass, over numbers alone
      for (const auto& warning : WarningsOfStoredText(session, *set.name, set.labels)) {
        Warn(warning);
      }
    }
  }
  const auto now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  const std::string time = fmt::format("{:%Y-%m-%dT%H:%M:%SZ}", fmt::gmtime(now));
  WriteWhole(options.page, ReportPage(data, time));
  output.NoteDone("the report is written");
  output.Write(
      fmt::format("{} is the report of {}\n", Escaped(options.page), Escaped(options.run)));
}

void AddReportCommand(CommandSpec& app, Invocation& invocation) {
  CommandSpec report = app.AddCommand("report", "Write an HTML report of a run");
  const auto words = std::make_shared<ReportOptions>();
  AddRun(report, words->run);
  report.AddOption("-o,--output", words->page, "the page to write").Required().ValueName("FILE");
  report.AddFlag("--force", words->force, "replace a file that is no report");
  report.Footer(kReportExamples);
  const auto make = [words] {
    return ReportOptions{RunName(words->run), words->page, words->force};
  };
  WhenChosen(report, invocation, make, RunReport);
}

}  // namespace tslm5::host
