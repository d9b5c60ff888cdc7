#ifndef TSLM5_ORIGINAL_RESPONSE_CLASSES_H_
#define TSLM5_ORIGINAL_RESPONSE_CLASSES_H_

#include <cstdint>

#include "original/original_data_state.h"
#include "tslm5/engine/connection.h"

namespace tslm5 {

/// The binary class in place of the response's text: "1" for the response's maximum, else "0".
namespace ResponseClasses {

/// Reads the response's maximum in the statistics of a set; of the training set where that set has
/// none; of any set for `kCombined`. Where there is none at all, or a statement fails, the old
/// maximum stays.
void ReadTargetMaximum(OriginalDataState& state, IConnection& connection, std::int32_t set_type);

/// For a run that classifies, compares the response as the training or testing table has it: the
/// table's record i decides on row i. Another problem category changes nothing.
void PutFromTable(OriginalDataState& state, IConnection& connection, std::int32_t set_type);

/// Compares the response's own texts in the filled rows. A text that is no number, with a point or
/// with the user's decimal separator, raises 13.
void PutFromTexts(OriginalDataState& state, char decimal);

}  // namespace ResponseClasses

}  // namespace tslm5

#endif  // TSLM5_ORIGINAL_RESPONSE_CLASSES_H_
