#ifndef TSLM5_HOST_RUN_METADATA_H_
#define TSLM5_HOST_RUN_METADATA_H_

#include <cstdint>
#include <string>
#include <vector>

#include "host/cell_survey.h"
#include "host/run_session.h"

namespace tslm5::host {

/// The labels of a dataset in column order; without labels the generated names.
std::vector<std::string> LabelsOf(IDataSet& data_set);

/// Writes what a run notes of its columns: `DataSetColumn` and `OriginalDataLabels`, of which the
/// last column is the response.
void WriteColumns(const RunSession& session, IDataSet& data_set, const CellSurvey& survey);

/// Takes away what was noted of or computed from the former records of set `type`: its labels and
/// statistics, and with the training set also its categories and missing values.
void ForgetFormerSet(const RunSession& session, std::int32_t type);

/// `text` as an SQL literal.
std::string SqlText(std::string_view text);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_RUN_METADATA_H_
