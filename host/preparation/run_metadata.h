#ifndef TSLM5_HOST_PREPARATION_RUN_METADATA_H_
#define TSLM5_HOST_PREPARATION_RUN_METADATA_H_

#include <cstdint>
#include <string>
#include <vector>

#include "host/preparation/run_session.h"

namespace tslm5::host {

/// The labels of a dataset in column order; without labels the generated names.
std::vector<std::string> LabelsOf(IDataSet& data_set);

/// What a run notes of one column.
struct ColumnNote {
  std::string label;
  std::int64_t missing = 0;  ///< cells of the leading set
  bool is_nominal = false;
};

/// Writes what a run notes of its columns: `DataSetColumn` and `OriginalDataLabels`, of which the
/// last column is the response. Without labels a column is called by its name in the tables.
void WriteColumns(const RunSession& session, const std::vector<ColumnNote>& columns,
                  bool has_labels);

/// Takes away what was computed from the former records of set `type`.
void ForgetStatistics(const RunSession& session, std::int32_t type);

/// Takes away what was noted of or computed from the former records of set `type`: its labels and
/// statistics.
void ForgetFormerSet(const RunSession& session, std::int32_t type);

/// `text` as an SQL literal.
std::string SqlText(std::string_view text);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_RUN_METADATA_H_
