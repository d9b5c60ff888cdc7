#ifndef TSLM5_HOST_CHECK_REPORT_H_
#define TSLM5_HOST_CHECK_REPORT_H_

#include <string>

#include "host/file_check.h"
#include "host/problem_list.h"
#include "host/separators.h"

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

/// Where a problem is, as far as it has a place, with ": " behind it:
/// `line 4, record 3, column 2 (width): "abc": `.
std::string PlaceOf(const Problem& problem);

/// A message of the check on one line: its line breaks become blanks.
std::string OneLine(const std::string& message);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_CHECK_REPORT_H_
