#ifndef TSLM5_HOST_PREPARATION_STORE_VALUES_H_
#define TSLM5_HOST_PREPARATION_STORE_VALUES_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "host/program/progress.h"
#include "tslm5/contracts/data_set.h"

namespace tslm5::host {

/// Has the component store numbers, `columns` a record, as the set of that type. `labels` are one a
/// column, or none. Raises `Failure`.
void StoreValues(IDataSet& data_set, std::int32_t type, const std::vector<double>& values,
                 std::size_t columns, const std::vector<std::string>& labels, Progress& progress);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_STORE_VALUES_H_
