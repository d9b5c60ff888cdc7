#ifndef TSLM5_HOST_REPORT_REPORT_PAGE_H_
#define TSLM5_HOST_REPORT_REPORT_PAGE_H_

#include <string>
#include <string_view>

#include "host/report/report_data.h"

namespace tslm5::host {

/// What every report says of itself near its beginning; the program's version follows.
inline constexpr std::string_view kReportMark = "<meta name=\"generator\" content=\"tslm5 ";

/// A report as one page of HTML that needs nothing else: its drawings and its style stand in it, it
/// has no script and asks for nothing. `time` is when it is written.
std::string ReportPage(const ReportData& data, std::string_view time);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_REPORT_REPORT_PAGE_H_
