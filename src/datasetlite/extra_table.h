#ifndef TSLM5_DATASETLITE_EXTRA_TABLE_H_
#define TSLM5_DATASETLITE_EXTRA_TABLE_H_

#include "datasetlite/data_set_lite_state.h"

namespace tslm5 {

/// The extra table of a `DataSetLite`: the testing samples of a time series.
namespace ExtraTable {

/// New data, or none, end the extra set of the old: drops its table when the set holds one and is a
/// training set, whose series the samples are of. Any other set is to let go of its handle alone.
/// REQUIRES: the caller's transaction, after which it resets `extra_table`.
void DropWithData(const DataSetLiteState& state, IConnection& connection);

}  // namespace ExtraTable

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_EXTRA_TABLE_H_
