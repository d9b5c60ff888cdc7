#ifndef TSLM5_HOST_ANSWERS_GAP_REPORT_H_
#define TSLM5_HOST_ANSWERS_GAP_REPORT_H_

#include <string>
#include <vector>

#include "host/preparation/coded_column.h"
#include "host/preparation/gap_column.h"

namespace tslm5::host {

/// A column with gaps, and its categories where it is categorical.
struct ReportedGaps {
  GapColumn gaps;
  CodedColumn categories;
};

/// A table a column, for people.
std::string GapText(const std::vector<ReportedGaps>& columns);

/// As one JSON object on one line.
std::string GapJson(const std::vector<ReportedGaps>& columns);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_GAP_REPORT_H_
