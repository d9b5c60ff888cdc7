#ifndef TSLM5_DATASETLITE_RUN_LABELS_H_
#define TSLM5_DATASETLITE_RUN_LABELS_H_

#include <string>
#include <string_view>
#include <vector>

#include "datasetlite/data_set_lite_state.h"

namespace tslm5 {

/// The labels of a `DataSetLite` in its run: read when it is attached, written when it is saved.
namespace RunLabels {

/// The original labels of the run's columns; empty when none of them differs from its column's
/// generated name, or the run has no column records.
std::vector<std::string> Read(IConnection& connection);

/// Reads them for a set, which has labels when there are any.
void Load(DataSetLiteState& state);

/// Replaces the labels by the words of a blank-separated text, as many as there are; code 5 inside
/// a word is a blank. The set has labels then, and is dirty.
void Set(DataSetLiteState& state, std::string_view labels);

/// Writes the labels under the set's type code in place of the old ones and, of a training set, the
/// column records that `Read` reads (see `ColumnRecords`), in one transaction.
void Save(DataSetLiteState& state);

}  // namespace RunLabels

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_RUN_LABELS_H_
