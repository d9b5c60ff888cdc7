#ifndef TSLM5_ORIGINAL_ORIGINAL_COLUMNS_H_
#define TSLM5_ORIGINAL_ORIGINAL_COLUMNS_H_

#include <cstdint>
#include <string>

#include "original/original_data_state.h"
#include "tslm5/engine/connection.h"

namespace tslm5 {

/// What an `OriginalDataSet` knows of its columns: labels and flags.
namespace OriginalColumns {

/// Reads the labels, the nominal flags and the missing map of the run.
void Load(OriginalDataState& state, IConnection& connection);

/// "d" and the index, or "y" for the last column.
std::string ShortName(const OriginalDataState& state, std::int32_t column);

/// The short name; with ":" and the label when some column was relabelled.
std::string LongLabel(const OriginalDataState& state, std::int32_t column);

}  // namespace OriginalColumns

}  // namespace tslm5

#endif  // TSLM5_ORIGINAL_ORIGINAL_COLUMNS_H_
