#ifndef TSLM5_HOST_ANSWERS_CHECK_REPORT_H_
#define TSLM5_HOST_ANSWERS_CHECK_REPORT_H_

#include <string>

#include "host/preparation/file_check.h"
#include "host/preparation/problem_list.h"
#include "host/preparation/separators.h"

namespace tslm5::host {

/// All that a check has to tell.
struct CheckReport {
  const std::string& file;
  const CheckRequest& request;
  const SeparatorChoice& separator;
  const CheckAnswer& answer;
  const ProblemList& problems;
  bool all = false;  ///< every problem was asked for, not the first alone
};

/// In words, a line a subject.
std::string CheckText(const CheckReport& report);

/// As one JSON object on one line.
std::string CheckJson(const CheckReport& report);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_CHECK_REPORT_H_
