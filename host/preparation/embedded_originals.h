#ifndef TSLM5_HOST_PREPARATION_EMBEDDED_ORIGINALS_H_
#define TSLM5_HOST_PREPARATION_EMBEDDED_ORIGINALS_H_

#include <cstdint>

#include "host/preparation/run_session.h"

namespace tslm5::host {

/// Writes the original texts of the records that the series in the training table is about to be
/// embedded in, beside `OriginalData`: record r gets the texts of its inputs and its response under
/// the key r, from 1. Texts of the testing set stay as they are, in the first column; its records
/// move behind the embedded ones. False, and nothing written, when the run keeps no texts.
bool WriteEmbeddedOriginals(const RunSession& session, std::int32_t dimension, std::int32_t delay,
                            std::int32_t records);

/// Puts them in the place of `OriginalData`.
void TakeEmbeddedOriginals(const RunSession& session);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_EMBEDDED_ORIGINALS_H_
