#ifndef TSLM5_DATASETLITE_SERIES_EMBEDDING_H_
#define TSLM5_DATASETLITE_SERIES_EMBEDDING_H_

#include "datasetlite/data_set_lite_state.h"

namespace tslm5 {

/// Embeds the one-column table of a set under its properties: `IDataSet::FormatDataAs`. With
/// testing samples they go to the extra table, made anew; without, an older extra table stays.
/// Missing values, and text that is no number, stay what they are in every record that holds them.
/// One transaction; false, and nothing changed, when there is nothing to embed or anything fails.
bool EmbedSeries(DataSetLiteState& state);

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_SERIES_EMBEDDING_H_
