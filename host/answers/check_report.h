#ifndef TSLM5_HOST_ANSWERS_CHECK_REPORT_H_
#define TSLM5_HOST_ANSWERS_CHECK_REPORT_H_

#include <string>

#include "host/preparation/file_check.h"
#include "host/preparation/separators.h"

namespace tslm5::host {

/// All that a check has to tell.
struct CheckReport {
  const std::string& file;
  const SeparatorChoice& separator;
  const DataCheckResult& result;  ///< up to the first finding
  const DataCheckResult& whole;   ///< of the whole text; the same where nothing was found
  bool all = false;               ///< every finding was asked for, not the first alone
};

/// In words, a line a subject.
std::string CheckText(const CheckReport& report);

/// As one JSON object on one line.
std::string CheckJson(const CheckReport& report);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_CHECK_REPORT_H_
