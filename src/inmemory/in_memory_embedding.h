#ifndef TSLM5_INMEMORY_IN_MEMORY_EMBEDDING_H_
#define TSLM5_INMEMORY_IN_MEMORY_EMBEDDING_H_

#include "inmemory/in_memory_state.h"

namespace tslm5 {

/// Embeds the one column of a set under its properties: `FormatDataAs` of both its dataset
/// interfaces. The set is dirty after that in any case. The columns are labelled by their lags,
/// "t_6", "t_4", …, "t_0", and with testing samples these become the extra set; without, an older
/// extra set stays. A series of words is embedded by its codes, without the words. False, and all
/// else unchanged, when there is nothing to embed or anything fails.
bool EmbedSeries(InMemoryState& state);

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_IN_MEMORY_EMBEDDING_H_
