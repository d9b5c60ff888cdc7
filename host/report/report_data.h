#ifndef TSLM5_HOST_REPORT_REPORT_DATA_H_
#define TSLM5_HOST_REPORT_REPORT_DATA_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/answers/column_figures.h"
#include "host/charts/class_split.h"
#include "host/charts/series_sketch.h"
#include "host/charts/value_sketch.h"
#include "host/preparation/run_history.h"
#include "host/preparation/run_scale.h"
#include "host/program/set_names.h"

namespace tslm5::host {

/// One set of a run as a report tells it.
struct ReportSet {
  const SetName* name = nullptr;
  std::int64_t rows = 0;
  std::vector<std::string> labels;  ///< by column
  bool has_labels = false;
  std::optional<HistoryEntry> load;
  std::vector<ValueSketch> columns;
  std::vector<RunFigures> figures;  ///< by column
  bool has_statistics = false;      ///< the run keeps them; else they are of the one pass
  std::optional<SeriesSketch> series;

  std::int64_t Missing() const {
    std::int64_t missing = 0;
    for (const ValueSketch& column : columns) missing += column.Missing();
    return missing;
  }
};

/// Sets of the same columns, which are told together.
struct ReportGroup {
  std::vector<ReportSet> sets;
  std::vector<bool> is_nominal;  ///< by column
  ClassSplit classes;
  bool has_classes = false;  ///< counts are by class
  bool is_series = false;    ///< what the line shows is the last column

  const std::vector<std::string>& Labels() const { return sets.front().labels; }
};

/// All that a report tells of a run.
struct ReportData {
  std::string run;  ///< as the user names it
  std::int32_t schema_version = 0;
  std::int32_t problem = 0;
  RunScale scale;
  std::vector<ReportGroup> groups;
  std::vector<RunCategory> categories;  ///< by column, in the run's order
  std::vector<RunToken> tokens;         ///< by column, in the run's order
  std::vector<HistoryEntry> history;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_REPORT_REPORT_DATA_H_
