#ifndef TSLM5_HOST_COMMANDS_REPORT_COMMAND_H_
#define TSLM5_HOST_COMMANDS_REPORT_COMMAND_H_

#include <string>

#include "host/program/invocation.h"

namespace tslm5::host {

struct ReportOptions {
  std::string run;
  std::string page;  ///< the file to write
  bool force = false;
};

/// `tslm5 report`.
void AddReportCommand(CommandSpec& app, Invocation& invocation);

void RunReport(const ReportOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_REPORT_COMMAND_H_
