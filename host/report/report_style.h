#ifndef TSLM5_HOST_REPORT_REPORT_STYLE_H_
#define TSLM5_HOST_REPORT_REPORT_STYLE_H_

#include <string_view>

namespace tslm5::host {

/// The style sheet of a report: light, dark and on paper.
extern const std::string_view kReportStyle;

}  // namespace tslm5::host

#endif  // TSLM5_HOST_REPORT_REPORT_STYLE_H_
