#ifndef TSLM5_STATISTICS_DATA_RECORD_STATISTICS_H_
#define TSLM5_STATISTICS_DATA_RECORD_STATISTICS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tslm5/contracts/feedback.h"
#include "tslm5/engine/connection.h"

namespace tslm5 {

/// The figures of a data table, column by column and class by class, computed by the database and
/// kept in the run's two statistics tables. Holds no state.
namespace DataRecordStatistics {

/// What a figure that is no finite number is stored as.
inline constexpr double kMissingFigure = -9999.0;

/// Computes and stores the statistics of a data table under `data_set_id` (1 training, 2 testing):
/// first the columns', then, for a response of at most two distinct values, the classes'. Each of
/// the two passes is one transaction. `feedback` may be null; when it asks to stop, the pass under
/// way is undone and the result is false. An error of the engine undoes the pass and passes on.
bool CalculateTableStatistics(IConnection& connection, std::int32_t data_set_id,
                              std::string_view table_name, IFeedback* feedback);

std::int32_t GetRecordCount(IConnection& connection, std::string_view table_name);

/// Fields of the table, `row` included.
std::int32_t GetColumnCount(IConnection& connection, std::string_view table_name);

/// Names of the fields in table order; none when the table has no record (meant).
std::vector<std::string> GetColumnNames(IConnection& connection, std::string_view table_name);

/// One less than the number of columns in one query.
std::int32_t GetBatchSize(std::int32_t variables, std::int32_t records);

/// The strings that are not empty, in their order; all of them when every one is empty.
std::vector<std::string> CompactStrings(std::vector<std::string> strings);

}  // namespace DataRecordStatistics

}  // namespace tslm5

#endif  // TSLM5_STATISTICS_DATA_RECORD_STATISTICS_H_
