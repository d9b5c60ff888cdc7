#ifndef TSLM5_HOST_REPORT_REPORT_READING_H_
#define TSLM5_HOST_REPORT_REPORT_READING_H_

#include <string>

#include "host/preparation/run_session.h"
#include "host/program/progress.h"
#include "host/report/report_data.h"

namespace tslm5::host {

/// Reads what a report tells of `session`'s run, which the user calls `run`: one pass through each
/// set. Raises `Failure` "cancelled" on Ctrl-C.
ReportData ReadReport(const RunSession& session, const std::string& run, Progress& progress);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_REPORT_REPORT_READING_H_
