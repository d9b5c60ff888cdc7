#ifndef TSLM5_HOST_REPORT_REPORT_SECTIONS_H_
#define TSLM5_HOST_REPORT_REPORT_SECTIONS_H_

#include <string>

#include "host/report/report_data.h"

namespace tslm5::host {

// The parts of a report's page, each "" where the run has nothing for it.

/// How many records and columns each set has, what is missing of them, and where they come from.
std::string SetsSection(const ReportData& data);
/// The line of each series.
std::string SeriesSection(const ReportData& data);
/// A card a column: its kind, how its values are spread in each set, and its figures.
std::string ColumnsSection(const ReportData& data);
/// The categories of each column with their codes.
std::string CategoriesSection(const ReportData& data);
/// The tokens that stand for missing values, and what replaces them.
std::string MissingSection(const ReportData& data);
/// What was done to the run.
std::string HistorySection(const ReportData& data);

/// The label of a column of the run's sets; its name in the tables where it is none of theirs.
std::string ColumnLabel(const ReportData& data, std::int32_t column);

/// "training" as the first word of a line.
std::string Capitalised(std::string text);

/// "Time series training" for the set of that name.
std::string SetTitle(const SetName& set);

/// A number of things: "1 record", "2 records".
std::string Counted(std::int64_t count, const std::string& thing);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_REPORT_REPORT_SECTIONS_H_
