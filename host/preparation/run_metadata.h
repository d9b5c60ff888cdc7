#ifndef TSLM5_HOST_PREPARATION_RUN_METADATA_H_
#define TSLM5_HOST_PREPARATION_RUN_METADATA_H_

#include <cstdint>
#include <string>
#include <vector>

#include "host/preparation/run_session.h"

namespace tslm5::host {

/// The labels of a dataset in column order; without labels the generated names.
std::vector<std::string> LabelsOf(IDataSet& data_set);

/// Takes away what was noted of or computed from the former records of set `type`: its labels and
/// statistics.
void ForgetFormerSet(const RunSession& session, std::int32_t type);

/// Takes the testing samples of a former embedding away. REQUIRES: no set of the run is open.
void DropTestingSamples(const RunSession& session);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_RUN_METADATA_H_
