#ifndef TSLM5_HOST_ANSWERS_STATS_REPORT_H_
#define TSLM5_HOST_ANSWERS_STATS_REPORT_H_

#include <string>
#include <vector>

#include "host/answers/column_figures.h"

namespace tslm5::host {

/// All that the statistics of a set have to tell.
struct StatsReport {
  std::string set;
  std::vector<std::string> labels;  ///< by column index
  std::vector<RunFigures> columns;
  std::vector<std::string> histograms;  ///< one a column, or none
  bool by_class = false;
  std::vector<RunClassFigures> classes;
};

/// A table for people, six digits a figure; one more a class.
std::string StatsText(const StatsReport& report);

/// As one JSON object on one line, every digit of a figure.
std::string StatsJson(const StatsReport& report);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_STATS_REPORT_H_
