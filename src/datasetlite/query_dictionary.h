#ifndef TSLM5_DATASETLITE_QUERY_DICTIONARY_H_
#define TSLM5_DATASETLITE_QUERY_DICTIONARY_H_

#include <memory>
#include <string_view>

#include "datasetlite/data_set_lite_state.h"
#include "tslm5/platform/dictionary.h"

namespace tslm5 {

/// A new map of the records of `sql`, in their order: the first field is the key, the second the
/// value, each in its own kind. Empty, with nothing sent, when the set has no open run. A key that
/// comes twice raises 457, a key that is NULL 13, and what the engine raises passes on.
std::shared_ptr<Dictionary> QueryToDictionary(const DataSetLiteState& state, std::string_view sql);

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_QUERY_DICTIONARY_H_
